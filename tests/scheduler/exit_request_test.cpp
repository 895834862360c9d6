// The wish to leave the program while a scheduled run is near.
#include "scheduler/exit_request.h"

#include "schedule_stage.h"
#include "scheduler/upcoming_schedule.h"

namespace {

class Exit : public ScheduleStage {
protected:
    static bool Leaves() {
        bool left = false;
        ExitProgram([&left] { left = true; });
        return left;
    }
};

TEST_F(Exit, IsQuestionedWhenARunIsNear) {
    const struct {
        std::string time;
        bool asks;
        bool leaves;
    } cases[] = {{"14:01:01", false, false},  // 61 s: it begins in a moment
                 {"14:01:02", true, false},
                 {"22:19:59", true, false},
                 {"22:20:00", false, true},  // 30000 s
                 {"13:00:00", false, true}};
    AddDaily("A", "");
    Add("B", {.schedule_type = ScheduleDaily, .start_time = "15:00:00", .when_computer_starts = 1});
    AddDaily("C", "15:00:00").enabled = 0;
    Add("D", {.schedule_type = ScheduleMonthly, .date_field = "15", .start_time = "13:00:00"});  // the 15th again
    EXPECT_TRUE(Leaves()) << "the list was never filled";
    for (const auto& each : cases) {
        settings.Schedules[0].start_time = each.time;
        FillScheduleList();
        scheduleViewsStandIn.warnings = 0;
        EXPECT_EQ(Leaves(), each.leaves) << each.time;
        EXPECT_EQ(scheduleViewsStandIn.warnings, each.asks ? 1 : 0) << each.time;
    }
}

TEST_F(Exit, ShowsTheTimeLeftAndFollowsTheAnswer) {
    AddDaily("A", "15:00:05");
    FillScheduleList();
    scheduleViewsStandIn.duringWarning = [] {
        EXPECT_EQ(scheduleWarning.job + " " + scheduleWarning.startsIn + " " + scheduleWarning.Label2 + " " +
                      scheduleWarning.Label6,
                  "Job 'A' is scheduled to start in: 1 hours, 0 minutes, 5 seconds (at 15:00:05)");
        simulated::RunFor(2000);
        EXPECT_EQ(scheduleWarning.Label2, "1 hours, 0 minutes, 3 seconds");
        schedule_warning_Command2();
    };
    EXPECT_TRUE(Leaves());
    scheduleViewsStandIn.duringWarning = [] { schedule_warning_command3(); };
    EXPECT_FALSE(Leaves());
}

// The run is about to begin, or its schedule is gone.
TEST_F(Exit, IsDroppedWhenThereIsNothingMoreToAsk) {
    AddDaily("A", "14:02:00");
    FillScheduleList();
    for (const bool deleted : {true, false}) {
        scheduleViewsStandIn.duringWarning = [deleted] {
            const std::vector<Schedule> table = settings.Schedules;
            if (deleted) settings.Schedules.clear();
            simulated::RunFor(deleted ? 1000 : 54'000);
            EXPECT_EQ(scheduleViewsStandIn.warningShown, !deleted);
            settings.Schedules = table;
            simulated::RunFor(2000);
            EXPECT_FALSE(scheduleViewsStandIn.warningShown);
        };
        EXPECT_FALSE(Leaves());
    }
}

}  // namespace
