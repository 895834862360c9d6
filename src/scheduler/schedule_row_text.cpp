#include "scheduler/schedule_row_text.h"

#include <cstddef>

#include "base/text.h"
#include "dictionary/dictionary.h"
#include "dictionary/sentences.h"
#include "scheduler/calendar.h"

namespace {

std::string DaysOf(const ScheduleWords& words, std::int32_t mask) {
    std::string days;
    for (std::int32_t day = 1; day <= 7; ++day) {
        if (!IsDayOfWeek(day, mask, true)) continue;
        if (!days.empty()) days += ",";
        days += words.days[static_cast<std::size_t>(day - 1)];
    }
    return days;
}

std::string StartOf(const ScheduleWords& words, const Schedule& schedule) {
    const bool atStart = schedule.when_computer_starts >= 1;
    return " " + words.at + " " + (atStart ? words.whenComputerStarts : schedule.start_time);
}

}  // namespace

std::array<std::string, 7> TranslatedDays() {
    return {Translate("Sun"), Translate("Mon"), Translate("Tue"), Translate("Wed"),
            Translate("Thu"), Translate("Fri"), Translate("Sat")};
}

ScheduleWords TranslatedScheduleWords() {
    return {.job = Label("Job"),
            .at = Label("at"),
            .whenComputerStarts = Translate("when computer starts"),
            .types = {Translate("Daily"), Translate("Weekly"), Translate("Monthly"), Translate("One time only")},
            .on = Translate("on"),
            .onLabel = Label("on"),
            .day = Translate("day"),
            .ofEveryMonth = Translate("of every month"),
            .days = TranslatedDays()};
}

std::string ScheduleBigText(const ScheduleWords& words, const Schedule& schedule) {
    return Trim(schedule.schedule_name) + "; " + words.job + " " + BaseName(TrimView(schedule.job_path));
}

// Of a one-time schedule, the word "on" stands twice.
std::string ScheduleSmallText(const ScheduleWords& words, const Schedule& schedule) {
    const std::string start = StartOf(words, schedule);
    switch (schedule.schedule_type) {
        case ScheduleDaily:
            return words.types[0] + start;
        case ScheduleWeekly:
            return words.types[1] + "; " + words.onLabel + " " + DaysOf(words, schedule.days_of_week) + start;
        case ScheduleMonthly:
            return words.types[2] + " ; " + words.on + " " + words.day + " " + schedule.date_field + ". " +
                   words.ofEveryMonth + start;
        case ScheduleOnce:
            return words.types[3] + ", " + words.onLabel + "  " + words.on + " " + schedule.date_field + start;
        default:
            return "";
    }
}
