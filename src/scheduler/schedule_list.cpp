#include "scheduler/schedule_list.h"

ScheduleDispatch scheduleDispatch;

void FillScheduleList() {}

void PrepareStartUpSchedules() {
    MarkStartUpRunsOver();  // nothing runs at the computer's start yet, so nothing is to be waited for
}

void MarkStartUpRunsOver() {
    scheduleDispatch.DispatchEnabled = true;
}
