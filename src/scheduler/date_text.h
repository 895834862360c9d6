// Dates and times as the program keeps them: as text whose alphabetical order is the order of time.
//
//   date text   2026-11-15            ten characters
//   time text   05:12:44              eight characters, 24-hour clock
//   stamp       2026-11-15@05:12:44   nineteen characters
#pragma once

#include <string>

#include "platform/clock.h"

std::string DateText(const platform::LocalTime& moment);
std::string TimeText(const platform::LocalTime& moment);
std::string StampText(const platform::LocalTime& moment);

std::string TodayText();
std::string NowText();

// Today and now from one reading of the clock: of two, one may lie before midnight and the other behind it.
std::string NowStamp();
