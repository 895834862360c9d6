#include "status/executing2_form.h"

#include "dictionary/sentences.h"
#include "replay/status_view.h"
#include "status/executing2_ids.h"
#include "status/executing_form.h"
#include "status/why_form.h"
#include "toolkit/window_tools.h"

Executing2Form executing2;

namespace {

constexpr BYTE Alpha = 215;
constexpr int TopOnScreen = 20;  // pixels
constexpr int GapBelow = 10;     // pixels, to executing

}  // namespace

Executing2Form::Executing2Form() : FloatingForm(executing2_dialog, "TessarineExecuting2", Alpha) {}

std::vector<ControlRow> Executing2Form::Rows() {
    return {
        {.id = executing2_Label1, .caption = {"Executing job", Label}, .colour = RGB(0x4c, 0x60, 0x68)},
        {.id = executing2_Label2, .font = {122, FW_SEMIBOLD}, .colour = RGB(0x17, 0x33, 0x3d)},
        {.id = executing2_Label3, .colour = RGB(0xa8, 0x3f, 0x10)},
    };
}

bool Executing2Form::OnLoad() {
    MoveWindowTo(Window(), 0, TopOnScreen);
    return false;
}

void Executing2Form::ShowJob(const std::string& jobName) {
    Load();
    SetText(Window(), executing2_Label2, jobName);
    SetText(Window(), executing2_Label3, "");
    Show();
}

bool Executing2Form::OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    if (message != WM_MOUSEACTIVATE) return FloatingForm::OnMessage(message, wParam, lParam, result);
    result = MA_NOACTIVATE;
    return true;
}

// --- the view ---

namespace status_view {

// executing stands below executing2, which is therefore made first, if need be.
void ShowExecuting() {
    executing2.Load();
    executing.ShowAt(RectangleOf(executing2.Window()).bottom + GapBelow);
}

void ShowExecuting2(const std::string& jobName) {
    why.Close();  // what it tells is of another run, and it would stand in the way of this one
    executing2.ShowJob(jobName);
}

void UnloadExecuting2() {
    executing2.Unload();
}

bool Executing2Visible() {
    return executing2.Visible();
}

platform::Rect Executing2Rectangle() {
    return executing2.Visible() ? RectangleOf(executing2.Window()) : platform::Rect{};
}

void MoveExecuting2(std::int32_t left) {
    if (executing2.Visible()) MoveWindowTo(executing2.Window(), left, RectangleOf(executing2.Window()).top);
}

void SetSecondLabel(const std::string& text) {
    SetText(executing2.Window(), executing2_Label3, text);
}

int PixelsPerInch() {
    return executing2.Window() == nullptr ? static_cast<int>(GetDpiForSystem()) : DpiOf(executing2.Window());
}

}  // namespace status_view
