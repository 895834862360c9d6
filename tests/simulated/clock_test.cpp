#include "platform/clock.h"

#include <gtest/gtest.h>

#include "platform/pump.h"
#include "platform/window_services.h"
#include "simulated/desktop.h"

using namespace simulated;
using platform::Pump;
using platform::Sleep;
using platform::TickCount;

TEST(Clock, OthersActInsideASleepTheProgramInThePump) {
    std::vector<std::pair<std::string, std::int64_t>> story;
    const auto tell = [&story](const char* what) { return [&story, what] { story.emplace_back(what, TickCount()); }; };
    After(100, tell("own"));
    MeanwhileAfter(300, tell("third other"));
    MeanwhileAfter(200, tell("other"));
    MeanwhileAt(200, tell("second other"));

    Pump();
    EXPECT_TRUE(story.empty());
    Sleep(250);
    platform::SleepUntil(240'000);  // has passed
    EXPECT_EQ(TickCount(), 250);
    Pump();
    platform::SleepUntil(300'500);

    const std::vector<std::pair<std::string, std::int64_t>> expected = {
        {"other", 200}, {"second other", 200}, {"own", 250}, {"third other", 300}};
    EXPECT_EQ(story, expected);
    EXPECT_EQ(platform::Microseconds(), 300'500);
}

TEST(Clock, ALatePumpGetsOneCallAndThePhaseStays) {
    std::vector<std::int64_t> calls;
    Every(100, [&calls] { calls.push_back(TickCount()); });
    RunFor(250);
    Sleep(400);
    RunFor(100);
    EXPECT_EQ(calls, (std::vector<std::int64_t>{100, 200, 650, 700}));
}

TEST(Clock, RunUntilStopsAtTheLimit) {
    bool done = false;
    MeanwhileAt(500, [&done] { done = true; });
    EXPECT_FALSE(RunUntil([&done] { return done; }, 400));
    EXPECT_EQ(TickCount(), 400);
    EXPECT_TRUE(RunUntil([&done] { return done; }, 400));
    EXPECT_EQ(TickCount(), 500);
}

TEST(Clock, TheWallClockCrossesALeapDay) {
    Sleep(1234);
    SetLocalTime({2004, 2, 28, 23, 59, 58});
    Sleep(86'400'000 + 2'000);
    const platform::LocalTime now = platform::LocalNow();
    EXPECT_EQ(now.month, 3);
    EXPECT_EQ(now.day, 1);
    EXPECT_EQ(now.hour * 3600 + now.minute * 60 + now.second, 0);
    EXPECT_EQ(platform::ShortDateText(), "3/1/2004");
}

TEST(Boxes, PumpWhileTheyAreOpen) {
    const WindowHandle editor = AddWindow({.caption = "editor"});
    std::string story;
    After(400, [&story] { story += "handler "; });
    AnswerNextBox(
        {.afterMs = 500, .whileOpen = [&story] { story += platform::CaptionOf(platform::ForegroundWindow()) + " "; }});
    EXPECT_TRUE(platform::AskYesNo("Stop?", "Tessarine"));
    EXPECT_EQ(story, "Tessarine handler ");
    EXPECT_EQ(platform::TickCount(), 500);
    EXPECT_EQ(platform::ForegroundWindow(), editor);
}
