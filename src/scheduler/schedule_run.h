// One run of a schedule, by the clock or at the computer's start, and the account that is kept of it.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "scheduler/schedule_table.h"

struct RunPreparation {
    std::function<void()> clearTheWay = {};  // when the account says that it runs
    std::vector<std::string> logLines = {};  // the head of the log; what the log's buffer holds when there are none
};

// Runs the job of the schedule, unattended and logged. The settings file tells of it before, with the moment as
// last_run and ScheduleRunning as last_result, which is what a crash leaves there; and after it, with the result of the
// job runner and, for a schedule of the clock, the next run. Nothing happens when the schedule is gone. Pumps.
//
// A failure of the file before the run does not keep the job from running. The first failure of all is thrown in the
// end; one that comes out of the run leaves ScheduleRunning, as a crash does.
void RunSchedule(const ScheduleMark& mark, const RunPreparation& preparation);
