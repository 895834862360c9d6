// What runs when the computer starts, in which order, and how long it waits.
#include "scheduler/start_up_runs.h"

#include "schedule_stage.h"

namespace {

class StartUp : public ScheduleStage {
protected:
    Schedule& AtStart(const std::string& letter, Schedule schedule = {.schedule_type = ScheduleDaily}) {
        schedule.start_time = "12:00:00";
        schedule.when_computer_starts = 1;
        return Add(letter, schedule);
    }
    void AtStartWaiting(const std::string& letter) { AtStart(letter).wait_items_loaded = 1; }

    // With this load of the processor.
    void Start(int load = 0) {
        simulated::SetProcessorLoad(load);
        FillScheduleList();
        ComputerStartUp();
    }

    std::string LettersAfter(int seconds) {
        simulated::RunFor(std::int64_t{1000} * seconds);
        return Letters();
    }
};

TEST_F(StartUp, RunsWhatIsForToday) {
    AtStart("A");
    AtStart("B", {.schedule_type = ScheduleWeekly, .days_of_week = 1});
    AtStart("C", {.schedule_type = ScheduleWeekly, .days_of_week = 2});
    AtStart("D", {.schedule_type = ScheduleMonthly, .date_field = "15 "});
    AtStart("E", {.schedule_type = ScheduleMonthly, .date_field = "16"});
    AtStart("F", {.schedule_type = ScheduleOnce, .date_field = "2026-11-15"});
    AtStart("G", {.schedule_type = ScheduleOnce, .date_field = "2026-11-16"});
    AtStart("H").enabled = 0;
    AtStart("I").when_computer_starts = 2;  // neither at the start nor by the clock
    AtStart("J").schedule_type = 9;
    Start();
    EXPECT_EQ(Letters(), "ABDF");
    EXPECT_TRUE(scheduleDispatch.DispatchEnabled);
    EXPECT_EQ(At(0).last_result, 1);
    EXPECT_EQ(At(2).next_run, "2026-11-16@whencomp") << "is refreshed, although it is not for today";
    EXPECT_THAT(LogOf("A"), HasSubstr("Schedule 'Letter A' started on computer startup\r\n"));
    EXPECT_THAT(LogOf("A"), HasSubstr("Preparing to execute job: C:\\data\\A.tsj\r\n"));
}

TEST_F(StartUp, OncePerDayMeansOnceWithSuccess) {
    const struct {
        std::string lastRun;
        std::int32_t lastResult;
        bool runs;
    } cases[] = {{"2026-11-15@08:00:00", 1, false},
                 {"2026-11-14@08:00:00", 1, true},
                 {"2026-11-15@08:00:00", ScheduleRunning, true},
                 {"2026-11-15@08:00:00", ScheduleCanceled, true},
                 {"2026-11-15@08:00:00", 3, true},  // passes of a job that repeats itself
                 {"", 0, true}};
    for (const auto& each : cases) {
        settings.Schedules.clear();
        typed.clear();
        Schedule& schedule = AtStart("A");
        schedule.only_once_per_day = 1;
        schedule.last_run = each.lastRun;
        schedule.last_result = each.lastResult;
        Start();
        EXPECT_EQ(Letters(), each.runs ? "A" : "") << each.lastRun << " " << each.lastResult;
    }
}

TEST_F(StartUp, ThoseThatWaitComeLastAndTheDispatchAfterThem) {
    AtStartWaiting("A");
    AtStart("B");
    AtStartWaiting("C");
    AddDaily("D", "14:00:08");
    Start(60);
    EXPECT_THAT(scheduleViewsStandIn.starts, ElementsAre("Letter A|waiting for startup items to finish loading..."));
    EXPECT_EQ(LettersAfter(3600), "B") << "for as long as it takes";
    simulated::SetProcessorLoad(std::nullopt);
    EXPECT_EQ(LettersAfter(60), "B");
    simulated::SetLocalTime({2026, 11, 15, 14, 0, 0});
    simulated::SetProcessorLoad(0);
    EXPECT_EQ(LettersAfter(13), "B");
    EXPECT_FALSE(scheduleDispatch.DispatchEnabled);
    EXPECT_EQ(LettersAfter(5), "BACD") << "the dispatch begins when the queue has run";
    EXPECT_FALSE(scheduleViewsStandIn.start.shown);
    EXPECT_THAT(LogOf("A"), HasSubstr("started on computer startup after startup items have loaded."));
}

TEST_F(StartUp, EachCancelTakesOneAndTheLastEndsTheWait) {
    AtStartWaiting("A");
    AtStartWaiting("B");
    Start(100);
    CancelStart();
    EXPECT_EQ(Saved()[0].last_result, ScheduleCanceled);
    EXPECT_EQ(At(0).last_run, "2026-11-15@14:00:00");
    EXPECT_EQ(scheduleViewsStandIn.start.name, "Letter B");
    EXPECT_FALSE(scheduleDispatch.DispatchEnabled);
    CancelStart();
    EXPECT_FALSE(scheduleViewsStandIn.start.shown);
    EXPECT_TRUE(scheduleDispatch.DispatchEnabled);
    EXPECT_EQ(LogOf("A"), "");
    simulated::SetProcessorLoad(0);
    EXPECT_EQ(LettersAfter(60), "");
}

TEST_F(StartUp, TheQueueKnowsItsSchedulesWhateverBecomesOfTheTable) {
    for (const char* letter : {"A", "B", "C", "D"}) AtStartWaiting(letter);
    AddDaily("E", "20:00:00");
    Start(100);
    settings.Schedules[1].enabled = 0;
    settings.Schedules[2].when_computer_starts = 0;  // saved anew as one of the clock
    DeleteSchedule(0);
    simulated::SetProcessorLoad(0);
    EXPECT_EQ(LettersAfter(60), "D");
}

TEST_F(StartUp, AFailureKeepsNoOtherFromRunning) {
    AtStart("A");
    AtStartWaiting("B");
    simulated::PutFile(JobPath("A"), "damaged");
    simulated::RefuseTimers();  // without one there is no waiting
    EXPECT_THROW(Start(), RuntimeFailure);
    EXPECT_EQ(Letters(), "B");
    EXPECT_TRUE(scheduleDispatch.DispatchEnabled);
}

}  // namespace
