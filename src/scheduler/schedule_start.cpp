#include "scheduler/schedule_start.h"

#include "base/text.h"
#include "platform/clock.h"
#include "replay/replay_log.h"
#include "scheduler/first_failure.h"
#include "scheduler/schedule_dispatch.h"
#include "scheduler/schedule_start_view.h"
#include "scheduler/start_up_runs.h"
#include "settings/settings.h"

ScheduleStartForm schedule_start_form;

namespace {

constexpr int ShownAlpha = 180;
constexpr int FadeStep = 10;
constexpr int FadeStepMs = 13;

// The log is written at once: there will be no run to write it. A wait for the machine that is cancelled leaves none.
void CancelCountdown() {
    Schedule* const schedule = schedule_start_form.schedule.Find();
    if (schedule == nullptr) return;
    schedule->suppressed = 1;
    schedule->last_run = schedule->next_run;
    schedule->last_result = ScheduleCanceled;
    FirstFailure failure;
    failure.Try(SaveSettings);
    LogLine("User canceled start of scheduled job: " + Trim(schedule->schedule_name));
    failure.Try([schedule] { WriteLogFile(Trim(schedule->log_path)); });
    failure.Rethrow();
}

}  // namespace

void ShowScheduleStart(std::ptrdiff_t index, const std::string& status) {
    if (!schedule_start_form.shown) schedule_start_view::Show(ShownAlpha);
    schedule_start_form = {true, ScheduleMark(index)};
    schedule_start_view::SetName(Trim(ScheduleAt(index).schedule_name));
    schedule_start_view::SetStatus(status);
}

void Zavrsi() {
    if (!schedule_start_form.shown) return;
    schedule_start_form = {};
    for (int alpha = ShownAlpha; alpha >= 0; alpha -= FadeStep) {
        schedule_start_view::SetAlpha(alpha);
        platform::Sleep(FadeStepMs);
    }
    schedule_start_view::Unload();
}

void CancelStart() {
    scheduleDispatch.DispatchEnabled ? CancelCountdown() : CancelFirstStartUpRun();
}
