// What the upcoming area of the schedule page shows: the next schedule of today, and how long it is until then. The
// question at the exit of the program and the exit warning ask here too.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "scheduler/schedule_table.h"

struct UpcomingArea {
    bool upcoming_schedule = false;  // else no_scheduled_items
    std::string upcoming_schedule12;
    std::string will_start_in;
    std::ptrdiff_t NextScheduleIndex = NoSchedule;
    friend bool operator==(const UpcomingArea&, const UpcomingArea&) = default;
};
extern UpcomingArea upcomingArea;

// Refreshes the area and returns the seconds to the schedule of NextScheduleIndex; 0 without one. Start-up schedules
// and those of other days are none. Does nothing before the list was filled.
std::int32_t Upcoming_Schedules();

// "1 hours, 0 minutes, 5 seconds": the words of the plural for all numbers.
std::string TimeUntil(std::int32_t seconds);
