#include "scheduler/start_up_runs.h"

#include <cstddef>
#include <string>
#include <utility>

#include "base/text.h"
#include "dictionary/sentences.h"
#include "platform/load.h"
#include "scheduler/calendar.h"
#include "scheduler/date_text.h"
#include "scheduler/first_failure.h"
#include "scheduler/schedule_dispatch.h"
#include "scheduler/schedule_list.h"
#include "scheduler/schedule_run.h"
#include "scheduler/schedule_start.h"
#include "settings/settings.h"

StartUpRuns startUpRuns;

namespace {

constexpr int SampleMs = 500;

bool RunsAtStart(const Schedule& schedule) {
    return schedule.when_computer_starts == 1 && schedule.enabled != 0 && schedule.suppressed == 0;
}

bool IsFor(const Schedule& schedule, const std::string& today) {
    const StampNumbers date = NumbersOf(today);
    switch (schedule.schedule_type) {
        case ScheduleDaily:
            return true;
        case ScheduleWeekly:
            return IsDayOfWeek(DanUtjednu(date.year, date.month, date.day), schedule.days_of_week, true);
        case ScheduleMonthly:
            return NumberIn(schedule.date_field) == date.day;
        case ScheduleOnce:
            return Trim(schedule.date_field) == today;
        default:
            return false;
    }
}

// With success, that is: what failed, crashed or was cancelled is tried again at the next start. So is a job that
// repeats itself, for its result is the number of its passes, and success here is 1.
bool RanWell(const Schedule& schedule, const std::string& today) {
    return DateOf(TrimView(schedule.last_run)) == today && schedule.last_result == 1;
}

std::vector<ScheduleMark> Candidates() {
    const std::string today = TodayText();
    std::vector<ScheduleMark> candidates;
    for (std::size_t i = 0; i < settings.Schedules.size(); ++i) {
        const Schedule& schedule = settings.Schedules[i];
        if (!RunsAtStart(schedule) || !IsFor(schedule, today)) continue;
        if (schedule.only_once_per_day != 0 && RanWell(schedule, today)) continue;
        candidates.emplace_back(static_cast<std::ptrdiff_t>(i));
    }
    return candidates;
}

void ComputeAllNextRuns() {
    const auto count = static_cast<std::ptrdiff_t>(settings.Schedules.size());
    for (std::ptrdiff_t i = 0; i < count; ++i) ComputeNextRun(i);
}

// While it waited, the user may have disabled it, or saved another schedule under its name.
void Run(const ScheduleMark& mark, const char* when) {
    const Schedule* const schedule = mark.Find();
    if (schedule == nullptr || !RunsAtStart(*schedule)) return;
    RunSchedule(mark,
                {.logLines = {"Schedule '" + Trim(schedule->schedule_name) + "' started on computer startup" + when,
                              "Preparing to execute job: " + Trim(schedule->job_path)}});
}

void RunOrQueue(const ScheduleMark& mark) {
    const Schedule* const schedule = mark.Find();
    if (schedule == nullptr) return;
    if (schedule->wait_items_loaded == 0) return Run(mark, "");
    startUpRuns.StartupQueue.push_back(mark);
}

void EndWait() {
    platform::StopTimer(std::exchange(startUpRuns.cpu_usage, 0));
    startUpRuns.meter = {};
    Zavrsi();
}

// Nothing is made of half a second of which the system tells nothing.
void CpuUsageTick() {
    const auto load = platform::ProcessorLoad();
    if (!load || !startUpRuns.meter.Add(100 - *load)) return;
    EndWait();
    ComputerStartUpCPU();
}

// Names the first of the queue that is still there. False when there is none.
bool ShowFirst() {
    std::vector<ScheduleMark>& queue = startUpRuns.StartupQueue;
    while (!queue.empty() && queue.front().Index() == NoSchedule) queue.erase(queue.begin());
    if (queue.empty()) return false;
    ShowScheduleStart(queue.front().Index(), Ellipsis("waiting for startup items to finish loading"));
    return true;
}

// Without a timer there is no waiting.
void BeginWait() {
    platform::ProcessorLoad();  // the first sample is measured from here
    startUpRuns.cpu_usage = platform::StartTimer(SampleMs, CpuUsageTick);
    if (startUpRuns.cpu_usage == 0) return ComputerStartUpCPU();
    ShowFirst();
}

}  // namespace

void ComputerStartUp() {
    if (!scheduleList.filled) return MarkStartUpRunsOver();
    const std::vector<ScheduleMark> candidates = Candidates();
    ComputeAllNextRuns();
    FirstFailure failure;
    for (const ScheduleMark& mark : candidates) failure.Try([&mark] { RunOrQueue(mark); });
    failure.Try(startUpRuns.StartupQueue.empty() ? MarkStartUpRunsOver : BeginWait);
    failure.Rethrow();
}

void ComputerStartUpCPU() {
    FirstFailure failure;
    for (const ScheduleMark& mark : std::exchange(startUpRuns.StartupQueue, {})) {
        failure.Try([&mark] { Run(mark, " after startup items have loaded."); });
    }
    failure.Try(MarkStartUpRunsOver);
    failure.Rethrow();
}

// Unlike a cancelled countdown, this leaves no line in the schedule's log.
void CancelFirstStartUpRun() {
    std::vector<ScheduleMark>& queue = startUpRuns.StartupQueue;
    FirstFailure failure;
    if (!queue.empty()) {
        if (Schedule* const schedule = queue.front().Find()) {
            schedule->suppressed = 1;
            schedule->last_run = NowStamp();
            schedule->last_result = ScheduleCanceled;
        }
        queue.erase(queue.begin());
        failure.Try(SaveSettings);
    }
    if (!ShowFirst()) {
        EndWait();
        scheduleDispatch.CountdownActive = false;
        failure.Try(MarkStartUpRunsOver);
    }
    failure.Rethrow();
}
