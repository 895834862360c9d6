#include "scheduler/exit_request.h"

#include <cstdint>

#include "base/text.h"
#include "dictionary/dictionary.h"
#include "dictionary/sentences.h"
#include "platform/timers.h"
#include "scheduler/calendar.h"
#include "scheduler/schedule_warning_view.h"
#include "scheduler/upcoming_schedule.h"

ScheduleWarning scheduleWarning;

namespace {

constexpr std::int32_t AsksBelow = 30'000;  // seconds before the run
constexpr std::int32_t DropsBelow = 62;     // it begins in a moment, with a countdown of its own
constexpr int RefreshMs = 500;

void FillTimes(const Schedule& schedule) {
    scheduleWarning.Label2 = upcomingArea.will_start_in;
    scheduleWarning.Label6 = "(" + Translate("at") + " " + TimeOf(TrimView(schedule.next_run)) + ")";
}

void Fill(const Schedule& schedule) {
    scheduleWarning = {};
    scheduleWarning.title = Ellipsis("Scheduled jobs pending");
    scheduleWarning.job = Translate("Job") + " '" + BaseName(TrimView(schedule.job_path)) + "'";
    scheduleWarning.startsIn = Label("is scheduled to start in");
    scheduleWarning.notRunning = Translate("Scheduled jobs will not start if Tessarine is not running");
    scheduleWarning.question = Question("Do you really want to exit Tessarine");
    FillTimes(schedule);
}

void Close(bool leave) {
    scheduleWarning.leave = leave;
    scheduleWarning.open = false;
    schedule_warning_view::Unload();
}

// Timer1. The question is dropped when its run is over, too: with none to come today there are 0 seconds left.
void Timer1() {
    if (!scheduleWarning.open) return;
    if (Upcoming_Schedules() < DropsBelow) return Close(false);
    FillTimes(ScheduleAt(upcomingArea.NextScheduleIndex));
    schedule_warning_view::Refresh();
}

bool WantsToLeave() {
    scheduleWarning.open = true;
    const platform::TimerId timer = platform::StartTimer(RefreshMs, Timer1);
    schedule_warning_view::ShowModal();
    platform::StopTimer(timer);
    scheduleWarning.open = false;
    return scheduleWarning.leave;
}

}  // namespace

void ExitProgram(const std::function<void()>& quit) {
    const std::int32_t seconds = Upcoming_Schedules();
    if (upcomingArea.NextScheduleIndex == NoSchedule || seconds >= AsksBelow) return quit();
    if (seconds < DropsBelow) return;
    Fill(ScheduleAt(upcomingArea.NextScheduleIndex));
    if (WantsToLeave()) quit();
}

void schedule_warning_Command2() {
    Close(true);
}

void schedule_warning_command3() {
    Close(false);
}
