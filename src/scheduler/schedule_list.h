// The schedules as the start of the program meets them. The settings keep the records; as yet none of them is shown or
// run, and of what is told here only the flag is real.
#pragma once

// The page on which a job gets its schedules.
inline constexpr bool SchedulePageExists = false;

struct ScheduleDispatch {
    bool DispatchEnabled = false;  // false until the runs that belong to the computer's start are over
};
extern ScheduleDispatch scheduleDispatch;

// FillScheduleList: rebuilds the list on the schedule page and computes when each schedule runs next.
void FillScheduleList();

// ComputerStartUp: runs the schedules marked for the computer's start, those that wait for the machine to settle after
// the others. DispatchEnabled becomes true when the last of them is over.
void PrepareStartUpSchedules();

// There are no start-up runs in this process, or no more of them.
void MarkStartUpRunsOver();
