// Time. The tick counts milliseconds with a resolution of 1 ms (the performance counter's, one origin for all
// uses); sleeps are exact to well under a millisecond. None of these pumps.
#pragma once

#include <cstdint>
#include <string>

namespace platform {

// Microseconds since an origin that is fixed for the life of the process. Never runs backwards.
std::int64_t Microseconds();

// Milliseconds since the same origin: Microseconds() / 1000, rounded down.
std::int64_t TickCount();

// Blocks the thread for `milliseconds`; 0 or less returns at once (and gives up the rest of the time slice).
// Never returns early; late by less than 50 microseconds on an idle machine.
void Sleep(std::int64_t milliseconds);

// Blocks the thread until Microseconds() has reached `moment`. A moment that has passed returns at once.
// A run of slices laid on one row of deadlines does not add up its own lateness.
void SleepUntil(std::int64_t moment);

// The wall clock in local time.
struct LocalTime {
    int year = 0;
    int month = 0;   // 1..12
    int day = 0;     // 1..31
    int hour = 0;    // 0..23
    int minute = 0;  // 0..59
    int second = 0;  // 0..59
};
LocalTime LocalNow();

// Today's date in the short format of the user's locale (GetDateFormatA, DATE_SHORTDATE).
std::string ShortDateText();

}  // namespace platform
