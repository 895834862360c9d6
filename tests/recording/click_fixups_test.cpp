#include "recording/click_fixups.h"

#include "recording_stage.h"

namespace {

class ClickFixups : public RecordingStage {
protected:
    ClickFixups() { Start(); }

    // A left click of the user, `ms` after what was before.
    static void Click(platform::Point point, std::int64_t ms) {
        simulated::RunFor(ms);
        simulated::PlaceCursor(point);
        simulated::UserPresses();
        simulated::UserReleases();
        platform::Pump();
    }

    std::vector<std::string> Repaired() { return NamesOf(Stop().Events); }
};

constexpr platform::Point Place{500, 500};

TEST_F(ClickFixups, TwoClicksAreADoubleClickUpToTheExactLimits) {
    const std::tuple<platform::Point, std::int64_t, bool> cases[] = {{{500, 500}, 500, true}, {{500, 500}, 501, false},
                                                                     {{501, 500}, 10, true},  {{500, 499}, 500, true},
                                                                     {{501, 501}, 10, false}, {{502, 500}, 10, false}};
    for (const auto& [second, ms, folds] : cases) {
        SCOPED_TRACE(testing::Message() << second.x << " " << second.y << " after " << ms);
        if (!RecordingActive()) Start();
        Click(Place, 2000);
        Click(second, ms);
        const Job job = Stop();
        if (folds) {
            ASSERT_THAT(NamesOf(job.Events), ElementsAre("Double click"));
            EXPECT_EQ(job.Events[0].dx(), 500) << "the first press's place, time, window and wait";
            EXPECT_EQ(job.Events[0].time(), 2000);
            EXPECT_EQ(TargetOf(job.Events[0]), "Edit");
            EXPECT_EQ(job.Events[0].WaitForWindow, 10);
        } else {
            EXPECT_THAT(NamesOf(job.Events), ElementsAre("Left down", "Left up", "Left down", "Left up"));
        }
    }
}

TEST_F(ClickFixups, ThirdAndFourthClicksBeginAnew) {
    for (int i = 0; i < 3; ++i) Click(Place, 100);
    EXPECT_THAT(Repaired(), ElementsAre("Double click", "Left down", "Left up"));
    Start();
    for (int i = 0; i < 4; ++i) Click(Place, 100);
    EXPECT_THAT(Repaired(), ElementsAre("Double click", "Double click"));
}

TEST_F(ClickFixups, WhatLiesBetweenStaysBehindTheDoubleClick) {
    Click(Place, 100);
    simulated::UserMovesTo({501, 500});
    simulated::UserPresses(simulated::Button::Right);
    simulated::UserReleases(simulated::Button::Right);
    Click({501, 500}, 100);
    simulated::UserTaps('A');
    EXPECT_THAT(Repaired(), ElementsAre("Double click", "Move", "Right down", "Right up", "A down", "A up"));
}

TEST_F(ClickFixups, OtherWindowsDoNotMatterAndAPauseIsNoTime) {
    ShowRecordingStatus();
    Click(Place, 100);
    Command2_MouseDown();
    simulated::RunFor(5000);
    Command2_MouseUp();
    simulated::AddWindow({.className = "Dialog", .rect = {400, 400, 600, 600}});
    Click(Place, 100);
    EXPECT_THAT(Repaired(), ElementsAre("Double click"));
}

TEST_F(ClickFixups, TheSystemsDoubleClickTimeIsReadAtTheStart) {
    Stop();
    simulated::SetDoubleClick(100, {4, 4});
    Start();
    Click(Place, 100);
    Click(Place, 101);
    EXPECT_EQ(Repaired().size(), 4U);
}

TEST_F(ClickFixups, ScrollLockIsALeftButtonWithoutPlaceWindowAndTime) {
    simulated::RunFor(300);
    for (int i = 0; i < 4; ++i) simulated::UserPressesKey(ScrollLockKey);
    simulated::UserReleasesKey(ScrollLockKey);
    simulated::UserTaps(ScrollLockKey);
    const Job job = Stop();
    ASSERT_THAT(NamesOf(job.Events), ElementsAre("Left down", "Left up", "Left down", "Left up"));
    for (const JobEvent& event : job.Events) {
        const std::int32_t flags = event.dwFlags();
        EXPECT_EQ(event.word, (std::array<std::int32_t, 7>{0, 0, 0, 0, flags, 0, 0}));
        EXPECT_EQ(event.WindowChainIndex, NoWindowMarker);
    }
}

// No input of a user should ring these alarms.
TEST_F(ClickFixups, AFoldThatCannotBeIsTold) {
    const auto repaired = [](const std::vector<std::int32_t>& flags) {
        recordingSession.recordingEvents.Reset(100);
        recordingSession.eventCount = static_cast<std::int32_t>(flags.size());
        for (std::int32_t i = 0; i < recordingSession.eventCount; ++i) {
            recordingSession.recordingEvents.NewSlot(i).dwFlags() = flags[static_cast<std::size_t>(i)];
        }
        RepairClicks();
        return NamesOf(recordingSession.recordingEvents.First(recordingSession.eventCount));
    };
    EXPECT_THAT(repaired({FirstHalfFlags, 0x8004, FirstHalfFlags, 0x8004, 0x8002, 0x8004, 0x8002}),
                ElementsAre("Double click", "Double click", "Left down"));
    EXPECT_THAT(repaired({FirstHalfFlags, 0x8002, 0x8002, 0x8002, 0x8001, 0x8004, 0x8002, 0x8004}),
                ElementsAre("Double click", "Move"));
    EXPECT_THAT(Boxes(), ElementsAre("|ovo ne valja", "|ovo fakat ne valja"));
}

}  // namespace
