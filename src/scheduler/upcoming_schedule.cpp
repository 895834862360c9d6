#include "scheduler/upcoming_schedule.h"

#include "base/text.h"
#include "dictionary/dictionary.h"
#include "scheduler/calendar.h"
#include "scheduler/date_text.h"
#include "scheduler/schedule_list.h"
#include "scheduler/schedule_page_view.h"
#include "settings/settings.h"

UpcomingArea upcomingArea;

namespace {

constexpr std::int32_t ADay = 86'400;

// The number of the day alone is compared; a stamp of another month is dropped for its distance afterwards. At exactly
// this second, a schedule is no more to come.
ScheduleAhead Nearest(const std::string& now) {
    const int today = NumbersOf(now).day;
    ScheduleAhead best;
    for (std::size_t i = 0; i < settings.Schedules.size(); ++i) {
        const Schedule& schedule = settings.Schedules[i];
        const std::string_view next = TrimView(schedule.next_run);
        if (!WaitsForItsTime(schedule) || next == "never" || NumbersOf(next).day != today) continue;
        const std::int32_t seconds = SecondsBetween(next, now);
        if (seconds >= 1 && seconds < best.seconds) best = {static_cast<std::ptrdiff_t>(i), seconds};
    }
    return best;
}

}  // namespace

std::string TimeUntil(std::int32_t seconds) {
    if (seconds == MoreThanAYear) return Translate("more than a year");
    const std::int32_t days = seconds / ADay;
    const std::int32_t hours = seconds / 3600 % 24;
    const std::int32_t minutes = seconds / 60 % 60;
    std::string text;
    if (days > 0) text += std::to_string(days) + " " + Translate("days") + ", ";
    if (days > 0 || hours > 0) text += std::to_string(hours) + " " + Translate("hours") + ", ";
    if (days > 0 || hours > 0 || minutes > 0) text += std::to_string(minutes) + " " + Translate("minutes") + ", ";
    return text + std::to_string(seconds % 60) + " " + Translate("seconds");
}

std::int32_t Upcoming_Schedules() {
    if (!scheduleList.filled) return 0;
    const ScheduleAhead best = Nearest(NowStamp());
    const bool today = best.index != NoSchedule && best.seconds <= ADay;
    UpcomingArea area;
    if (today) area = {true, Trim(ScheduleAt(best.index).schedule_name), TimeUntil(best.seconds), best.index};
    if (area != upcomingArea) {
        upcomingArea = area;
        schedule_page_view::Show();
    }
    return today ? best.seconds : 0;
}
