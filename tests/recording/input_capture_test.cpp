#include "recording/input_capture.h"

#include "recording_stage.h"
#include "support/allocation_meter.h"

namespace {

class InputCapture : public RecordingStage {
protected:
    InputCapture() { Start(); }
};

// --- records ---

TEST_F(InputCapture, AKeyIsWrittenDownWithItsWindowAndTheTimeAfterTheLook) {
    simulated::RunFor(100);
    Key('A', 0);
    Key('A', 0x80);
    const JobEvent& down = Event(0);
    EXPECT_EQ(down.word, (std::array<std::int32_t, 7>{1, 30 * 65536 + 'A', 0, 100, 7, 0, 0}));
    EXPECT_EQ(TargetOf(down), "Edit");
    EXPECT_EQ(down.WaitForWindow, 10);
    EXPECT_EQ(down.IfNoWindow, 0);
    EXPECT_EQ(Event(1).word, (std::array<std::int32_t, 7>{1, 30 * 65536 + 'A', 2, 100, 7, 0, 0}));
    EXPECT_EQ(Event(1).WindowChainIndex, NoWindowMarker);
    EXPECT_EQ(Event(1).WaitForWindow, 0);
}

TEST_F(InputCapture, TheFlagsOfAKeyAreReducedToItsState) {
    const std::tuple<std::uint32_t, std::int32_t, bool, std::int32_t> cases[] = {
        {0x00, 0, true, 10},  {0x01, 1, true, 0},   {0x80, 2, false, 0}, {0x81, 3, false, 0},
        {0x20, 0, true, 10},  {0xA0, 2, false, 0},  {0x21, 1, true, 0},  {0xA1, 3, false, 0},
        {0x10, 16, false, 0}, {0x90, 18, false, 0}, {0x11, 17, false, 0}};
    for (const auto& [flags, state, hasWindow, wait] : cases) {
        SCOPED_TRACE(flags);
        recordingSession.keyDown['B'] = true;
        Key('B', flags);
        const JobEvent& event = Event(Newest());
        EXPECT_EQ(event.KeyState(), state);
        EXPECT_EQ(event.WindowChainIndex >= 0, hasWindow);
        EXPECT_EQ(event.WaitForWindow, wait);
    }
}

TEST_F(InputCapture, EveryMouseMessageHasItsFlagItsWindowAndItsData) {
    const std::tuple<std::uint32_t, std::int32_t, std::string, std::int32_t> cases[] = {
        {0x200, 0x8001, "", 0},  {0x201, 0x8002, "Notepad", 0}, {0x202, 0x8004, "", 0}, {0x204, 0x8008, "Notepad", 0},
        {0x205, 0x8010, "", 0},  {0x207, 0x8020, "Notepad", 0}, {0x208, 0x8040, "", 0}, {0x20B, 0x8080, "Notepad", -1},
        {0x20C, 0x8100, "", -1}, {0x20A, 0x8800, "Edit", -1}};
    simulated::Destroy(edit);
    edit = simulated::AddWindow({.className = "Edit", .rect = {0, 0, 9, 9}, .parent = notepad});
    simulated::SetFocus(edit);
    simulated::PlaceCursor({500, 500});
    for (const auto& [message, flags, target, data] : cases) {
        SCOPED_TRACE(message);
        Mouse(message, {11, 22}, 0xFFFF);
        const JobEvent& event = Event(Newest());
        EXPECT_EQ(event.word, (std::array<std::int32_t, 7>{0, 11, 22, data, flags, 0, 0}));
        EXPECT_EQ(TargetOf(event), target) << "the wheel has the focus, a press what is under the cursor";
        EXPECT_EQ(event.WaitForWindow, target.empty() ? 0 : 10);
    }
    EXPECT_EQ(Newest(), 9);
}

TEST_F(InputCapture, AHorizontalWheelIsRefusedAloudAndLeavesZeros) {
    for (int notch = 0; notch < 3; ++notch) Mouse(0x20E, {11, 22}, 120);
    EXPECT_THAT(simulated::ShownBoxes(), IsEmpty()) << "the desktop waits for a hook";
    platform::Pump();
    ASSERT_EQ(simulated::ShownBoxes().size(), 1U);
    EXPECT_EQ(simulated::ShownBoxes()[0].text, "Unknown mouse event! It will not be captured.");
    EXPECT_EQ(simulated::ShownBoxes()[0].title, "Unknown mouse event");
    EXPECT_EQ(simulated::ShownBoxes()[0].icon, platform::BoxIcon::Error);
    EXPECT_EQ(Newest(), 2);
    EXPECT_EQ(Event(2).word, (std::array<std::int32_t, 7>{}));
    EXPECT_EQ(Event(2).WindowChainIndex, 0);
    Mouse(0x20E, {11, 22}, 120);
    platform::Pump();
    EXPECT_EQ(simulated::ShownBoxes().size(), 2U) << "it is told again once the box was closed";
}

TEST_F(InputCapture, WithoutMovesOnlyTheOthersCountAndTellWhereTheCursorIs) {
    settings.Capture_Mouse_Moves = 0;
    simulated::UserMovesTo({400, 300});
    platform::Pump();
    EXPECT_EQ(Newest(), -1);
    EXPECT_EQ(recordingSession.LastCursorPosition, platform::Point());
    simulated::UserClicks({410, 310});
    simulated::UserMovesTo({500, 500});
    platform::Pump();
    EXPECT_THAT(Captured(), ElementsAre("Left down", "Left up"));
    EXPECT_EQ(recordingSession.LastCursorPosition, (platform::Point{410, 310}));
}

// The box stands in the middle of the screen, over the Notepad, until Enter closes it.
TEST_F(InputCapture, WhatTheUserDoesToABoxOfOursIsNoPart) {
    constexpr int enter = 13, right = 39;
    simulated::AnswerNextBox({.afterMs = 100, .whileOpen = [] {
                                  simulated::UserClicks({500, 500});
                                  simulated::UserClicks({500, 500}, simulated::Button::Right);
                                  simulated::UserTurnsWheel(120);
                                  simulated::UserTaps('A');
                                  simulated::UserTaps(
                                      right);  // an extended key, whose release is not left out by itself
                                  simulated::UserPressesKey(enter);
                                  simulated::UserPressesKey(right);
                                  simulated::UserPresses();
                              }});
    Mouse(0x20E, {11, 22}, 120);
    platform::Pump();
    ASSERT_EQ(simulated::ShownBoxes().size(), 1U);
    simulated::UserReleasesKey(enter);  // the box has closed on its press
    simulated::UserReleasesKey(right);
    simulated::UserReleases();
    platform::Pump();
    EXPECT_THAT(Captured(), ElementsAre("0", "Move", "Move")) << "the moves are nobody's";
    simulated::SetFocus(edit);
    simulated::UserTaps(right);
    simulated::UserClicks({500, 500});
    platform::Pump();
    EXPECT_THAT(Captured(), ElementsAre("0", "Move", "Move", "\x27 down", "\x27 up", "Move", "Left down", "Left up"));
}

// Its repeats go to the box and are left out, and its release is not.
TEST_F(InputCapture, AKeyThatIsHeldWhenABoxComesIsNotHeldForEver) {
    for (const std::uint32_t extended : {0U, 1U}) {
        Key('A', extended);
        simulated::AnswerNextBox({.whileOpen = [extended] {
            Key('A', extended);
            Key('A', extended | 0x80);
        }});
        platform::ShowBox("", "");
    }
    EXPECT_THAT(Captured(), ElementsAre("A down", "A up", "A down", "A up"));
}

TEST_F(InputCapture, TheStopKeyWorksInABoxOfOurs) {
    simulated::AnswerNextBox({.whileOpen = [] { simulated::UserTaps(PauseBreak); }});
    platform::ShowBox("", "");
    platform::Pump();
    EXPECT_EQ(saved.size(), 1U);
}

// --- keys that are held ---

TEST_F(InputCapture, AutoRepeatIsADownEachTimeAndAKeyFromBeforeDoesNotComeUp) {
    Key('S', 0x80);
    Key('A', 0);
    Key('A', 0);
    Key('A', 0);
    Key('A', 0x80);
    Key('A', 0x80);
    Key('D', 0x81);  // the rule does not look at extended keys
    EXPECT_THAT(Captured(), ElementsAre("A down", "A down", "A down", "A up", "D up"));
    EXPECT_EQ(windowArrays.chains.size(), 3U) << "each with a look of its own";
}

// --- our own windows ---

TEST_F(InputCapture, APressOnOurOwnWindowIsDroppedAndItsReleaseStays) {
    simulated::SetVisible(ownWindows.main, true);
    simulated::UserClicks({1000, 200});
    platform::Pump();
    EXPECT_THAT(Captured(), ElementsAre("Move", "Left up"));
    EXPECT_TRUE(windowArrays.chains.empty());
}

// --- one hook call inside another ---

TEST_F(InputCapture, ACallInsideTheLookOfAnotherTakesTheNextSlot) {
    simulated::PlaceCursor({500, 500});
    simulated::UserReleases();
    Mouse(0x201, {500, 500});
    EXPECT_THAT(Captured(), ElementsAre("Left down", "Left up"));
    EXPECT_EQ(TargetOf(Event(0)), "Edit");
    simulated::UserTaps('B');
    Key('A', 0);
    EXPECT_THAT(Captured(), ElementsAre("Left down", "Left up", "A down", "B down", "B up"));
    EXPECT_EQ(TargetOf(Event(2)), "Edit");
    EXPECT_EQ(Event(2).WindowChainIndex, Event(3).WindowChainIndex) << "both wrote the same chain";
}

TEST_F(InputCapture, CallsInsideALookMayGrowTheArrayUnderIt) {
    simulated::UserTaps('A');
    for (int i = 1; i <= 3000; ++i) simulated::UserMovesTo({i % 1000, 700});
    bool over = false;
    simulated::After(0, [&over] { over = true; });
    platform::Pump();
    EXPECT_TRUE(over);
    EXPECT_EQ(Newest(), 3001);
    EXPECT_GT(recordingSession.eventCapacity, 3000);
    EXPECT_EQ(NameOf(Event(0)), "A down");
    EXPECT_EQ(TargetOf(Event(0)), "Edit");
    EXPECT_EQ(Event(1000).dx(), 999);
}

TEST_F(InputCapture, AStopInsideALookLetsItComeToItsEnd) {
    simulated::UserTaps('A');
    simulated::UserTaps(PauseBreak);
    simulated::UserTaps('B');
    platform::Pump();
    ASSERT_EQ(saved.size(), 1U);
    ASSERT_THAT(NamesOf(saved[0].Events), ElementsAre("A down", "A up"));
    EXPECT_EQ(TargetOf(saved[0].Events[0]), "Edit");
}

// --- growth ---

TEST_F(InputCapture, RoomIsAskedForAtNineTenths) {
    for (int i = 0; i < 900; ++i) Mouse(0x200, {i, 0});
    EXPECT_EQ(recordingSession.eventCapacity, 1000) << "the newest is 899";
    Mouse(0x200, {900, 0});
    EXPECT_EQ(recordingSession.eventCapacity, 1200);
}

// --- memory ---

TEST_F(InputCapture, AtTheStartItTakesNextToNoMemory) {
    Stop();
    const AllocationMeter meter;
    Start();
    EXPECT_LT(meter.Held(), 1'000'000);
    EXPECT_LT(meter.Largest(), 100'000U);
}

// What grows without end is got in pieces of 60 KB and more.
TEST_F(InputCapture, WithoutMemoryItEndsWithWhatItHas) {
    constexpr std::size_t piece = 60'000;
    const std::function<void()> acts[] = {
        [] {
            Mouse(0x200, {1, 1});
        },
        [] { Key('A', 0); },
        [this] {
            simulated::MoveWindow(notepad, {simulated::CentreOf(notepad).x % 300, 100});
            Key('A', 0);
        },
    };
    recordingViewStandIn.saveAs = nullptr;
    for (const auto& act : acts) {
        std::size_t before = 0;
        {
            const LackOfMemory lack(piece);
            simulated::AnswerNextBox({.whileOpen = [] { EXPECT_FALSE(platform::InHookCall()); }});
            for (int i = 0; i < 10'000 && RecordingActive(); ++i) {
                before = static_cast<std::size_t>(Newest()) + 1;
                act();
            }
        }
        EXPECT_FALSE(RecordingActive());
        EXPECT_GE(RecordedJob().Events.size(), before) << "all can be saved";
        EXPECT_GT(before, 50U);
        EXPECT_EQ(simulated::ShownBoxes().back().text,
                  "There is no memory left to go on recording. What was recorded until now can be saved.");
        Start();
        Key('B', 0);
        EXPECT_EQ(NameOf(Event(0)), "B down") << "the next recording is possible";
    }
}

// --- windows that hang ---

TEST_F(InputCapture, AWindowThatDoesNotAnswerHoldsUpNoClick) {
    simulated::SetHung(notepad);
    simulated::PlaceCursor({500, 500});
    const std::int64_t before = platform::TickCount();
    Mouse(0x201, {500, 500});
    Mouse(0x204, {500, 500});
    EXPECT_EQ(platform::TickCount(), before);
    EXPECT_EQ(TargetOf(Event(0)), "Edit");
    Key('A', 0);
    EXPECT_LE(platform::TickCount() - before, simulated::HungMilliseconds) << "the longest that the desktop may take";
    EXPECT_EQ(TargetOf(Event(2)), "Notepad");
}

TEST_F(InputCapture, KeysAreLateByAsMuchAsTheLookTakesAndTheMouseIsNot) {
    simulated::SetHung(notepad);
    Mouse(0x20A, {500, 500}, 120);
    EXPECT_EQ(Event(0).time(), 0);
    const std::int64_t before = platform::TickCount();
    Key('A', 0);
    EXPECT_EQ(Event(1).time(), platform::TickCount());
    EXPECT_GT(Event(1).time(), before);
}

// --- what the procedures are told besides ---

TEST_F(InputCapture, AForeignCodeIsNotRecorded) {
    KeyboardHookProc(3, {});
    EXPECT_EQ(Newest(), -1);
    EXPECT_TRUE(recordingSession.hookBusy);
}

}  // namespace
