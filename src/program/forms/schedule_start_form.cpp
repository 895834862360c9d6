#include "forms/schedule_start_form.h"

#include "dictionary/sentences.h"
#include "forms/schedule_ids.h"
#include "platform/input.h"
#include "scheduler/schedule_start.h"
#include "scheduler/schedule_start_view.h"
#include "toolkit/window_tools.h"

ScheduleStartWindow scheduleStartWindow;

namespace {

constexpr int FromTheEdges = 20;  // pixels

}  // namespace

ScheduleStartWindow::ScheduleStartWindow() : FloatingForm(schedule_start_form_dialog, "TessarineScheduleStart", 255) {}

std::vector<ControlRow> ScheduleStartWindow::Rows() {
    return {
        {.id = schedule_start_form_title, .caption = {"Upcoming schedule", Label}, .colour = RGB(0x4c, 0x60, 0x68)},
        {.id = schedule_start_form_name, .font = {122, FW_SEMIBOLD}, .colour = RGB(0x17, 0x33, 0x3d)},
        {.id = schedule_start_form_Label3, .colour = RGB(0xa8, 0x3f, 0x10)},
        {.id = schedule_start_form_Command1, .caption = "Cancel", .clicked = CancelStart},
    };
}

bool ScheduleStartWindow::OnLoad() {
    SetText(Window(), schedule_start_form_Label3, Ellipsis("waiting for startup items to finish loading"));
    const platform::Rect place = RectangleOf(Window());
    const int left = platform::ScreenSize().width - (place.right - place.left) - FromTheEdges;
    MoveWindowTo(Window(), left, FromTheEdges);
    return false;
}

// --- the view ---

namespace schedule_start_view {

void Show(int alpha) {
    scheduleStartWindow.Load();
    SetAlpha(alpha);
    scheduleStartWindow.Show();
}

void SetStatus(const std::string& text) {
    SetText(scheduleStartWindow.Window(), schedule_start_form_Label3, text);
}

void SetName(const std::string& text) {
    SetText(scheduleStartWindow.Window(), schedule_start_form_name, text);
}

void SetAlpha(int alpha) {
    scheduleStartWindow.SetAlpha(static_cast<BYTE>(alpha));
}

void Unload() {
    scheduleStartWindow.Unload();
}

}  // namespace schedule_start_view
