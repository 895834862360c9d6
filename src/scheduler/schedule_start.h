// schedule_start_form: warns the user that a job is about to take the mouse and the keyboard, and lets him cancel it.
// It stands in one of two modes: in the last minute before a run the dispatch counts down in it, and while the machine
// is still starting (DispatchEnabled is false) it names the first of the runs that wait for that.
#pragma once

#include <cstddef>
#include <string>

#include "scheduler/schedule_table.h"

struct ScheduleStartForm {
    bool shown = false;
    ScheduleMark schedule;  // the one it speaks for
};
extern ScheduleStartForm schedule_start_form;

// Shows the form for a schedule, or lets the one that is shown speak for another.
void ShowScheduleStart(std::ptrdiff_t index, const std::string& status);

// Zavrsi ("finish"): the form fades away. Sleeps for a quarter of a second and does not pump.
void Zavrsi();

// The button Command1. The schedule that the form speaks for keeps silent for as long as the process lives:
// `suppressed` is set, and the run counts as one at its planned moment, with the result ScheduleCanceled. Nothing
// happens for a schedule that was deleted meanwhile. In the countdown, the log of the schedule tells of it, and the
// form stays until the next tick; in the wait for the machine, each press cancels one run. A file failure when the
// settings or the log cannot be written; it is cancelled all the same.
void CancelStart();
