// The wish to leave the program while a scheduled run is near.
#include "scheduler/exit_request.h"

#include "schedule_stage.h"
#include "scheduler/upcoming_schedule.h"
#include "support/wording.h"

namespace {

class Exit : public ScheduleStage {
protected:
    // Whether the program ends.
    static bool Leaves() {
        bool left = false;
        ExitProgram([&left] { left = true; });
        return left;
    }
};

TEST_F(Exit, IsQuestionedWhenARunIsNear) {
    struct Case {
        std::string time;
        bool asks;
        bool leaves;
    };
    const Case cases[] = {{"14:01:01", false, false},  // 61 s: it begins in a moment
                          {"14:01:02", true, false},
                          {"22:19:59", true, false},
                          {"22:20:00", false, true},  // 30000 s
                          {"13:00:00", false, true}};
    AddDaily("12:00:00");
    for (const Case& each : cases) {
        settings.Schedules[0].start_time = each.time;
        FillScheduleList();
        scheduleViewsStandIn.warnings = 0;
        EXPECT_EQ(Leaves(), each.leaves) << each.time;
        EXPECT_EQ(scheduleViewsStandIn.warnings, each.asks ? 1 : 0) << each.time;
    }
}

TEST_F(Exit, IsFreeBeforeSchedulesOfOtherDaysAndOfTheComputersStart) {
    AddDaily("00:30:00");
    Add({.schedule_type = ScheduleDaily, .start_time = "15:00:00", .when_computer_starts = 1}, "b");
    AddDaily("15:00:00", "c").enabled = 0;
    Add({.schedule_type = ScheduleMonthly, .date_field = "15", .start_time = "13:00:00"}, "d");  // the 15th again
    EXPECT_TRUE(Leaves()) << "the list was never filled";
    FillScheduleList();
    EXPECT_TRUE(Leaves());
    EXPECT_FALSE(upcomingArea.upcoming_schedule);
}

TEST_F(Exit, ShowsTheTimeLeftAndFollowsTheAnswer) {
    AddDaily("15:00:05");
    FillScheduleList();
    scheduleViewsStandIn.duringWarning = [] {
        EXPECT_EQ(scheduleWarning.title, "Scheduled jobs pending...");
        EXPECT_EQ(scheduleWarning.job, "Job 'a'");
        EXPECT_EQ(scheduleWarning.startsIn, "is scheduled to start in:");
        EXPECT_EQ(scheduleWarning.Label2, "1 hours, 0 minutes, 5 seconds");
        EXPECT_EQ(scheduleWarning.Label6, "(at 15:00:05)");
        simulated::RunFor(2 * SecondMs);
        EXPECT_EQ(scheduleWarning.Label2, "1 hours, 0 minutes, 3 seconds");
        schedule_warning_Command2();
    };
    EXPECT_TRUE(Leaves());
    scheduleViewsStandIn.duringWarning = [] { schedule_warning_command3(); };
    EXPECT_FALSE(Leaves());
    for (const int language : AllLanguages) {
        SetLanguage(language);
        scheduleViewsStandIn.duringWarning = [] {
            for (const std::string& text : {scheduleWarning.title, scheduleWarning.job, scheduleWarning.startsIn,
                                            scheduleWarning.Label2, scheduleWarning.Label6, scheduleWarning.question}) {
                EXPECT_THAT(FaultsOf(text), IsEmpty());
            }
        };
        EXPECT_FALSE(Leaves());
    }
}

TEST_F(Exit, IsDroppedWhenTheRunIsAboutToBegin) {
    AddDaily("14:02:00");
    FillScheduleList();
    scheduleViewsStandIn.duringWarning = [] {
        simulated::RunFor(58 * SecondMs);
        EXPECT_TRUE(scheduleViewsStandIn.warningShown);
        simulated::RunFor(2 * SecondMs);
        EXPECT_FALSE(scheduleViewsStandIn.warningShown);
    };
    EXPECT_FALSE(Leaves());
}

TEST_F(Exit, IsDroppedWhenTheScheduleIsGone) {
    AddDaily("15:00:00");
    FillScheduleList();
    scheduleViewsStandIn.duringWarning = [] {
        settings.Schedules.clear();
        simulated::RunFor(SecondMs);
        EXPECT_FALSE(scheduleViewsStandIn.warningShown);
    };
    EXPECT_FALSE(Leaves());
}

TEST(Upcoming, TellsTimesInThePlural) {
    const std::pair<std::int32_t, std::string> cases[] = {
        {1, "1 seconds"},
        {61, "1 minutes, 1 seconds"},
        {3600, "1 hours, 0 minutes, 0 seconds"},
        {86400, "1 days, 0 hours, 0 minutes, 0 seconds"},
        {86399, "23 hours, 59 minutes, 59 seconds"},
        {31536001, "more than a year"},
    };
    for (const auto& [seconds, text] : cases) EXPECT_EQ(TimeUntil(seconds), text);
}

}  // namespace
