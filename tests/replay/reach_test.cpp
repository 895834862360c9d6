// Input on other monitors, for programs that run as administrator, and for a desktop that is away.
#include "replay/reach.h"

#include "replay/run_job.h"
#include "replay/timing.h"
#include "replay_stage.h"

using simulated::Point;
using simulated::TextOf;

namespace {

class MonitorsTest : public ReplayStage {};

// One to the right of the primary monitor and lower, one to the left and above it.
TEST_F(MonitorsTest, ClicksMovesAndWheelGoWhereTheyWere) {
    simulated::SetMonitors({{0, 0, 1280, 1024}, {1280, 200, 3200, 1280}, {-1024, -768, 0, 0}});
    const auto right = simulated::AddWindow({.caption = "right", .rect = {1400, 300, 2000, 900}});
    const auto left = simulated::AddWindow({.caption = "left", .rect = {-900, -700, -100, -100}});
    job.InWindow(LevelOf(right)).Move(3199, 1279).Click(Left, 1999, 899);
    job.InWindow(LevelOf(left)).Click(Right, -900, -700).Wheel(120, -101, -101).Move(-1024, -768);
    EXPECT_EQ(Replay(), 1);
    const std::pair<std::int32_t, Point> places[] = {{platform::MouseLeftDown, {1999, 899}},
                                                     {platform::MouseLeftUp, {1999, 899}},
                                                     {platform::MouseRightDown, {-900, -700}},
                                                     {platform::MouseRightUp, {-900, -700}},
                                                     {platform::MouseWheel, {-101, -101}}};
    for (const auto& [action, place] : places) EXPECT_EQ(Actions(action).at(0).position, place);
    EXPECT_EQ(Actions(platform::MouseRightDown)[0].window, left);
    EXPECT_EQ(Actions(platform::MouseLeftDown)[0].window, right);
    EXPECT_EQ(Actions(platform::MouseLeftDown)[0].record.mouseTime(), 0) << "the system stamps it";
    const auto moves = Actions(platform::MouseMove);
    EXPECT_EQ(moves.front().position, (Point{3199, 1279}));
    EXPECT_TRUE(std::ranges::count(moves, Point{-1024, -768}, &simulated::InputEntry::position) > 0);
}

TEST_F(MonitorsTest, AMonitorThatIsGoneLeavesTheNearestEdge) {
    InNotepad().Move(-500, 300).Move(1500, 2000);
    simulated::PlaceCursor({640, 512});
    EXPECT_EQ(Replay(), 1);
    const auto moves = Actions(platform::MouseMove);
    EXPECT_EQ(moves.front().position, (Point{0, 300}));
    EXPECT_EQ(moves[2].position, (Point{1279, 1023}));
    EXPECT_EQ(platform::CursorPosition(), (Point{640, 512})) << "back where the user had it";
}

// --- programs that run as administrator ---

class ElevatedTest : public ReplayStage {
protected:
    ElevatedTest() { simulated::KeepInputFrom(notepad); }

    static constexpr const char* Reason =
        "The window 'Untitled - Notepad' belongs to a program that runs as administrator, and Windows keeps input "
        "from it. Start Tessarine as administrator and run the job again.";
};

TEST_F(ElevatedTest, APressAKeyAndATextAreFailuresBeforeTheyAreSent) {
    const std::vector<std::function<void()>> actions = {
        [&] { InEdit().Click(Left, 300, 300); }, [&] { InEdit().Type("a"); },
        [&] { InEdit().TextRow("a"); },          [&] { InEdit().Wheel(120, 300, 300); },
        [&] { InEdit().DoubleClick(300, 300); }, [&] { job.InNoWindow().Click(Left, 300, 300); },
    };
    for (const std::int32_t level : {SafetyHigh, SafetyMedium, SafetyLow}) {
        for (std::size_t i = 0; i < actions.size(); ++i) {
            NewJob(level);
            reason.clear();
            actions[i]();
            EXPECT_EQ(Replay(), WindowOutOfReach) << i << " at level " << level;
            EXPECT_EQ(reason, Reason) << i << " at level " << level;
        }
    }
}

TEST_F(ElevatedTest, WhatFollowsIsUpToTheAction) {
    const auto other = simulated::AddWindow({.className = "Edit", .caption = "open", .rect = {800, 100, 1200, 500}});
    InEdit().IfNoWindow(SkipAction).Click(Left, 300, 300);
    job.InWindow(LevelOf(other)).Click(Left, 900, 300).Type("b");
    EXPECT_EQ(Replay(), 1);
    EXPECT_EQ(TextOf(other), "b");
    ASSERT_THAT(Actions(platform::MouseLeftDown), SizeIs(1));
    EXPECT_EQ(Actions(platform::MouseLeftDown)[0].window, other);
}

// --- a desktop that is away ---

class LockedTest : public ReplayStage {
protected:
    void ExpectRefused() {
        EXPECT_EQ(Replay(), DesktopOutOfReach);
        EXPECT_THAT(reason, HasSubstr("The desktop cannot be reached"));
    }
};

TEST_F(LockedTest, ARunSendsNothing) {
    simulated::LockDesktop();
    InEdit().IfNoWindow(ExecuteAnyway).Click(Left, 300, 300).Type("a");
    simulated::SetToggle(platform::VirtualKeyCapital, true);
    ExpectRefused();
    simulated::LockDesktop(false);
    EXPECT_THAT(simulated::Journal(), IsEmpty());
    EXPECT_EQ(TextOf(edit), "");
}

// In a wait, in a search, within a text: the reason is never that a window was missing.
TEST_F(LockedTest, ARunThatIsCutOffSaysSo) {
    const std::vector<std::function<void()>> stories = {
        [&] { InEdit().Type("a").Wait(5000).Type("b"); },
        [&] {
            InEdit().Type("a").InWindow({"Late", "Window"}).Wait(1000).Type("b");
        },
        [&] { InEdit().TextRow(std::string("a") + std::string(50, 'b')).Wait(9000).Key(13); },
        [&] {
            InEdit().Type("a").IfNoWindow(SkipAction).InWindow({"Late", "Window"}).Wait(1000).Type("b");
        },
    };
    for (std::size_t i = 0; i < stories.size(); ++i) {
        SCOPED_TRACE(i);
        NewJob();
        simulated::SetText(edit, "");
        stories[i]();
        simulated::MeanwhileAfter(3000, [] { simulated::LockDesktop(); });
        ExpectRefused();
        EXPECT_EQ(TextOf(edit).front(), 'a') << "what was sent before stays sent";
        simulated::LockDesktop(false);
        simulated::RunFor(100);
    }
}

}  // namespace
