#include "support/schedule_views_stand_in.h"

#include "scheduler/schedule_page_view.h"
#include "scheduler/schedule_start_view.h"
#include "scheduler/schedule_warning_view.h"
#include "support/recorder.h"

ScheduleViewsStandIn scheduleViewsStandIn;

namespace schedule_page_view {

void Show() {
    ++scheduleViewsStandIn.pageShown;
}

TELLS(scheduleViewsStandIn.calls, FocusOn, Focus, value == Focus::Combo1 ? "focus Combo1" : "focus schedule_save_as")
NOTES_AS(scheduleViewsStandIn.calls, OpenMenu_Schedule, "menu")

}  // namespace schedule_page_view

namespace schedule_start_view {

void Show(int alpha) {
    scheduleViewsStandIn.start = {};
    scheduleViewsStandIn.start.shown = true;
    scheduleViewsStandIn.alphas = {alpha};
}

void SetStatus(const std::string& text) {
    ScheduleViewsStandIn::StartForm& form = scheduleViewsStandIn.start;
    if (form.status.empty()) scheduleViewsStandIn.starts.push_back(form.name + "|" + text);
    form.status = text;
}

void SetName(const std::string& text) {
    scheduleViewsStandIn.start.name = text;
    scheduleViewsStandIn.start.status.clear();
}

TELLS(scheduleViewsStandIn.alphas, SetAlpha, int, value)

void Unload() {
    scheduleViewsStandIn.start = {};
}

}  // namespace schedule_start_view

namespace schedule_warning_view {

void ShowModal() {
    ++scheduleViewsStandIn.warnings;
    scheduleViewsStandIn.warningShown = true;
    if (scheduleViewsStandIn.duringWarning) scheduleViewsStandIn.duringWarning();
    scheduleViewsStandIn.warningShown = false;
}

void Refresh() {}

void Unload() {
    scheduleViewsStandIn.warningShown = false;
}

}  // namespace schedule_warning_view
