// The schedules that run when the computer starts. Those that wait until the machine's own start-up items have loaded
// wait in a queue until the processor is idle, for as long as that takes; the others run at once. The dispatch begins
// when the last of them is over.
//
// Runs pump. A failure of one of them, or of the settings file, does not keep the others from running; the first one is
// thrown in the end.
#pragma once

#include <vector>

#include "platform/timers.h"
#include "scheduler/idle_meter.h"
#include "scheduler/schedule_table.h"

struct StartUpRuns {
    std::vector<ScheduleMark> StartupQueue;
    IdleMeter meter;
    platform::TimerId cpu_usage = 0;  // runs while they wait
};
extern StartUpRuns startUpRuns;

// Runs what is meant for this start, or puts it into the queue; once, when the program was started with the computer.
void ComputerStartUp();

// The machine has settled: runs the queue.
void ComputerStartUpCPU();

// Takes the first run out of the queue: the user has cancelled it. With the last one the wait is over.
void CancelFirstStartUpRun();
