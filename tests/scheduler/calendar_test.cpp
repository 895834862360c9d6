// The calendar: stated cases as tables, and every day of 1999 to 2105 against the calendar of the standard library.
#include "scheduler/calendar.h"

#include <chrono>
#include <cstdio>

#include "dictionary/dictionary.h"
#include "support/story.h"

namespace {

using namespace std::chrono;  // NOLINT(google-build-using-namespace): dates read as dates

constexpr const char* Noon = "12:00:00";
constexpr local_days FirstDay{year(1999) / January / 1};
constexpr local_days LastDay{year(2105) / December / 31};

std::string Text(year_month_day date) {
    char text[16];
    std::snprintf(text, sizeof text, "%04d-%02u-%02u", static_cast<int>(date.year()),
                  static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
    return text;
}

std::string Text(local_days date) {
    return Text(year_month_day(date));
}

std::string Text(local_seconds moment) {
    const local_days date = floor<days>(moment);
    const hh_mm_ss time(moment - date);
    char text[16];
    std::snprintf(text, sizeof text, "@%02d:%02d:%02d", static_cast<int>(time.hours().count()),
                  static_cast<int>(time.minutes().count()), static_cast<int>(time.seconds().count()));
    return Text(date) + text;
}

struct Case {
    Schedule schedule;
    std::string now;
    std::string next;
};

Schedule Daily(const std::string& time = Noon, int atStart = 0) {
    return {.schedule_type = ScheduleDaily, .start_time = time, .when_computer_starts = atStart};
}
Schedule Weekly(std::int32_t days, const std::string& time = Noon, int atStart = 0) {
    return {.schedule_type = ScheduleWeekly,
            .start_time = time,
            .when_computer_starts = atStart,
            .days_of_week = days,
            .next_run = "as before"};
}
Schedule Monthly(const std::string& day, const std::string& time = Noon, int atStart = 0) {
    return {.schedule_type = ScheduleMonthly, .date_field = day, .start_time = time, .when_computer_starts = atStart};
}
Schedule Once(const std::string& date, const std::string& time = Noon, int atStart = 0) {
    return {.schedule_type = ScheduleOnce, .date_field = date, .start_time = time, .when_computer_starts = atStart};
}

TEST(NextRun, OfTheStatedCases) {
    constexpr std::int32_t tuesday = 4;  // 2004-06-15 is one
    const Case cases[] = {
        {Daily("14:30:00"), "2026-11-15@14:30:00", "2026-11-16@14:30:00"},
        {Daily("14:30:00"), "2026-11-15@14:29:59", "2026-11-15@14:30:00"},
        {Daily(), "2026-12-31@12:00:01", "2027-01-01@12:00:00"},
        {Daily("23:59:59", 1), "2024-02-28@00:00:00", "2024-02-29@whencomp"},
        {Daily(Noon, 7), "2023-02-28@13:00:00", "2023-03-01@whencomp"},

        {Weekly(tuesday), "2004-06-15@11:59:59", "2004-06-15@12:00:00"},
        {Weekly(tuesday), "2004-06-15@12:00:00", "2004-06-22@12:00:00"},
        {Weekly(tuesday), "2004-06-29@13:00:00", "2004-07-06@12:00:00"},
        {Weekly(tuesday), "2004-12-28@13:00:00", "2005-01-04@12:00:00"},
        {Weekly(1), "2004-06-15@00:00:00", "2004-06-20@12:00:00"},
        {Weekly(tuesday, Noon, 1), "2004-06-15@11:59:59", "2004-06-15@12:00:00"},  // meant, unlike a daily one
        {Weekly(tuesday, Noon, 1), "2004-06-15@12:00:00", "2004-06-22@whencomp"},
        {Weekly(tuesday, Noon, 2), "2004-06-15@12:00:00", "2004-06-22@12:00:00"},
        {Weekly(0), "2004-06-15@11:00:00", "as before"},
        {Weekly(~0x7F), "2004-06-15@11:00:00", "as before"},

        {Monthly("31"), "2026-04-30@13:00:00", "2026-04-31@12:00:00"},
        {Monthly("31"), "2026-04-15@13:00:00", "2026-04-31@12:00:00"},
        {Monthly("30"), "2026-04-30@13:00:00", "2026-05-30@12:00:00"},
        {Monthly("31"), "2026-03-03@12:00:00", "2026-03-31@12:00:00"},
        {Monthly("31"), "2026-12-31@12:00:00", "2027-01-31@12:00:00"},
        {Monthly("15"), "2026-11-15@11:59:59", "2026-11-15@12:00:00"},
        {Monthly("5 ", Noon, 1), "2026-11-15@00:00:00", "2026-12-05@whencomp"},

        {Once("2026-11-15"), "2026-11-15@11:59:59", "2026-11-15@12:00:00"},
        {Once("2026-11-15"), "2026-11-15@12:00:00", "Never"},
        {Once("2026-11-14", "23:59:59"), "2026-11-15@00:00:00", "Never"},
        {Once("2020-01-01", Noon, 1), "2026-11-15@12:00:00", "2020-01-01@whencomp"},

        {{.schedule_type = 5, .start_time = Noon, .next_run = "as before"}, "2026-11-15@11:00:00", "as before"},
    };
    for (const Case& each : cases) {
        EXPECT_EQ(NextRunOf(each.schedule, each.now), each.next)
            << "type " << each.schedule.schedule_type << " " << each.schedule.date_field << " at " << each.now;
    }
    SetLanguage(LanguageFrench);
    EXPECT_EQ(NextRunOf(Once("2026-11-15"), "2026-11-15@12:00:00"), "Jamais");
    SetLanguage(LanguageEnglish);
}

// The day of the month, in this month or the next, as a stamp counts it: a day too many is one in the month after.
local_days DayOfMonth(year_month month, int day) {
    return local_days(month / 1) + days(day - 1);
}

// Once before noon and once after it on each day.
TEST(NextRun, OfEveryDayIsThatOfTheCalendar) {
    for (local_days today = FirstDay; today <= LastDay; today += days(1)) {
        const auto weekdayNumber = static_cast<int>(weekday(today).c_encoding());
        const year_month_day date(today);
        const auto day = static_cast<int>(static_cast<unsigned>(date.day()));
        for (const int toCome : {1, 0}) {
            const std::string now = Text(today) + (toCome ? "@09:00:00" : "@12:00:00");
            SCOPED_TRACE(now);
            const std::string tomorrow = Text(today + days(1));
            ASSERT_EQ(NextRunOf(Daily(), now), (toCome ? Text(today) : tomorrow) + "@12:00:00");
            ASSERT_EQ(NextRunOf(Daily(Noon, 1), now), tomorrow + "@whencomp");
            for (int wanted = 0; wanted < 7; ++wanted) {
                const int ahead = (wanted - weekdayNumber + 7) % 7;
                const std::string next = Text(today + days(ahead == 0 && !toCome ? 7 : ahead));
                ASSERT_EQ(NextRunOf(Weekly(1 << wanted), now), next + "@12:00:00") << wanted;
            }
            for (const int wanted : {1, 15, 28, 29, 30, 31}) {
                const bool thisMonth = day < wanted || (day == wanted && toCome);
                const year_month month = date.year() / date.month() + months(thisMonth ? 0 : 1);
                const std::string next = NextRunOf(Monthly(std::to_string(wanted)), now);
                const year_month_day named = month / wanted;
                ASSERT_EQ(next, Text(named) + "@12:00:00");
                const auto seconds = local_seconds(DayOfMonth(month, wanted)) - local_seconds(today);
                ASSERT_EQ(SecondsBetween(next, now), (seconds + hours(toCome ? 3 : 0)).count());
            }
            ASSERT_EQ(NextRunOf(Once(Text(today)), now), toCome ? Text(today) + "@12:00:00" : "Never");
        }
    }
}

TEST(Calendar, IsThatOfEveryDay) {
    for (local_days today = FirstDay; today <= LastDay; today += days(1)) {
        const year_month_day date(today);
        const auto month = static_cast<int>(static_cast<unsigned>(date.month()));
        const int yearNumber = static_cast<int>(date.year());
        const auto day = static_cast<int>(static_cast<unsigned>(date.day()));
        ASSERT_EQ(FormatDate(day, month, yearNumber), Text(today));
        ASSERT_EQ(DanUtjednu(yearNumber, month, day), weekday(today).c_encoding() + 1U) << Text(today);
        const auto lastDay = static_cast<unsigned>((date.year() / date.month() / last).day());
        ASSERT_EQ(DaysInMonth(yearNumber, month), static_cast<int>(lastDay)) << Text(today);
        ASSERT_EQ(SecondsInYear(yearNumber), date.year().is_leap() ? 31622400 : 31536000);
        for (const int more : {0, 1, 7, 27}) ASSERT_EQ(AddDays(Text(today), more), Text(today + days(more)));
    }
    for (const int month : {-1, 0, 13, 99}) EXPECT_EQ(DaysInMonth(2026, month), 0);
}

TEST(Calendar, AddsFewerThan28Days) {
    EXPECT_EQ(AddDays("2026-01-01", 28), "");
    EXPECT_THAT(Boxes(), ElementsAre("Tessarine|Previse dana za dodati!"));
}

// Within a year, over one New Year and over several, from each day to moments before and after it.
TEST(SecondsBetweenStamps, AreThoseOfTheCalendar) {
    std::mt19937 random(5);
    for (local_days today = FirstDay; today <= LastDay; today += days(1)) {
        const local_seconds now = local_seconds(today) + seconds(random() % 86400);
        for (const int furthest : {2, 3000, 86400 * 40, 31536000, 31622400 * 3}) {
            const local_seconds then = now + seconds(static_cast<int>(random() % static_cast<unsigned>(furthest)));
            const auto years = year_month_day(floor<days>(then)).year() - year_month_day(today).year();
            const auto seconds = static_cast<std::int32_t>((then - now).count());
            const std::int32_t far = 31536001;
            const std::int32_t ahead = years.count() > 1 || seconds > 31536000 ? far : seconds;
            const std::int32_t behind = years.count() > 1 ? -far : -seconds;
            const bool sameYear = years.count() == 0;  // in which nothing is capped
            ASSERT_EQ(SecondsBetween(Text(then), Text(now)), sameYear ? seconds : ahead) << Text(now) << Text(then);
            ASSERT_EQ(SecondsBetween(Text(now), Text(then)), sameYear ? -seconds : behind) << Text(now) << Text(then);
        }
    }
}

TEST(SecondsBetweenStamps, OfTheStatedCases) {
    const std::string now = "2026-11-15@14:30:00";
    const std::pair<std::string, std::int32_t> cases[] = {
        {now, 0},
        {"2026-11-15@14:31:04", 64},
        {"2026-11-15@14:13:21", -999},
        {"2026-11-16@whencomp", 86400 - 52200},
        {"2028-01-01@00:00:00", 31536001},  // two calendar years apart, and little over one
        {"2024-12-31@23:59:59", -31536001},
        {"Never", 31536001},
        {"Nie", 31536001},
        {"", -31536001},
        {"2026-11-31@14:30:00", 16 * 86400},
        {"2026-11-", -(14 * 86400 + 52200 + 86400)},
        {"20x6-11-15@14:30:00", 31536001},
    };
    for (const auto& [stamp, seconds] : cases) EXPECT_EQ(SecondsBetween(stamp, now), seconds) << stamp;
    EXPECT_EQ(SecondsBetween("2027-01-01@00:00:00", "2026-12-31@23:59:59"), 1);
    EXPECT_EQ(SecondsBetween("2026-12-31@23:59:59", "2027-01-01@00:00:00"), -1);
    EXPECT_EQ(SecondsBetween("2026-03-03@07:00:00", "2026-02-31@07:00:00"), 0) << "February 31 is March 3";
}

TEST(DaysOfTheWeek, AreBitsByNumberOrByThemselves) {
    EXPECT_TRUE(IsDayOfWeek(1, 1, true));
    EXPECT_TRUE(IsDayOfWeek(7, 64, true));
    EXPECT_FALSE(IsDayOfWeek(2, 1, true));
    EXPECT_TRUE(IsDayOfWeek(64, 65, false));
    for (const int none : {0, 8, 33, -1}) EXPECT_FALSE(IsDayOfWeek(none, -1, true)) << none;
}

// What a damaged file may hold: everything has an answer, and nothing of it is started.
TEST(DamagedSchedules, AreToldFromThoseOfAUser) {
    const Schedule good[] = {Daily(), Weekly(64), Monthly("31"), Once("2024-02-29"), Daily("23:59:59", 1)};
    for (const Schedule& each : good) EXPECT_TRUE(CanComeFromAUser(each)) << each.schedule_type;
    const Schedule bad[] = {Daily(""),
                            Daily("24:00:00"),
                            Daily("12:60:00"),
                            Daily("9:00:00"),
                            Daily("ab:cd:ef"),
                            Daily("-1:00:00"),
                            Weekly(0),
                            Weekly(128),
                            Monthly("0"),
                            Monthly("32"),
                            Monthly("x"),
                            Monthly(""),
                            Once(""),
                            Once("2023-02-29"),
                            Once("2024-13-01"),
                            Once("2024-1-1"),
                            {.schedule_type = 0, .start_time = Noon},
                            {.schedule_type = -3, .start_time = Noon}};
    for (const Schedule& each : bad) {
        EXPECT_FALSE(CanComeFromAUser(each))
            << each.schedule_type << " '" << each.date_field << "' '" << each.start_time << "'";
    }
}

TEST(DamagedSchedules, HaveAnAnswerForAnyBytes) {
    std::mt19937 random(7);
    const auto bytes = [&random](std::size_t most) {
        std::string text(random() % (most + 1), ' ');
        for (char& each : text)
            each = random() % 3 == 0 ? static_cast<char>(random()) : "0123456789-@: N"[random() % 15];
        return text;
    };
    const std::string now = "2026-12-31@23:59:59";
    for (int round = 0; round < 200'000; ++round) {
        const Schedule schedule{.schedule_type = static_cast<std::int32_t>(random() % 6),
                                .date_field = bytes(10),
                                .start_time = bytes(8),
                                .when_computer_starts = static_cast<std::int32_t>(random() % 3),
                                .days_of_week = static_cast<std::int32_t>(random()),
                                .next_run = bytes(19)};
        const std::string next = NextRunOf(schedule, now);
        EXPECT_LE(next.size(), 19U);
        EXPECT_LE(SecondsBetween(next, now), 71'536'001);
        EXPECT_EQ(SecondsBetween(schedule.next_run, schedule.next_run), 0);
    }
}

}  // namespace
