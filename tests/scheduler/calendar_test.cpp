// The calendar: stated cases as tables, and every day of 1999 to 2105 against the calendar of the standard library.
#include "scheduler/calendar.h"

#include <chrono>

#include "dictionary/dictionary.h"
#include "scheduler/date_text.h"
#include "support/story.h"

namespace {

using namespace std::chrono;

constexpr const char* Noon = "12:00:00";
constexpr local_days FirstDay{year(1999) / January / 1};
constexpr local_days LastDay{year(2105) / December / 31};

struct Numbers {
    explicit Numbers(local_days moment) : Numbers(year_month_day(moment)) {}
    explicit Numbers(year_month_day date)
        : y(static_cast<int>(date.year())),
          m(static_cast<int>(static_cast<unsigned>(date.month()))),
          d(static_cast<int>(static_cast<unsigned>(date.day()))) {}
    int y, m, d;
};

// A day, or a day that its month does not have.
template <class Date>
std::string Text(Date date) {
    const Numbers numbers(date);
    return DateText({numbers.y, numbers.m, numbers.d});
}

std::string Stamp(local_seconds moment) {
    const Numbers date(floor<days>(moment));
    const auto second = static_cast<int>((moment - floor<days>(moment)).count());
    return StampText({date.y, date.m, date.d, second / 3600, second / 60 % 60, second % 60});
}

Schedule Make(ScheduleType type, const std::string& date = "", std::int32_t days = 0, const std::string& time = Noon,
              int atStart = 0) {
    return {.schedule_type = type,
            .date_field = date,
            .start_time = time,
            .when_computer_starts = atStart,
            .days_of_week = days,
            .next_run = "as before"};
}
Schedule Daily(const std::string& time = Noon, int atStart = 0) {
    return Make(ScheduleDaily, "", 0, time, atStart);
}
Schedule Weekly(std::int32_t days, int atStart = 0) {
    return Make(ScheduleWeekly, "", days, Noon, atStart);
}
Schedule Monthly(const std::string& day, int atStart = 0) {
    return Make(ScheduleMonthly, day, 0, Noon, atStart);
}
Schedule Once(const std::string& date, int atStart = 0) {
    return Make(ScheduleOnce, date, 0, Noon, atStart);
}

TEST(NextRun, OfTheStatedCases) {
    constexpr std::int32_t tuesday = 4;  // 2004-06-15 is one
    const struct {
        Schedule schedule;
        std::string now;
        std::string next;
    } cases[] = {
        {Daily("14:30:00"), "2026-11-15@14:30:00", "2026-11-16@14:30:00"},
        {Daily("14:30:00"), "2026-11-15@14:29:59", "2026-11-15@14:30:00"},
        {Daily("23:59:59", 1), "2024-02-28@00:00:00", "2024-02-29@whencomp"},
        {Daily(Noon, 7), "2023-02-28@13:00:00", "2023-03-01@whencomp"},
        {Weekly(tuesday), "2004-06-15@12:00:00", "2004-06-22@12:00:00"},
        {Weekly(tuesday), "2004-12-28@13:00:00", "2005-01-04@12:00:00"},
        {Weekly(tuesday, 1), "2004-06-15@11:59:59", "2004-06-15@12:00:00"},  // meant, unlike a daily one
        {Weekly(tuesday, 1), "2004-06-15@12:00:00", "2004-06-22@whencomp"},
        {Weekly(tuesday, 2), "2004-06-15@12:00:00", "2004-06-22@12:00:00"},
        {Weekly(0), "2004-06-15@11:00:00", "as before"},
        {Weekly(~0x7F), "2004-06-15@11:00:00", "as before"},
        {Monthly("31"), "2026-04-15@13:00:00", "2026-04-31@12:00:00"},
        {Monthly("31"), "2026-03-03@12:00:00", "2026-03-31@12:00:00"},
        {Monthly("31"), "2026-12-31@12:00:00", "2027-01-31@12:00:00"},
        {Monthly("5 ", 1), "2026-11-15@00:00:00", "2026-12-05@whencomp"},
        {Once("2026-11-15"), "2026-11-15@12:00:00", "Never"},
        {Once("2020-01-01", 1), "2026-11-15@12:00:00", "2020-01-01@whencomp"},
        {Make(ScheduleType(5)), "2026-11-15@11:00:00", "as before"},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(NextRunOf(each.schedule, each.now), each.next) << each.schedule.schedule_type << " at " << each.now;
    }
    SetLanguage(LanguageFrench);
    EXPECT_EQ(NextRunOf(Once("2026-11-15"), "2026-11-15@12:00:00"), "Jamais");
    SetLanguage(LanguageEnglish);
}

// Before noon and at noon of each day.
TEST(NextRun, OfEveryDayIsThatOfTheCalendar) {
    for (local_days today = FirstDay; today <= LastDay; today += days(1)) {
        const auto weekdayNumber = static_cast<int>(weekday(today).c_encoding());
        const year_month_day date(today);
        for (const int toCome : {1, 0}) {
            const std::string now = Text(today) + (toCome ? "@09:00:00" : "@12:00:00");
            SCOPED_TRACE(now);
            const std::string tomorrow = Text(today + days(1));
            ASSERT_EQ(NextRunOf(Daily(), now), (toCome ? Text(today) : tomorrow) + "@12:00:00");
            ASSERT_EQ(NextRunOf(Daily(Noon, 1), now), tomorrow + "@whencomp");
            ASSERT_EQ(NextRunOf(Once(Text(today)), now), toCome ? Text(today) + "@12:00:00" : "Never");
            for (int wanted = 0; wanted < 7; ++wanted) {
                const int ahead = (wanted - weekdayNumber + 7) % 7;
                const std::string next = Text(today + days(ahead == 0 && !toCome ? 7 : ahead));
                ASSERT_EQ(NextRunOf(Weekly(1 << wanted), now), next + "@12:00:00") << wanted;
            }
            for (const int wanted : {1, 15, 28, 29, 30, 31}) {
                const int day = Numbers(date).d;
                const bool thisMonth = day < wanted || (day == wanted && toCome);
                const year_month month = date.year() / date.month() + months(thisMonth ? 0 : 1);
                const std::string next = NextRunOf(Monthly(std::to_string(wanted)), now);
                ASSERT_EQ(next, Text(month / wanted) + "@12:00:00");
                // A day too many is one in the month after.
                const auto ahead = local_seconds(local_days(month / 1) + days(wanted - 1)) - local_seconds(today);
                ASSERT_EQ(SecondsBetween(next, now), (ahead + hours(toCome ? 3 : 0)).count());
            }
        }
    }
}

TEST(Calendar, IsThatOfEveryDay) {
    for (local_days today = FirstDay; today <= LastDay; today += days(1)) {
        const year_month_day date(today);
        const auto [y, m, d] = Numbers(today);
        ASSERT_EQ(DanUtjednu(y, m, d), weekday(today).c_encoding() + 1U) << Text(today);
        const auto lastDay = static_cast<unsigned>((date.year() / date.month() / last).day());
        ASSERT_EQ(DaysInMonth(y, m), static_cast<int>(lastDay)) << Text(today);
        ASSERT_EQ(SecondsInYear(y), date.year().is_leap() ? 31622400 : 31536000);
        for (const int more : {0, 1, 7, 27}) ASSERT_EQ(AddDays(Text(today), more), Text(today + days(more)));
    }
    for (const int month : {-1, 0, 13, 99}) EXPECT_EQ(DaysInMonth(2026, month), 0);
    EXPECT_EQ(AddDays("2026-01-01", 28), "");
    EXPECT_THAT(Boxes(), ElementsAre("Tessarine|Previse dana za dodati!"));
}

// Within a year, over one New Year and over several, from each day to moments before and after it.
TEST(SecondsBetweenStamps, AreThoseOfTheCalendar) {
    std::mt19937 random(5);
    for (local_days today = FirstDay; today <= LastDay; today += days(1)) {
        const local_seconds now = local_seconds(today) + seconds(random() % 86400);
        for (const unsigned furthest : {2U, 3000U, 86400U * 40, 31536000U, 31622400U * 3}) {
            const local_seconds then = now + seconds(random() % furthest);
            const auto years = (year_month_day(floor<days>(then)).year() - year_month_day(today).year()).count();
            const auto between = static_cast<std::int32_t>((then - now).count());
            const bool capped = years > 1 || (years == 1 && between > 31536000);
            ASSERT_EQ(SecondsBetween(Stamp(then), Stamp(now)), capped ? 31536001 : between) << Stamp(now);
            ASSERT_EQ(SecondsBetween(Stamp(now), Stamp(then)), years > 1 ? -31536001 : -between) << Stamp(now);
        }
    }
}

TEST(SecondsBetweenStamps, OfTheStatedCases) {
    const std::pair<std::string, std::int32_t> cases[] = {
        {"2026-11-15@14:30:00", 0},
        {"2026-11-15@14:31:04", 64},
        {"2026-11-15@14:13:21", -999},
        {"2026-11-16@whencomp", 86400 - 52200},
        {"2028-01-01@00:00:00", 31536001},
        {"2024-12-31@23:59:59", -31536001},
        {"Never", 31536001},
        {"", -31536001},
        {"2026-11-31@14:30:00", 1382400},
        {"20x6-11-15@14:30:00", 31536001},
    };
    for (const auto& [stamp, seconds] : cases) {
        EXPECT_EQ(SecondsBetween(stamp, "2026-11-15@14:30:00"), seconds) << stamp;
    }
    EXPECT_EQ(SecondsBetween("2026-03-03@07:00:00", "2026-02-31@07:00:00"), 0) << "February 31 is March 3";
}

TEST(DamagedSchedules, AreToldFromThoseOfAUser) {
    for (const Schedule& each : {Daily(), Weekly(64), Monthly("31"), Once("2024-02-29")}) {
        EXPECT_TRUE(CanComeFromAUser(each)) << each.schedule_type;
    }
    for (const Schedule& each :
         {Daily(""), Daily("24:00:00"), Daily("12:60:00"), Daily("9:00:00"), Daily("ab:cd:ef"), Weekly(0), Weekly(128),
          Monthly("0"), Monthly("32"), Monthly("x"), Once(""), Once("2023-02-29"), Once("2024-13-01"), Once("2024-1-1"),
          Make(ScheduleType(0)), Make(ScheduleType(-3))}) {
        EXPECT_FALSE(CanComeFromAUser(each)) << each.date_field << " " << each.start_time;
    }
    for (const int none : {0, 8, 33, -1}) EXPECT_FALSE(IsDayOfWeek(none, -1, true)) << none;
    EXPECT_TRUE(IsDayOfWeek(64, 65, false)) << "the bit itself";
}

}  // namespace
