// The calendar of the schedules: when a schedule runs next, and how far away a stamp is. All of it works on the texts
// of date_text.h and is handed the present moment, so that it needs no clock. Beside plain stamps there are
//
//   start-up stamp   2026-11-16@whencomp   the date on which a schedule will next run at computer start
//   never mark       "Never" through the dictionary
//
// Dates are not validated: year, month and day are what stands in their places, and a place without a number reads as
// 0. So a stamp may name a day that the month does not have, or come from a damaged file, and everything here has an
// answer for it. Only AddDays shows a box, for a call that nobody makes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "settings/schedule_record.h"

inline constexpr std::int32_t MoreThanAYear = 31'536'001;  // from SecondsBetween, with either sign
inline constexpr std::size_t StampLength = 19;
inline constexpr const char* AtComputerStart = "whencomp";

// The texts in a stamp; of one that is too short, what there is.
std::string DateOf(std::string_view stamp);
std::string TimeOf(std::string_view stamp);

// The numbers in a stamp, or in a date alone.
struct StampNumbers {
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
};
StampNumbers NumbersOf(std::string_view stamp);

// The number that the text is, without the blanks around it; 0 when it is none.
int NumberIn(std::string_view text);

// The year is written as it stands.
std::string FormatDate(int day, int month, int year);

int DaysInMonth(int year, int month);  // 0 for a month outside 1 to 12
std::int32_t SecondsInYear(int year);

// The date `days` later, fewer than 28; else a box, and an empty text.
std::string AddDays(const std::string& date, int days);

// DanUtjednu ("day in the week"): 1 Sunday ... 7 Saturday.
int DanUtjednu(int year, int month, int day);

// Whether a bit is set in `mask`: that of the day 1 to 7, or `value` itself.
bool IsDayOfWeek(std::int32_t value, std::int32_t mask, bool valueIsDayNumber);

// Seconds from stamp `b` to stamp `a`, negative when `a` lies behind. MoreThanAYear for what lies more than 365 days
// ahead, and with its sign for years that are not the same and not neighbours. So a never mark is more than a year
// ahead, and an empty stamp more than a year behind.
std::int32_t SecondsBetween(std::string_view a, std::string_view b);

// next_run of the schedule, as seen from the stamp `now`. Of an unknown type, or of a weekly one without a day, it is
// what the schedule has already. What is set for exactly now is not to come any more.
std::string NextRunOf(const Schedule& schedule, const std::string& now);

// False for what no user can have made: an unknown type, a time or a day that does not exist. Such a record comes from
// a damaged file, and its next_run says nothing.
bool CanComeFromAUser(const Schedule& schedule);
