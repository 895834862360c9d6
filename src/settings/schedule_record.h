// One standing order to run a job. The table is settings.Schedules; its order is the order of the schedule list.
// Dates and times are text: docs/job_format.md gives the widths.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

enum ScheduleType : std::int32_t { ScheduleDaily = 1, ScheduleWeekly = 2, ScheduleMonthly = 3, ScheduleOnce = 4 };

// Values of Schedule::last_result beside those of the job runner.
inline constexpr std::int32_t ScheduleRunning = -100;
inline constexpr std::int32_t ScheduleCanceled = -101;

struct Schedule {
    std::int32_t schedule_type = 0;
    std::string schedule_name = "";         // also the base name of the log
    std::string date_field = "";            // monthly: the day; one time: a date; else empty
    std::string start_time = "";            // hh:mm:ss
    std::int32_t when_computer_starts = 0;  // 1: at computer start, not at start_time
    std::int32_t wait_items_loaded = 0;     // 1: a start-up run waits until the machine has settled
    std::int32_t only_once_per_day = 0;     // 1: one start-up run a day
    std::int32_t days_of_week = 0;          // bit 0 Sunday ... bit 6 Saturday
    std::string job_path = "";
    std::int16_t enabled = 0;   // -1 active, 0 disabled
    std::string next_run = "";  // a stamp, a start-up stamp or the word for never
    std::string last_run = "";  // a stamp, or empty
    std::int32_t last_result = 0;
    std::string log_path = "";
    std::int32_t suppressed = 0;  // lives in memory only; a file always says 0
};

// Removes a record; later ones move down. With an empty table, or with one record and another index, it shows a box
// and changes nothing; any other index that does not exist is a range failure. Does not write the settings.
void DeleteSchedule(std::ptrdiff_t index);
