// What runs when the computer starts, in which order, and how long it waits.
#include "scheduler/start_up_runs.h"

#include "schedule_stage.h"

namespace {

constexpr std::int32_t Sunday = 1;
constexpr std::int32_t Monday = 2;

class StartUp : public ScheduleStage {
protected:
    StartUp() { Listen(); }

    Schedule& AtStart(const std::string& letter, Schedule schedule = {.schedule_type = ScheduleDaily}) {
        schedule.start_time = "12:00:00";
        schedule.when_computer_starts = 1;
        return Add(schedule, letter);
    }

    std::string Started() {
        FillScheduleList();
        ComputerStartUp();
        std::string letters;
        for (const Typed& each : typed) letters += each.letter;
        return letters;
    }

    std::string TypedAfter(std::int64_t ms) {
        simulated::RunFor(ms);
        std::string letters;
        for (const Typed& each : typed) letters += each.letter;
        return letters;
    }
};

TEST_F(StartUp, RunsWhatIsForToday) {
    AtStart("a");
    AtStart("b", {.schedule_type = ScheduleWeekly, .days_of_week = Sunday});
    AtStart("c", {.schedule_type = ScheduleWeekly, .days_of_week = Monday});
    AtStart("d", {.schedule_type = ScheduleMonthly, .date_field = "15 "});
    AtStart("e", {.schedule_type = ScheduleMonthly, .date_field = "16"});
    AtStart("f", {.schedule_type = ScheduleOnce, .date_field = "2026-11-15"});
    AtStart("g", {.schedule_type = ScheduleOnce, .date_field = "2026-11-16"});
    AtStart("h").enabled = 0;
    AtStart("i").when_computer_starts = 2;  // neither at the start nor by the clock
    AtStart("j").schedule_type = 9;
    EXPECT_EQ(Started(), "abdf");
    EXPECT_TRUE(scheduleDispatch.DispatchEnabled);
    EXPECT_EQ(At(0).last_result, 1);
    EXPECT_EQ(At(0).next_run, "2026-11-16@whencomp");
    EXPECT_EQ(At(2).next_run, "2026-11-16@whencomp") << "is refreshed, although it is not for today";
    EXPECT_EQ(At(2).last_run, "");
    EXPECT_THAT(LogOf("Letter a"),
                testing::AllOf(HasSubstr("Schedule 'Letter a' started on computer startup\r\n"),
                               HasSubstr("Preparing to execute job: C:\\data\\a.tsj\r\n"), HasSubstr("Job speed")));
}

TEST_F(StartUp, OncePerDayMeansOnceWithSuccess) {
    struct Case {
        std::string lastRun;
        std::int32_t lastResult;
        bool runs;
    };
    const Case cases[] = {{"2026-11-15@08:00:00", 1, false},
                          {"2026-11-14@08:00:00", 1, true},
                          {"2026-11-15@08:00:00", ScheduleRunning, true},
                          {"2026-11-15@08:00:00", ScheduleCanceled, true},
                          {"2026-11-15@08:00:00", -4, true},
                          {"2026-11-15@08:00:00", 3, true},  // passes of a job that repeats itself
                          {"", 0, true}};
    for (const Case& each : cases) {
        settings.Schedules.clear();
        typed.clear();
        Schedule& schedule = AtStart("a");
        schedule.only_once_per_day = 1;
        schedule.last_run = each.lastRun;
        schedule.last_result = each.lastResult;
        EXPECT_EQ(Started(), each.runs ? "a" : "") << each.lastRun << " " << each.lastResult;
    }
}

TEST_F(StartUp, ThoseThatWaitComeLastAndTheDispatchAfterThem) {
    AtStart("a").wait_items_loaded = 1;
    AtStart("b");
    AtStart("c").wait_items_loaded = 1;
    AddDaily("14:00:08", "d");
    simulated::SetProcessorLoad(60);
    EXPECT_EQ(Started(), "b");
    EXPECT_THAT(scheduleViewsStandIn.starts, ElementsAre("Letter a|waiting for startup items to finish loading..."));
    EXPECT_EQ(TypedAfter(HourMs), "b") << "for as long as it takes";
    simulated::SetProcessorLoad(std::nullopt);
    EXPECT_EQ(TypedAfter(MinuteMs), "b");
    simulated::SetLocalTime({2026, 11, 15, 14, 0, 0});
    simulated::SetProcessorLoad(0);
    EXPECT_EQ(TypedAfter(13 * SecondMs), "b");
    EXPECT_FALSE(scheduleDispatch.DispatchEnabled);
    EXPECT_EQ(TypedAfter(5 * SecondMs), "bacd") << "the dispatch begins when the queue has run";
    EXPECT_FALSE(scheduleViewsStandIn.start.shown);
    EXPECT_THAT(LogOf("Letter a"), HasSubstr("started on computer startup after startup items have loaded."));
}

TEST_F(StartUp, EachCancelTakesOneAndTheLastEndsTheWait) {
    AtStart("a").wait_items_loaded = 1;
    AtStart("b").wait_items_loaded = 1;
    simulated::SetProcessorLoad(100);
    EXPECT_EQ(Started(), "");
    CancelStart();
    EXPECT_EQ(Saved()[0].last_result, ScheduleCanceled);
    EXPECT_EQ(At(0).last_run, "2026-11-15@14:00:00");
    EXPECT_EQ(At(0).suppressed, 1);
    EXPECT_EQ(scheduleViewsStandIn.start.name, "Letter b");
    EXPECT_FALSE(scheduleDispatch.DispatchEnabled);
    CancelStart();
    EXPECT_FALSE(scheduleViewsStandIn.start.shown);
    EXPECT_TRUE(scheduleDispatch.DispatchEnabled);
    EXPECT_EQ(startUpRuns.cpu_usage, 0);
    EXPECT_EQ(LogOf("Letter a"), "");
    simulated::SetProcessorLoad(0);
    EXPECT_EQ(TypedAfter(MinuteMs), "");
}

// By the time that the machine has settled, the table may be another one.
TEST_F(StartUp, TheQueueKnowsItsSchedulesWhateverBecomesOfTheTable) {
    for (const char* letter : {"a", "b", "c", "d"}) AtStart(letter).wait_items_loaded = 1;
    AddDaily("20:00:00", "e");
    simulated::SetProcessorLoad(100);
    Started();
    settings.Schedules[1].enabled = 0;
    settings.Schedules[2].when_computer_starts = 0;  // saved anew as one of the clock
    DeleteSchedule(0);
    simulated::SetProcessorLoad(0);
    EXPECT_EQ(TypedAfter(MinuteMs), "d");
}

TEST_F(StartUp, AFailureKeepsNoOtherFromRunning) {
    AtStart("a");
    AtStart("b");
    simulated::PutFile(JobPath("a"), "damaged");
    FillScheduleList();
    EXPECT_TRUE(FailureOf(ComputerStartUp));
    EXPECT_EQ(typed.size(), 1U);
    EXPECT_TRUE(scheduleDispatch.DispatchEnabled);
}

TEST_F(StartUp, WithoutATimerForTheWaitTheQueueRunsAtOnce) {
    AtStart("a").wait_items_loaded = 1;
    FillScheduleList();
    simulated::RefuseTimers();
    EXPECT_EQ(FailureOf(ComputerStartUp), FailureKind::Memory) << "and the dispatch has none either";
    EXPECT_EQ(typed.size(), 1U);
}

TEST_F(StartUp, RunsNothingWithoutAPage) {
    scheduleViewsStandIn.pageExists = false;
    AtStart("a");
    EXPECT_EQ(Started(), "");
    EXPECT_TRUE(scheduleDispatch.DispatchEnabled);
    EXPECT_EQ(At(0).next_run, "");
}

}  // namespace
