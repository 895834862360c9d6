#include "scheduler/schedule_table.h"

#include <algorithm>

#include "base/runtime_failure.h"
#include "base/text.h"
#include "platform/text.h"
#include "scheduler/calendar.h"
#include "scheduler/date_text.h"
#include "settings/settings.h"

namespace {

std::string Folded(const std::string& text) {
    return platform::LowerCase(TrimView(text));
}

template <class Predicate>
std::ptrdiff_t FirstSchedule(const Predicate& matches) {
    const auto& table = settings.Schedules;
    const auto found = std::find_if(table.begin(), table.end(), matches);
    return found == table.end() ? NoSchedule : found - table.begin();
}

}  // namespace

std::ptrdiff_t FindScheduleByName(const std::string& name) {
    return FirstSchedule(
        [wanted = Folded(name)](const Schedule& schedule) { return Folded(schedule.schedule_name) == wanted; });
}

std::ptrdiff_t FindScheduleByJob(const std::string& jobPath) {
    return FirstSchedule([wanted = platform::LowerCase(jobPath)](const Schedule& schedule) {
        return Folded(schedule.job_path) == wanted;
    });
}

Schedule& ScheduleAt(std::ptrdiff_t index) {
    return CheckedAt(settings.Schedules, index, "Schedule");
}

void ComputeNextRun(std::ptrdiff_t index) {
    Schedule& schedule = ScheduleAt(index);
    schedule.next_run = NextRunOf(schedule, NowStamp());
}

ScheduleMark::ScheduleMark(std::ptrdiff_t scheduleIndex)
    : index(scheduleIndex), name(Folded(ScheduleAt(scheduleIndex).schedule_name)) {}

std::ptrdiff_t ScheduleMark::Index() const {
    const auto count = static_cast<std::ptrdiff_t>(settings.Schedules.size());
    if (index >= 0 && index < count && Folded(ScheduleAt(index).schedule_name) == name) return index;
    return index == NoSchedule ? NoSchedule : FindScheduleByName(name);
}

Schedule* ScheduleMark::Find() const {
    const std::ptrdiff_t found = Index();
    return found == NoSchedule ? nullptr : &ScheduleAt(found);
}

bool WaitsForItsTime(const Schedule& schedule) {
    return FollowsTheClock(schedule) && CanComeFromAUser(schedule);
}

bool FollowsTheClock(const Schedule& schedule) {
    return schedule.enabled != 0 && schedule.when_computer_starts == 0 && schedule.suppressed == 0;
}
