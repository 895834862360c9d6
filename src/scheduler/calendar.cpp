#include "scheduler/calendar.h"

#include <algorithm>
#include <charconv>

#include "base/product.h"
#include "base/text.h"
#include "dictionary/dictionary.h"
#include "platform/boxes.h"

namespace {

constexpr std::size_t DateLength = 10;
constexpr std::size_t TimeAt = 11;
constexpr std::size_t TimeLength = 8;
constexpr std::int32_t SecondsInDay = 86'400;
constexpr int December = 12;
constexpr int DaysOfWeek = 7;
constexpr std::int32_t AllDays = 0x7F;

std::string_view Slice(std::string_view text, std::size_t at, std::size_t length) {
    return text.size() > at ? text.substr(at, length) : std::string_view();
}

bool IsLeapYear(int year) {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

bool IsNumber(std::string_view text, int& number) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size();
}

std::string TwoDigits(int number) {
    return (number < 10 ? "0" : "") + std::to_string(number);
}

// --- SecondsBetween ---

// Of a day that the month does not have, the days left in the month are negative and make up for it.
std::int32_t SecondsLeftInYear(const StampNumbers& stamp) {
    std::int32_t days = DaysInMonth(stamp.year, stamp.month) - stamp.day;
    for (int month = std::max(stamp.month, 0) + 1; month <= December; ++month) days += DaysInMonth(stamp.year, month);
    return days * SecondsInDay + (23 - stamp.hour) * 3600 + (59 - stamp.minute) * 60 + (60 - stamp.second);
}

std::int32_t SecondsSinceStartOfYear(const StampNumbers& stamp) {
    return SecondsInYear(stamp.year) - SecondsLeftInYear(stamp);
}

// The later one first; `sign` tells which of them was asked about. What is more than a year behind is not capped,
// unless it is more than the year before.
std::int32_t SecondsFromTo(const StampNumbers& later, const StampNumbers& earlier, std::int32_t sign) {
    const int years = later.year - earlier.year;
    if (years == 0) return sign * (SecondsSinceStartOfYear(later) - SecondsSinceStartOfYear(earlier));
    if (years != 1 && years != -1) return sign * MoreThanAYear;
    return std::min(sign * (SecondsLeftInYear(earlier) + SecondsSinceStartOfYear(later)), MoreThanAYear);
}

// --- next runs ---

struct Present {
    std::string today;
    std::string time;
};

std::string Stamp(const std::string& date, const std::string& time) {
    return date + "@" + time;
}

// Tomorrow, although the computer may not have started today yet.
std::string NextDaily(const Schedule& schedule, const Present& now) {
    if (schedule.when_computer_starts != 0) return Stamp(AddDays(now.today, 1), AtComputerStart);
    return Stamp(schedule.start_time > now.time ? now.today : AddDays(now.today, 1), schedule.start_time);
}

// Days until the next day of the mask, today not counted; 0 without one.
int DaysUntil(std::int32_t mask, int today) {
    for (int days = 1; days <= DaysOfWeek; ++days) {
        if (IsDayOfWeek((today - 1 + days) % DaysOfWeek + 1, mask, true)) return days;
    }
    return 0;
}

// Unlike a daily one, a start-up schedule whose start_time is still to come today gets a plain stamp for today.
// Only what is shown depends on it: it is never started by its stamp.
std::string NextWeekly(const Schedule& schedule, const Present& now) {
    const StampNumbers date = NumbersOf(now.today);
    const int today = DanUtjednu(date.year, date.month, date.day);
    if (IsDayOfWeek(today, schedule.days_of_week, true) && schedule.start_time > now.time) {
        return Stamp(now.today, schedule.start_time);
    }
    const int days = DaysUntil(schedule.days_of_week, today);
    if (days == 0) return schedule.next_run;
    return Stamp(AddDays(now.today, days), schedule.when_computer_starts == 1 ? AtComputerStart : schedule.start_time);
}

// Not cut to the length of the month. February 31 lies three days past February 28, so the run comes on March 3; and
// since March 31 is still to come then, a schedule for the end of the month runs twice after a short one.
std::string NextMonthly(const Schedule& schedule, const Present& now) {
    const int day = NumberIn(schedule.date_field);
    StampNumbers date = NumbersOf(now.today);
    const bool stillToCome = date.day < day || (date.day == day && schedule.start_time > now.time);
    if (!stillToCome && ++date.month > December) {
        date.month = 1;
        ++date.year;
    }
    return Stamp(FormatDate(day, date.month, date.year),
                 schedule.when_computer_starts == 1 ? AtComputerStart : schedule.start_time);
}

// At computer start, its date is told even when it is over.
std::string NextOnce(const Schedule& schedule, const Present& now) {
    if (schedule.when_computer_starts != 0) return Stamp(schedule.date_field, AtComputerStart);
    const bool stillToCome = schedule.date_field + schedule.start_time > now.today + now.time;
    return stillToCome ? Stamp(schedule.date_field, schedule.start_time) : Translate("Never");
}

std::string NextByType(const Schedule& schedule, const Present& now) {
    switch (schedule.schedule_type) {
        case ScheduleDaily:
            return NextDaily(schedule, now);
        case ScheduleWeekly:
            return NextWeekly(schedule, now);
        case ScheduleMonthly:
            return NextMonthly(schedule, now);
        case ScheduleOnce:
            return NextOnce(schedule, now);
        default:
            return schedule.next_run;
    }
}

// --- what a user can have made ---

bool IsWithin(int value, int lowest, int highest) {
    return value >= lowest && value <= highest;
}

bool IsTimeText(const std::string& time) {
    const StampNumbers numbers = NumbersOf(std::string(TimeAt, ' ') + time);
    return time == TwoDigits(numbers.hour) + ":" + TwoDigits(numbers.minute) + ":" + TwoDigits(numbers.second) &&
           IsWithin(numbers.hour, 0, 23) && IsWithin(numbers.minute, 0, 59) && IsWithin(numbers.second, 0, 59);
}

bool IsDateText(const std::string& date) {
    const StampNumbers numbers = NumbersOf(date);
    return date == FormatDate(numbers.day, numbers.month, numbers.year) &&
           IsWithin(numbers.day, 1, DaysInMonth(numbers.year, numbers.month));
}

bool HasDays(const Schedule& schedule) {
    switch (schedule.schedule_type) {
        case ScheduleDaily:
            return true;
        case ScheduleWeekly:
            return (schedule.days_of_week & AllDays) != 0;
        case ScheduleMonthly:
            return IsWithin(NumberIn(schedule.date_field), 1, 31);
        case ScheduleOnce:
            return IsDateText(schedule.date_field);
        default:
            return false;
    }
}

}  // namespace

std::string DateOf(std::string_view stamp) {
    return std::string(Slice(stamp, 0, DateLength));
}

std::string TimeOf(std::string_view stamp) {
    return std::string(Slice(stamp, TimeAt, TimeLength));
}

StampNumbers NumbersOf(std::string_view stamp) {
    const auto number = [stamp](std::size_t at, std::size_t length) { return NumberIn(Slice(stamp, at, length)); };
    return {number(0, 4), number(5, 2), number(8, 2), number(11, 2), number(14, 2), number(17, 2)};
}

int NumberIn(std::string_view text) {
    int number = 0;
    if (IsNumber(text, number) || IsNumber(TrimView(text), number)) return number;
    return 0;
}

std::string FormatDate(int day, int month, int year) {
    return std::to_string(year) + "-" + TwoDigits(month) + "-" + TwoDigits(day);
}

int DaysInMonth(int year, int month) {
    switch (month) {
        case 2:
            return IsLeapYear(year) ? 29 : 28;
        case 4:
        case 6:
        case 9:
        case 11:
            return 30;
        default:
            return IsWithin(month, 1, December) ? 31 : 0;
    }
}

std::int32_t SecondsInYear(int year) {
    return (IsLeapYear(year) ? 366 : 365) * SecondsInDay;
}

std::string AddDays(const std::string& date, int days) {
    constexpr int tooMany = 28;  // one month is rolled over, and no second one
    if (days >= tooMany) {
        platform::ShowBox("Previse dana za dodati!", ProductName);
        return "";
    }
    StampNumbers sum = NumbersOf(date);
    sum.day += days;
    const int length = DaysInMonth(sum.year, sum.month);
    if (sum.day > length) {
        sum.day -= length;
        if (++sum.month > December) {
            sum.month = 1;
            ++sum.year;
        }
    }
    return FormatDate(sum.day, sum.month, sum.year);
}

// Zeller's congruence, in which January and February are the last months of the year before. It counts from Saturday.
int DanUtjednu(int year, int month, int day) {
    const bool early = month < 3;
    const int y = early ? year - 1 : year;
    const int m = early ? month + December : month;
    const int fromSaturday = (day + 13 * (m + 1) / 5 + y + y / 4 - y / 100 + y / 400) % DaysOfWeek;
    return (fromSaturday + DaysOfWeek - 1) % DaysOfWeek + 1;
}

bool IsDayOfWeek(std::int32_t value, std::int32_t mask, bool valueIsDayNumber) {
    if (!valueIsDayNumber) return (mask & value) != 0;
    return IsWithin(value, 1, DaysOfWeek) && (mask & (1 << (value - 1))) != 0;
}

std::int32_t SecondsBetween(std::string_view a, std::string_view b) {
    return b > a ? SecondsFromTo(NumbersOf(b), NumbersOf(a), -1) : SecondsFromTo(NumbersOf(a), NumbersOf(b), 1);
}

std::string NextRunOf(const Schedule& schedule, const std::string& now) {
    return NextByType(schedule, {DateOf(now), TimeOf(now)}).substr(0, StampLength);
}

bool CanComeFromAUser(const Schedule& schedule) {
    return IsTimeText(schedule.start_time) && HasDays(schedule);
}
