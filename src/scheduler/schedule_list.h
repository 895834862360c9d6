// schedule_lista, the list of schedules on the schedule page, with the info area of the selected one and the commands
// on a row. Row N is settings.Schedules[N].
//
// What runs a job, asks or tells pumps. A file failure when the settings cannot be written; list and table have the
// change all the same.
#pragma once

#include <string>

#include "widgets/list_model.h"

// The selected schedule; all empty without one.
struct ScheduleInfo {
    bool last_run_info = false;  // with Label29, Label27 and one of the two links to the log
    bool last_run_info_never = false;
    std::string Label29;  // the date of the last run
    std::string Label27;  // and its time
    bool status_completed = false;
    bool status_failed = false;
    std::string next_run;
};

struct ScheduleList {
    ListModel schedule_lista;
    ScheduleInfo info;
    bool filled = false;
};
extern ScheduleList scheduleList;

// Connects the list with its rules; once, before it is filled.
void LoadScheduleList();

// FillScheduleList: rebuilds the list, without a selection, and computes when each schedule runs next.
void FillScheduleList();

// The rows and the info area in the language in force, once that has changed; nothing else of them does.
void RewordScheduleList();

// The commands on the selected row, of its small buttons, the menu and the links; nothing without one.
void EnableOrDisableSchedule();
void Menu_Schedule_Delete();
void Menu_Schedule_Run();  // at once and attended: no log, and no account of it
void ViewScheduleLog();    // status_completed and status_failed, with Notepad
