// The dispatch: on the timer `sat` it finds the schedule that is due next, opens the countdown for it in its last
// minute, and runs its job when the moment has come. It polls the clock, so clocks that are set and machines that sleep
// need no care: what is late by up to 999 seconds still runs, once, and what is later does not.
//
// What is later than that blocks: it stays the most urgent schedule, and none runs until its next_run is computed anew,
// by a fill of the list, a click on its row or the next start. Nothing is caught up.
//
// Nothing is dispatched before the list of schedules was filled (schedule_list.h), which computes each next_run.
#pragma once

#include "platform/timers.h"

struct ScheduleDispatch {
    bool DispatchEnabled = false;  // false until the runs that belong to the computer's start are over
    bool CountdownActive = false;  // schedule_start_form is open for a schedule of the clock
    bool runUnderWay = false;      // a tick that comes from within the run does nothing
    platform::TimerId sat = 0;
    int interval = 0;  // of sat, in ms
};
extern ScheduleDispatch scheduleDispatch;

// There are no start-up runs in this process, or no more of them: the dispatch begins. A memory failure when the system
// has no timer for it.
void MarkStartUpRunsOver();

// The tick of `sat`. A run lasts as long as its tick, and pumps. A failure of the run, or of the settings file, is
// thrown when everything is put right.
void DispatchTick();
