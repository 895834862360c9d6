#include "scheduler/schedule_dispatch.h"

#include <cstddef>
#include <cstdint>
#include <string>

#include "base/product.h"
#include "base/runtime_failure.h"
#include "base/text.h"
#include "dictionary/dictionary.h"
#include "dictionary/sentences.h"
#include "replay/replay_log.h"
#include "scheduler/calendar.h"
#include "scheduler/date_text.h"
#include "scheduler/schedule_list.h"
#include "scheduler/schedule_run.h"
#include "scheduler/schedule_start.h"
#include "scheduler/schedule_start_view.h"
#include "scheduler/schedule_table.h"
#include "settings/settings.h"

ScheduleDispatch scheduleDispatch;

namespace {

constexpr int FirstIntervalMs = 500;
constexpr int IdleIntervalMs = 5000;
constexpr int NearIntervalMs = 250;

constexpr std::int32_t NearFrom = 64;  // seconds before the run, from here on fine steps
constexpr std::int32_t CountdownFrom = 59;
constexpr std::int32_t LatestStart = -999;

// The most overdue one wins over all that is to come; of two at the same moment, the upper one in the list. What a
// schedule is, is asked last: it is the dearest question, and few come so far.
ScheduleAhead MostUrgent(const std::string& now) {
    ScheduleAhead next;
    for (std::size_t i = 0; i < settings.Schedules.size(); ++i) {
        const Schedule& schedule = settings.Schedules[i];
        if (!FollowsTheClock(schedule)) continue;
        const std::int32_t seconds = SecondsBetween(schedule.next_run, now);
        if (seconds < next.seconds && CanComeFromAUser(schedule)) next = {static_cast<std::ptrdiff_t>(i), seconds};
    }
    return next;
}

// The old timer goes when the new one stands: without any, no schedule would ever run again.
void SetInterval(int ms) {
    if (scheduleDispatch.interval == ms) return;
    const platform::TimerId timer = platform::StartTimer(ms, DispatchTick);
    if (timer == 0) return;
    platform::StopTimer(scheduleDispatch.sat);
    scheduleDispatch.sat = timer;
    scheduleDispatch.interval = ms;
}

void EndCountdown() {
    if (!scheduleDispatch.CountdownActive) return;
    scheduleDispatch.CountdownActive = false;
    Zavrsi();
}

std::string TimeLeft(std::int32_t seconds) {
    return Translate("will start in") + " " + std::to_string(seconds) + " ";
}

// Also when the one before was cancelled and this one follows within the minute: a countdown of its own.
void BeginCountdown(const ScheduleAhead& next) {
    ShowScheduleStart(next.index, TimeLeft(next.seconds) + Translate("seconds"));
    scheduleDispatch.CountdownActive = true;
    replayLog.LogBuffer.clear();
    LogLine(std::string(ProductName) + " is preparing to execute schedule: '" +
            Trim(ScheduleAt(next.index).schedule_name) + "' ...");
}

void CountDown(const ScheduleAhead& next) {
    if (!scheduleDispatch.CountdownActive || schedule_start_form.schedule.Index() != next.index) {
        return BeginCountdown(next);
    }
    schedule_start_view::SetStatus(TimeLeft(next.seconds) + Ellipsis("seconds"));
}

class RunUnderWay {
public:
    RunUnderWay() { scheduleDispatch.runUnderWay = true; }
    ~RunUnderWay() { scheduleDispatch.runUnderWay = false; }
    RunUnderWay(const RunUnderWay&) = delete;
    RunUnderWay& operator=(const RunUnderWay&) = delete;
};

}  // namespace

void MarkStartUpRunsOver() {
    scheduleDispatch.DispatchEnabled = true;
    if (!scheduleList.filled) return;
    SetInterval(FirstIntervalMs);
    if (scheduleDispatch.sat == 0) throw RuntimeFailure(FailureKind::Memory, "Windows has no timer left.");
}

void DispatchTick() {
    if (!scheduleDispatch.DispatchEnabled || scheduleDispatch.runUnderWay) return;
    const ScheduleAhead next = MostUrgent(NowStamp());
    if (next.index == NoSchedule || next.seconds > NearFrom || next.seconds < LatestStart) {
        SetInterval(IdleIntervalMs);
        return EndCountdown();
    }
    SetInterval(NearIntervalMs);
    // A countdown that was cancelled stays as it is for these seconds, until the next one takes it over.
    if (next.seconds > CountdownFrom) return;
    CountDown(next);
    if (next.seconds > 0) return;
    const RunUnderWay underWay;
    RunSchedule(ScheduleMark(next.index), {.clearTheWay = EndCountdown});
}
