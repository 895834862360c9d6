// The texts of a row in the list of schedules: "Backup; Job: Backup files", "Weekly; on: Mon,Fri at: 12:00:00".
#pragma once

#include <array>
#include <string>

#include "settings/schedule_record.h"

// Sunday to Saturday, as on the page's boxes option_day(1) to option_day(7).
std::array<std::string, 7> TranslatedDays();

// The words are looked up once for all rows.
struct ScheduleWords {
    std::string job;
    std::string at;
    std::string whenComputerStarts;
    std::array<std::string, 4> types;
    std::string on;
    std::string onLabel;
    std::string day;
    std::string ofEveryMonth;
    std::array<std::string, 7> days;
};
ScheduleWords TranslatedScheduleWords();

std::string ScheduleBigText(const ScheduleWords& words, const Schedule& schedule);
std::string ScheduleSmallText(const ScheduleWords& words, const Schedule& schedule);
