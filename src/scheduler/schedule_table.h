// The table of schedules, settings.Schedules, as the scheduler goes about it. A schedule's index is its place in the
// table, in the list on the page and everywhere else; what outlives a pump keeps a ScheduleMark instead. Nothing here
// pumps or writes the settings.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "settings/schedule_record.h"

inline constexpr std::ptrdiff_t NoSchedule = -1;

// The first schedule of this name, or of this job (a full path), letter case ignored; else NoSchedule.
std::ptrdiff_t FindScheduleByName(const std::string& name);
std::ptrdiff_t FindScheduleByJob(const std::string& jobPath);

// A range failure for an index that does not exist.
Schedule& ScheduleAt(std::ptrdiff_t index);

// Sets next_run, as seen from now.
void ComputeNextRun(std::ptrdiff_t index);

// A schedule that is found again after others have been deleted or saved anew: at its place, or else by its name.
class ScheduleMark {
public:
    ScheduleMark() = default;
    explicit ScheduleMark(std::ptrdiff_t scheduleIndex);

    std::ptrdiff_t Index() const;  // NoSchedule when it is gone
    Schedule* Find() const;        // nullptr when it is gone; valid until the table changes

private:
    std::ptrdiff_t index = NoSchedule;
    std::string name;
};

// A schedule and how far away its next run is, in seconds; at first none, and farther away than any stamp.
struct ScheduleAhead {
    std::ptrdiff_t index = NoSchedule;
    std::int32_t seconds = 71'536'002;
};

// Whether the clock starts it: neither disabled nor cancelled, and not meant for the computer's start. What no user can
// have made is not started by anything.
bool WaitsForItsTime(const Schedule& schedule);

// The same without a look at what it says, which is the dearest of these questions.
bool FollowsTheClock(const Schedule& schedule);
