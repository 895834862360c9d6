// The schedule page: the view new_schedule, on which a schedule is built for a job, and which of the two views stands
// in front. The list of schedules has rules of its own (schedule_list.h). Every change of what is shown here ends in
// schedule_page_view::Show.
//
// Saving asks and tells, so it pumps.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "platform/timers.h"

// The rows of Combo1: "Daily", "Weekly", "Monthly", "One time only!".
inline constexpr int ScheduleTypeCount = 4;
std::string NameOfType(int type);

// One panel for each type, in the order of Combo1.
struct SchedulePanel {
    std::string start_time = "12:00:00";
    bool whencomp = false;  // when the computer starts, and not at start_time
    bool items_loaded = false;
    bool only_once = false;

    // The boxes are for the start of the computer, the time picker is for the clock.
    bool BoxesEnabled() const { return whencomp; }
    bool TimeEnabled() const { return !whencomp; }
};

inline constexpr int NoType = -1;

// Controls by their own names; of a frame, whether it is visible; of a button, whether it can be pressed.
struct SchedulePage {
    bool old_schedule = false;  // the list is in front, else new_schedule

    std::vector<std::string> jobs;  // the rows of Lista_Schedule
    int Lista_Schedule = -1;        // the selected one
    bool perform_this_job = false;
    int Combo1 = NoType;    // the type, less 1
    int schedule = NoType;  // the panel in front; NoType is the blank one, schedule(10)
    std::array<SchedulePanel, ScheduleTypeCount> panels;
    std::array<bool, 7> option_day{};  // Sunday to Saturday
    int monthly_day = 1;
    std::string once_date;
    bool save_this_schedule_as = false;
    std::string schedule_save_as;
    bool schedule_save_changes = false;

    platform::TimerId will_start_in_timer = 0;
};
extern SchedulePage schedulePage;

// PrirediSchedules ("prepare the schedules"): the defaults of the panels; once, at the start.
void PrirediSchedules();

// The job chooser, filled with the list of jobs.
void ClearJobsToSchedule();
void AddJobToSchedule(const std::string& name);

// The views. Option4 brings the list to the front and keeps the upcoming area up to date from then on.
void Option4();
void Option11();

// What the user chooses on new_schedule.
void ChooseJobToSchedule(int row);  // Lista_Schedule; -1 for none
void ChooseType(int type);          // Combo1
void ChooseWhenToStart(bool whencomp);
void SetStartTime(const std::string& time);
void ClickItemsLoaded(bool ticked);
void ClickOnlyOnce(bool ticked);
void ClickDay(int day, bool ticked);  // option_day(1), Sunday, to option_day(7)
void SetMonthlyDay(int day);
void ChangeOnceDate(const std::string& date);  // a date before today shows a box, and is no reason to save
void TypeScheduleName(const std::string& name);

// schedule_save_changes: builds a schedule of what stands on the page, in the place of the one of its name when the
// user wants that, and writes the settings. What is refused is told in a box. A file failure when the settings cannot
// be written; the table has the schedule all the same.
void SaveScheduleChanges();

// SaveSchedule: the same without questions, into the record `index`; -1 for a new one, and it is its place then.
void SaveSchedule(std::ptrdiff_t& index);

// EditSchedule: the page as it was when the schedule was saved, in front.
void EditSchedule(std::ptrdiff_t index);

// The buttons that come to it: Menu_Schedule_Edit for the selected row of the list, Command6 for the upcoming schedule.
void Menu_Schedule_Edit();
void ScheduleCommand6();

// The job page's command: about to add a schedule for this job.
void ScheduleJob(const std::string& jobName);

// The sum of the bits of the ticked days: 1 Sunday, 2 Monday, 4 Tuesday, ...
int DaysOfWeekZbroj();
