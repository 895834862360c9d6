#include "scheduler/schedule_run.h"

#include <cstdint>

#include "base/text.h"
#include "platform/clock.h"
#include "platform/pump.h"
#include "replay/replay_log.h"
#include "replay/run_job.h"
#include "scheduler/calendar.h"
#include "scheduler/date_text.h"
#include "scheduler/first_failure.h"
#include "settings/settings.h"

namespace {

constexpr int SettleMs = 50;  // the windows that give way are gone from the screen

void BeginAccount(Schedule& schedule) {
    schedule.last_run = NowStamp();
    schedule.last_result = ScheduleRunning;
    SaveSettings();
}

// The clock may have been set back during the run, as at the end of summer time. What was planned for `planned` and has
// run does not run again; when somebody sets the clock for good, it is by more than that.
std::string NextRunAfter(const Schedule& schedule, const std::string& planned) {
    constexpr std::int32_t anHour = 3600;
    const std::string now = NowStamp();
    const bool setBack = planned > now && SecondsBetween(planned, now) <= anHour;
    return NextRunOf(schedule, setBack ? planned : now);
}

// One write for both: they become known at the same moment.
void EndAccount(const ScheduleMark& mark, std::int32_t result, const std::string& planned) {
    Schedule* const schedule = mark.Find();
    if (schedule == nullptr) return;
    schedule->last_result = result;
    if (schedule->when_computer_starts == 0) schedule->next_run = NextRunAfter(*schedule, planned);
    SaveSettings();
}

void WriteHead(const std::vector<std::string>& lines) {
    if (lines.empty()) return;
    replayLog.LogBuffer.clear();
    for (const std::string& line : lines) LogLine(line);
}

// The table may be another one after the pump.
std::int32_t RunJobOf(const ScheduleMark& mark) {
    const Schedule* const schedule = mark.Find();
    if (schedule == nullptr) return ScheduleRunning;
    return RunJob(Trim(schedule->job_path), 0, Trim(schedule->log_path), false);
}

}  // namespace

void RunSchedule(const ScheduleMark& mark, const RunPreparation& preparation) {
    Schedule* const schedule = mark.Find();
    if (schedule == nullptr) return;
    const std::string planned = Trim(schedule->next_run);
    FirstFailure failure;
    failure.Try([schedule] { BeginAccount(*schedule); });
    if (preparation.clearTheWay) preparation.clearTheWay();
    platform::Pump();
    platform::Sleep(SettleMs);
    WriteHead(preparation.logLines);
    std::int32_t result = ScheduleRunning;
    failure.Try([&] { result = RunJobOf(mark); });
    failure.Try([&] { EndAccount(mark, result, planned); });
    failure.Rethrow();
}
