// Schedules run when their moment has come, once, and nothing else runs. Stories on the simulated clock.
#include "scheduler/schedule_dispatch.h"

#include <chrono>

#include "schedule_stage.h"
#include "scheduler/schedule_page_view.h"

namespace {

constexpr std::int32_t Tuesday = 4;

class Dispatch : public ScheduleStage {
protected:
    Dispatch() { Listen(); }

    std::vector<std::string> Letters() const {
        std::vector<std::string> letters;
        for (const Typed& each : typed) letters.push_back(each.letter);
        return letters;
    }
};

TEST_F(Dispatch, ActsByTheSecondsThatAreLeft) {
    struct Case {
        platform::LocalTime time;
        int interval;
        bool countdown;
        bool runs;
    };
    const Case cases[] = {
        {{2026, 11, 15, 14, 28, 55}, 5000, false, false},  // 65 s
        {{2026, 11, 15, 14, 28, 56}, 250, false, false},   // 64
        {{2026, 11, 15, 14, 29, 0}, 250, false, false},    // 60
        {{2026, 11, 15, 14, 29, 1}, 250, true, false},     // 59
        {{2026, 11, 15, 14, 29, 59}, 250, true, false},    // 1
        {{2026, 11, 15, 14, 30, 0}, 250, true, true},      // 0
        {{2026, 11, 15, 14, 30, 1}, 250, true, true},      // -1
        {{2026, 11, 15, 14, 46, 39}, 250, true, true},     // -999
        {{2026, 11, 15, 14, 46, 40}, 5000, false, false},  // -1000
    };
    AddDaily("14:30:00");
    for (const Case& each : cases) {
        SCOPED_TRACE(StampText(each.time));
        scheduleDispatch = {};
        schedule_start_form = {};
        scheduleViewsStandIn = {};
        typed.clear();
        simulated::SetLocalTime({2026, 11, 15, 14, 0, 0});
        Begin();
        simulated::SetLocalTime(each.time);
        DispatchTick();
        EXPECT_EQ(scheduleDispatch.interval, each.interval);
        EXPECT_EQ(!scheduleViewsStandIn.starts.empty(), each.countdown);
        EXPECT_EQ(scheduleViewsStandIn.start.shown, each.countdown && !each.runs);
        EXPECT_EQ(typed.size(), each.runs ? 1U : 0U);
        platform::StopTimer(scheduleDispatch.sat);
    }
}

TEST_F(Dispatch, CountsDownAndRunsAndKeepsAccount) {
    AddDaily("14:30:00");
    Begin();
    EXPECT_EQ(scheduleDispatch.interval, 500);
    RunTo({2026, 11, 15, 14, 29, 30});
    EXPECT_THAT(scheduleViewsStandIn.starts, ElementsAre("Letter a|will start in 59 seconds"));
    EXPECT_EQ(scheduleViewsStandIn.start.status, "will start in 30 seconds...");
    std::vector<Schedule> during;
    simulated::OnKey(edit, 'A', [&] { during = Saved(); });
    RunTo({2026, 11, 15, 14, 31, 0});
    ASSERT_EQ(during.size(), 1U);
    EXPECT_EQ(during[0].last_result, ScheduleRunning) << "what a crash would leave";
    EXPECT_EQ(during[0].last_run, "2026-11-15@14:30:00");
    EXPECT_EQ(Saved()[0].last_result, 1);
    EXPECT_EQ(Saved()[0].next_run, "2026-11-16@14:30:00");
    EXPECT_FALSE(scheduleViewsStandIn.start.shown);
    EXPECT_EQ(scheduleViewsStandIn.alphas.size(), 20U) << "180 and its fading";
    EXPECT_EQ(scheduleViewsStandIn.alphas.back(), 0);
    EXPECT_THAT(LogOf("Letter a"), testing::AllOf(StartsWith("Date: "),
                                                  HasSubstr("14:29:01  Tessarine is preparing to execute schedule: "
                                                            "'Letter a' ...\r\n14:30:00  Job speed: 100"),
                                                  HasSubstr("Job completed successfully")));
    EXPECT_TRUE(settings.RecentJobs[0].empty()) << "unattended";
}

TEST_F(Dispatch, DoesNothingBeforeTheStartUpRunsAreOverOrWithoutAPage) {
    AddDaily("14:30:00");
    FillScheduleList();
    RunTo({2026, 11, 15, 14, 31, 0});
    EXPECT_THAT(typed, IsEmpty());
    scheduleList = {};
    scheduleViewsStandIn.pageExists = false;
    settings.Schedules[0].next_run = "2026-11-15@14:31:30";
    Begin();
    RunTo({2026, 11, 15, 14, 33, 0});
    EXPECT_TRUE(scheduleDispatch.DispatchEnabled);
    EXPECT_THAT(typed, IsEmpty());
    EXPECT_EQ(At(0).next_run, "2026-11-15@14:31:30") << "as the file has it";
    EXPECT_EQ(simulated::FileBytes("C:\\data\\settings.binary"), std::nullopt);
}

// --- a month, tick for tick ---

using namespace std::chrono;  // NOLINT(google-build-using-namespace): dates read as dates

// When a schedule is due from one day to another, by the calendar of the standard library.
std::vector<local_days> DueDays(const Schedule& schedule, local_days from, local_days to) {
    std::vector<local_days> due;
    const auto add = [&](local_days day) {
        if (day >= from && day < to) due.push_back(day);
    };
    switch (schedule.schedule_type) {
        case ScheduleDaily:
        case ScheduleWeekly:
            for (local_days day = from; day < to; day += days(1)) {
                const unsigned bit = 1U << weekday(day).c_encoding();
                if (schedule.schedule_type == ScheduleDaily || (schedule.days_of_week & static_cast<int>(bit)) != 0) {
                    add(day);
                }
            }
            break;
        case ScheduleMonthly: {
            const year_month_day first(from);
            for (int i = 0; i < 3; ++i) {  // day 31 of a short month comes in the month after
                add(local_days((first.year() / first.month() + months(i)) / 1) +
                    days(std::stoi(schedule.date_field) - 1));
            }
            break;
        }
        default: {
            int y = 0, m = 0, d = 0;
            std::sscanf(schedule.date_field.c_str(), "%d-%d-%d", &y, &m, &d);
            add(local_days(year(y) / m / d));
        }
    }
    return due;
}

std::string Text(local_days day) {
    const year_month_day date(day);
    return FormatDate(static_cast<int>(static_cast<unsigned>(date.day())),
                      static_cast<int>(static_cast<unsigned>(date.month())), static_cast<int>(date.year()));
}

struct Month {
    local_days from;
    int length;
    friend void PrintTo(const Month& month, std::ostream* out) {
        *out << month.length << " days from " << Text(month.from);
    }
};

class AMonthGoesBy : public Dispatch, public testing::WithParamInterface<Month> {};

TEST_P(AMonthGoesBy, AndEachDueRunIsThereOnceAtItsSecond) {
    const auto [from, length] = GetParam();
    const local_days to = from + days(length);
    const year_month_day start(from);
    simulated::SetLocalTime({static_cast<int>(start.year()), static_cast<int>(static_cast<unsigned>(start.month())),
                             static_cast<int>(static_cast<unsigned>(start.day())), 0, 0, 0});
    char letter = 'a';
    const auto next = [&letter] { return std::string(1, letter++); };
    for (const char* time : {"00:00:30", "07:59:59", "12:00:00", "23:58:00"}) AddDaily(time, next());
    for (const int bit : {0, 1, 2, 3, 4, 5, 6}) {
        Add({.schedule_type = ScheduleWeekly, .start_time = "09:00:0" + std::to_string(bit), .days_of_week = 1 << bit},
            next());
    }
    Add({.schedule_type = ScheduleWeekly, .start_time = "18:30:00", .days_of_week = 0x2A}, next());
    for (const char* day : {"1", "28", "29", "30", "31"}) {
        Add({.schedule_type = ScheduleMonthly, .date_field = day, .start_time = "03:00:00"}, next());
    }
    for (const int day : {1, 3}) {
        Add({.schedule_type = ScheduleOnce, .date_field = Text(from + days(day)), .start_time = "20:00:00"}, next());
    }
    Add({.schedule_type = ScheduleDaily, .start_time = "10:00:00"}, next()).enabled = 0;
    ASSERT_EQ(settings.Schedules.size(), 20U);

    std::vector<std::pair<std::string, std::string>> due;  // stamp, letter
    for (std::size_t i = 0; i < settings.Schedules.size(); ++i) {
        if (At(i).enabled == 0) continue;
        for (const local_days day : DueDays(At(i), from, to)) {
            due.emplace_back(Text(day) + "@" + At(i).start_time, std::string(1, static_cast<char>('a' + i)));
        }
    }
    std::sort(due.begin(), due.end());
    Begin();
    simulated::RunFor(length * DayMs);
    ASSERT_EQ(typed.size(), due.size());
    std::string before;
    for (std::size_t i = 0; i < due.size(); ++i) {
        EXPECT_EQ(typed[i].letter, due[i].second) << "at " << due[i].first;
        // Of two at the same second, the second one comes behind the first.
        const std::int32_t latest = due[i].first == before ? 2 : 1;
        EXPECT_THAT(SecondsBetween(typed[i].moment, due[i].first), testing::AllOf(testing::Ge(0), testing::Le(latest)))
            << due[i].first << " ran at " << typed[i].moment;
        before = due[i].first;
    }
    EXPECT_TRUE(simulated::ShownBoxes().empty());
}

INSTANTIATE_TEST_SUITE_P(Over, AMonthGoesBy,
                         testing::Values(Month{local_days{year(2026) / November / 1}, 30},
                                         Month{local_days{year(2024) / February / 27}, 5},
                                         Month{local_days{year(2023) / February / 26}, 7},
                                         Month{local_days{year(2026) / April / 29}, 4},
                                         Month{local_days{year(2027) / December / 29}, 6}));

// --- several at once ---

TEST_F(Dispatch, OfTwoAtOnceTheUpperComesFirst) {
    AddDaily("14:30:00", "b");
    AddDaily("14:30:00", "a");
    Begin();
    RunTo({2026, 11, 15, 14, 31, 0});
    EXPECT_THAT(Letters(), ElementsAre("b", "a"));
}

TEST_F(Dispatch, OneThatFallsDueDuringALongJobRunsAfterItUnlessItIsTooLate) {
    for (const bool tooLate : {false, true}) {
        settings.Schedules.clear();
        typed.clear();
        simulated::SetLocalTime({2026, 11, 15, 14, 0, 0});
        AddDaily("14:30:00", "a");
        PutJob("a", tooLate ? 1200 : 300);
        AddDaily("14:32:00", "b");
        Begin();
        RunTo({2026, 11, 15, 14, 55, 0});
        if (tooLate) {
            EXPECT_THAT(Letters(), ElementsAre("a"));
            EXPECT_EQ(At(1).next_run, "2026-11-15@14:32:00");
        } else {
            EXPECT_THAT(typed, ElementsAre(Typed{"a", "2026-11-15@14:35:00"}, Typed{"b", "2026-11-15@14:35:01"}));
        }
    }
}

TEST_F(Dispatch, ACancelledRunGivesWayToTheNextInTheSameForm) {
    AddDaily("14:30:00", "a");
    AddDaily("14:30:30", "b");
    Begin();
    RunTo({2026, 11, 15, 14, 29, 40});
    CancelStart();
    EXPECT_EQ(At(0).suppressed, 1);
    EXPECT_EQ(Saved()[0].last_run, "2026-11-15@14:30:00") << "at its planned moment";
    EXPECT_EQ(Saved()[0].last_result, ScheduleCanceled);
    EXPECT_THAT(LogOf("Letter a"), HasSubstr("14:29:40  User canceled start of scheduled job: Letter a"));
    RunTo({2026, 11, 15, 14, 31, 0});
    EXPECT_THAT(Letters(), ElementsAre("b"));
    EXPECT_THAT(scheduleViewsStandIn.starts,
                ElementsAre("Letter a|will start in 59 seconds", "Letter b|will start in 50 seconds"));
    EXPECT_THAT(LogOf("Letter b"), testing::AllOf(HasSubstr("'Letter b'"), Not(HasSubstr("Letter a"))));
    RunTo({2026, 11, 17, 15, 0, 0});
    EXPECT_THAT(Letters(), ElementsAre("b", "b", "b")) << "silent for as long as the process lives";
    settings.Schedules = Saved();
    FillScheduleList();
    RunTo({2026, 11, 18, 15, 0, 0});
    EXPECT_THAT(Letters(), Contains("a")) << "and alive after a restart";
}

TEST_F(Dispatch, TheLastCancelClosesTheForm) {
    AddDaily("14:30:00", "a");
    Begin();
    RunTo({2026, 11, 15, 14, 29, 40});
    CancelStart();
    EXPECT_TRUE(scheduleViewsStandIn.start.shown);
    simulated::RunFor(600);
    EXPECT_FALSE(scheduleViewsStandIn.start.shown);
    EXPECT_EQ(scheduleDispatch.interval, 5000);
}

// The tick has not seen yet that the table is another one.
TEST_F(Dispatch, ACancelMeetsTheScheduleThatTheFormNames) {
    AddDaily("14:00:00", "a");
    AddDaily("14:30:00", "b");
    Begin();
    RunTo({2026, 11, 15, 14, 29, 40});
    DeleteSchedule(0);
    CancelStart();
    EXPECT_EQ(At(0).suppressed, 1);
    DeleteSchedule(0);
    CancelStart();
    RunTo({2026, 11, 15, 14, 31, 0});
    EXPECT_THAT(typed, IsEmpty());
}

// --- what goes wrong ---

TEST_F(Dispatch, AJobThatIsGoneFailsAndTheNextOneRuns) {
    AddDaily("14:30:00", "a");
    AddDaily("14:40:00", "b");
    Begin();
    simulated::LosePath(JobPath("a"));
    RunTo({2026, 11, 15, 14, 41, 0});
    EXPECT_EQ(At(0).last_result, RunRefusedOrNoFile);
    EXPECT_EQ(At(0).next_run, "2026-11-16@14:30:00");
    EXPECT_THAT(Letters(), ElementsAre("b"));
}

TEST_F(Dispatch, ARunThatThrowsIsToldOnceAndTheNextOneRuns) {
    AddDaily("14:30:00", "a");
    AddDaily("14:40:00", "b");
    Begin();
    simulated::PutFile(JobPath("a"), "damaged");
    RunTo({2026, 11, 15, 14, 41, 0});
    EXPECT_EQ(simulated::ShownBoxes().size(), 1U);
    EXPECT_EQ(Saved()[0].last_result, ScheduleRunning) << "as a crash leaves it";
    EXPECT_EQ(At(0).next_run, "2026-11-16@14:30:00");
    EXPECT_THAT(LogOf("Letter a"), HasSubstr("Execution of job failed."));
    EXPECT_THAT(Letters(), ElementsAre("b"));
}

TEST_F(Dispatch, ACrashInTheMiddleLeavesItsMarkAndIsNotCaughtUp) {
    AddDaily("14:30:00", "a");
    Begin();
    std::string crashed;
    simulated::OnKey(edit, 'A', [&] { crashed = simulated::FileBytes("C:\\data\\settings.binary").value_or(""); });
    RunTo({2026, 11, 15, 14, 30, 5});
    Listen();
    simulated::PutFile("C:\\data\\settings.binary", crashed);
    LoadSettings();
    Begin();
    EXPECT_EQ(At(0).last_result, ScheduleRunning);
    EXPECT_EQ(At(0).next_run, "2026-11-16@14:30:00");
    RunTo({2026, 11, 15, 15, 0, 0});
    EXPECT_THAT(typed, IsEmpty());
}

TEST_F(Dispatch, AFullDiskKeepsNothingFromRunning) {
    AddDaily("14:30:00", "a");
    Begin();
    simulated::SetFreeSpace(0);
    RunTo({2026, 11, 15, 14, 31, 0});
    EXPECT_THAT(Letters(), ElementsAre("a"));
    EXPECT_EQ(At(0).next_run, "2026-11-16@14:30:00");
    EXPECT_THAT(Boxes(), ElementsAre(HasSubstr("cannot be saved")));
}

TEST_F(Dispatch, OneThatIsDueDuringARunOfTheUserFailsAndIsNotRepeated) {
    AddDaily("14:30:00", "a");
    Begin();
    RunTo({2026, 11, 15, 14, 29, 50});
    PutJob("u", 20);
    RunJob(JobPath("u"), 0, "", true);
    EXPECT_EQ(At(0).last_result, RunRefusedOrNoFile);
    RunTo({2026, 11, 15, 15, 0, 0});
    EXPECT_THAT(Letters(), ElementsAre("u"));
}

// --- clocks ---

TEST_F(Dispatch, AClockSetForwardBlocksUntilTheListIsFilled) {
    AddDaily("14:30:00", "a");
    AddDaily("16:10:00", "b");
    Begin();
    simulated::SetLocalTime({2026, 11, 15, 16, 0, 0});
    RunTo({2026, 11, 15, 16, 12, 0});
    EXPECT_THAT(typed, IsEmpty());
    FillScheduleList();
    EXPECT_EQ(At(0).next_run, "2026-11-16@14:30:00");
    AddDaily("16:15:00", "c");
    FillScheduleList();
    RunTo({2026, 11, 15, 16, 20, 0});
    EXPECT_THAT(Letters(), ElementsAre("c"));
}

TEST_F(Dispatch, AShortSleepOfTheMachineIsMadeUpForAndALongOneIsNot) {
    AddDaily("14:30:00", "a");
    AddDaily("17:00:00", "b");
    Begin();
    simulated::SetLocalTime({2026, 11, 15, 14, 46, 0});
    simulated::RunFor(10 * SecondMs);
    EXPECT_THAT(Letters(), ElementsAre("a"));
    simulated::SetLocalTime({2026, 11, 15, 17, 17, 0});
    simulated::RunFor(HourMs);
    EXPECT_THAT(Letters(), ElementsAre("a"));
}

TEST_F(Dispatch, WhatHasRunDoesNotRunAgainWhenTheClockIsSetBack) {
    for (const bool duringTheRun : {false, true}) {
        settings.Schedules.clear();
        typed.clear();
        simulated::SetLocalTime({2026, 10, 25, 2, 0, 0});
        AddDaily("02:30:00", "a");
        PutJob("a", 60);
        Begin();
        RunTo({2026, 10, 25, 2, 30, 30});
        simulated::After(duringTheRun ? 10 * SecondMs : 50 * SecondMs, [] {
            simulated::SetLocalTime({2026, 10, 25, 2, 0, 0});
        });
        simulated::RunFor(3 * HourMs);
        EXPECT_THAT(Letters(), ElementsAre("a")) << (duringTheRun ? "during the run" : "after it");
        EXPECT_EQ(At(0).next_run, "2026-10-26@02:30:00");
    }
}

// The hour that summer time leaves out.
TEST_F(Dispatch, WhatIsSetForAMissingHourBlocksUntilTheListIsFilled) {
    simulated::SetLocalTime({2026, 3, 29, 1, 59, 0});
    AddDaily("02:30:00", "a");
    Begin();
    simulated::After(MinuteMs, [] { simulated::SetLocalTime({2026, 3, 29, 3, 0, 0}); });
    simulated::RunFor(HourMs);
    EXPECT_EQ(At(0).next_run, "2026-03-29@02:30:00");
    EXPECT_THAT(typed, IsEmpty());
    FillScheduleList();
    EXPECT_EQ(At(0).next_run, "2026-03-30@02:30:00");
}

// --- quiet ---

TEST_F(Dispatch, AnIdleDayTouchesNoFile) {
    AddDaily("13:00:00", "a").enabled = 0;
    Add({.schedule_type = ScheduleWeekly, .start_time = "13:00:00", .days_of_week = Tuesday}, "b");
    Add({.schedule_type = ScheduleOnce, .date_field = "2020-01-01", .start_time = "13:00:00"}, "c");
    Begin();
    const std::int64_t before = simulated::FileOperations();
    simulated::RunFor(DayMs);
    EXPECT_EQ(simulated::FileOperations(), before);
    EXPECT_EQ(scheduleDispatch.interval, 5000);
    settings.Schedules.clear();
    simulated::RunFor(MinuteMs);
    EXPECT_EQ(simulated::FileOperations(), before);
    EXPECT_THAT(typed, IsEmpty());
}

TEST_F(Dispatch, WithoutATimerTheStartSaysSo) {
    AddDaily("14:30:00", "a");
    simulated::RefuseTimers();
    FillScheduleList();
    EXPECT_EQ(FailureOf(MarkStartUpRunsOver), FailureKind::Memory);
    simulated::RefuseTimers(false);
    MarkStartUpRunsOver();
    simulated::RefuseTimers();  // the first one goes on
    RunTo({2026, 11, 15, 14, 31, 0});
    EXPECT_THAT(Letters(), ElementsAre("a"));
}

// What a damaged file may hold is shown, and none of it runs; what is whole beside it does.
TEST_F(Dispatch, RecordsOfAnyBytesRunNothing) {
    std::mt19937 random(11);
    const auto bytes = [&random](std::size_t most) {
        std::string text(random() % (most + 1), ' ');
        for (char& each : text)
            each = random() % 3 == 0 ? static_cast<char>(random()) : "0123456789-@: N"[random() % 15];
        return text;
    };
    const auto number = [&random] {
        return random() % 2 == 0 ? static_cast<std::int32_t>(random()) : static_cast<std::int32_t>(random() % 6);
    };
    for (int i = 0; i < 300; ++i) {
        Schedule damaged{.schedule_type = number(),
                         .date_field = bytes(10),
                         .start_time = random() % 2 == 0 ? "14:10:00" : bytes(8),
                         .when_computer_starts = random() % 2 == 0 ? 0 : number(),
                         .days_of_week = number(),
                         .next_run = random() % 2 == 0 ? "2026-11-15@14:10:00" : bytes(19),
                         .last_run = bytes(19),
                         .last_result = number()};
        if (CanComeFromAUser(damaged)) continue;
        Add(damaged, "x");
        if (random() % 5 == 0) settings.Schedules.back().schedule_name = bytes(256);
    }
    Begin();
    for (int row = 0; row < scheduleList.schedule_lista.ListCount(); ++row) scheduleList.schedule_lista.SelectItem(row);
    AddDaily("14:20:00", "a");
    ComputeNextRun(static_cast<std::ptrdiff_t>(settings.Schedules.size()) - 1);
    simulated::RunFor(DayMs / 2);
    EXPECT_THAT(Letters(), ElementsAre("a"));
}

}  // namespace
