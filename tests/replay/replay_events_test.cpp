#include "replay/replay_events.h"

#include <limits>

#include "replay/replay_log.h"
#include "replay/timing.h"
#include "replay_stage.h"
#include "sounds/key_sounds.h"

using platform::WindowHandle;
using simulated::TextOf;

namespace {

int soundsPlayed = 0;

}  // namespace

int KeySoundCount() {
    return 1;
}

void PlayKeySound(int) {
    ++soundsPlayed;
}

namespace {

constexpr int KeyA = 'A';
constexpr int Shift = 160;

class ReplayEventsTest : public ReplayStage {};

// --- time ---

TEST_F(ReplayEventsTest, EveryEventComesAtItsMomentAtEverySpeed) {
    // Halves of a millisecond round to the even neighbour: 1005 ms at 200 percent is 502.
    const std::pair<std::int32_t, std::vector<std::int64_t>> cases[] = {
        {100, {0, 401, 1005}}, {50, {0, 802, 2010}}, {200, {0, 200, 502}}, {1000, {0, 40, 100}}};
    for (const auto& [speed, downs] : cases) {
        SCOPED_TRACE(speed);
        NewJob(SafetyLow, speed);
        InEdit().At(0).KeyDown(KeyA).At(401).KeyDown(KeyA).At(1005).KeyDown(KeyA);
        const std::int64_t began = platform::TickCount();
        EXPECT_EQ(Replay(), 1);
        EXPECT_EQ(TimesSince(began, Keys()), downs);
    }
}

TEST_F(ReplayEventsTest, MaximumSpeedWaitsForNothingButReleasesAndKeysThatAreNotForAnEdit) {
    NewJob(SafetyLow, MaximumSpeed);
    InEdit().At(5000).Key(KeyA);
    EXPECT_EQ(Replay(), 1);
    EXPECT_EQ(platform::TickCount(), 0) << "an edit control takes keys at full rate";
    NewJob(SafetyLow, MaximumSpeed);
    InNotepad().At(5000).Key(KeyA).Click(Left, 300, 300).Click(Right, 300, 300).Click(Middle, 300, 300);
    EXPECT_EQ(Replay(), 1);
    EXPECT_EQ(platform::TickCount(), 20 + 20 + 20) << "one key down, a left and a right release";
}

TEST_F(ReplayEventsTest, AfterALateWindowTheEventsCatchUp) {
    simulated::Destroy(notepad);
    const platform::WindowHandle late = simulated::AppearsAfter(3000, NotepadSpec());
    simulated::SetFocus(late);
    job.Header().SafetyLevel = SafetyMedium;
    job.InWindow({"Notepad", "Untitled - Notepad", 0, {0, 0, 1, {-1, -1}, {-1, -1}, {100, 100, 700, 500}}});
    job.At(0).Click(Left, 300, 300).At(2000).Key(KeyA).At(9000).Key('B');
    EXPECT_EQ(Replay(), 1);
    const auto downs = Keys();
    ASSERT_EQ(downs.size(), 4U);
    EXPECT_GT(downs[0].time, 3000);
    EXPECT_LT(downs[0].time, 6000) << "sent as soon as its window was there";
    EXPECT_EQ(downs[2].time, 9000) << "and the recording's clock holds again";
}

// --- mouse ---

TEST_F(ReplayEventsTest, SkippedMovesKeepTheLastOfARun) {
    job.Header().SkipMouseMoves = 1;
    InEdit().Move(1, 1).Move(2, 2).Move(300, 300).Press(Left, 300, 300);
    job.Move(5, 5).Move(350, 320).Release(Left, 350, 320);
    EXPECT_EQ(Replay(), 1);
    // Each event moves the cursor itself; the two moves that are played are sent once more as events.
    std::vector<std::int32_t> drags;
    for (const auto& entry : Actions(platform::MouseMove)) drags.push_back(entry.position.x);
    EXPECT_THAT(drags, ElementsAre(300, 300, 300, 350, 350, 350, 0));
}

TEST_F(ReplayEventsTest, ADoubleClickIsFourLeftRecordsWithPauses) {
    for (const std::int32_t level : {SafetyHigh, SafetyLow}) {
        SCOPED_TRACE(level);
        NewJob(level);
        InEdit().At(0).DoubleClick(300, 300).At(100).Move(5, 5);
        EXPECT_EQ(Replay(), 1);
        const auto downs = Actions(platform::MouseLeftDown);
        ASSERT_EQ(downs.size(), 2U);
        EXPECT_EQ(downs[1].time - downs[0].time, 40);
        EXPECT_THAT(TimesSince(downs[0].time, Actions(platform::MouseLeftUp)), ElementsAre(testing::_, 60));
        EXPECT_EQ(downs[1].position, (platform::Point{300, 300}));
    }
}

// What the system would make of the presses: "1" a single one, "2" the second half of a double click.
std::string Pairing() {
    std::string told;
    for (const simulated::InputEntry& entry : simulated::Journal()) {
        constexpr std::int32_t Downs = platform::MouseLeftDown | platform::MouseRightDown | platform::MouseXDown;
        if (entry.record.dwType() == platform::InputMouse && (entry.record.dwFlags() & Downs) != 0) {
            told += entry.doubleClick ? '2' : '1';
        }
    }
    return told;
}

// The first press of a run is late by the 500 ms that a window met for the first time gets, and the others are not.
TEST_F(ReplayEventsTest, ClicksThatWereRecordedApartAreNeverADoubleClick) {
    for (const std::int32_t speed : {50, 100, 400, 1000, MaximumSpeed}) {
        for (const std::int32_t level : {SafetyHigh, SafetyMedium, SafetyLow}) {
            for (const std::int32_t apart : {501, 550, 700, 950, 5000}) {
                SCOPED_TRACE(testing::Message() << speed << " percent, level " << level << ", " << apart << " ms");
                NewJob(level, speed);
                job.Header().RepeatCount = 2;
                InEdit().At(100).Click(Left, 300, 300).At(100 + apart).Click(Left, 301, 299).TextRow("ab");
                job.At(100 + 2 * apart).DoubleClick(300, 300).At(100 + 3 * apart).Click(Left, 300, 300);
                EXPECT_EQ(Replay(), 2);
                EXPECT_EQ(Pairing(), "1112111121");
                const auto downs = Actions(platform::MouseLeftDown);
                for (std::size_t i = 1; i < downs.size(); ++i) {
                    if (downs[i].doubleClick) continue;
                    EXPECT_GT(downs[i].time - downs[i - 1].time, 500) << "press " << i;
                }
                platform::Sleep(1000);
            }
        }
    }
}

TEST_F(ReplayEventsTest, OnlyAPressThatWouldBecomeADoubleClickIsHeldBack) {
    const auto other = simulated::AddWindow({.className = "Other", .rect = {800, 100, 1200, 500}, .active = false});
    const std::tuple<const char*, std::function<void()>, std::string> cases[] = {
        {"recorded close", [&] { job.At(500).Click(Left, 300, 300); }, "12"},
        {"another place", [&] { job.At(900).Click(Left, 304, 300); }, "11"},
        {"another button", [&] { job.At(900).Click(Right, 300, 300); }, "11"},
        {"another X button", [&] { job.At(900).Click(XButton1, 300, 300).Click(XButton2, 300, 300); }, "111"},
        {"a button between", [&] { job.At(900).Click(Right, 300, 300).At(2000).Click(Left, 300, 300); }, "111"},
        {"another window", [&] { job.InWindow(LevelOf(other)).At(900).Click(Left, 900, 300); }, "11"},
    };
    for (const auto& [what, second, pairing] : cases) {
        SCOPED_TRACE(what);
        NewJob(SafetyLow, MaximumSpeed);
        InEdit().At(0).Click(Left, 300, 300);
        second();
        const std::int64_t began = platform::TickCount();
        EXPECT_EQ(Replay(), 1);
        EXPECT_EQ(Pairing(), pairing);
        EXPECT_LT(platform::TickCount() - began, 100) << "nothing was held back";
        platform::Sleep(1000);
    }
}

TEST_F(ReplayEventsTest, TheDoubleClickTimeIsThatOfThisSystem) {
    simulated::SetDoubleClick(900, {40, 40});
    job.Header().SpeedPercent = 1000;
    InEdit().At(0).Click(Left, 300, 300).At(1000).Click(Left, 310, 300).At(1800).Click(Left, 310, 310);
    EXPECT_EQ(Replay(), 1);
    EXPECT_EQ(Pairing(), "112") << "900 ms apart is close here";
}

TEST_F(ReplayEventsTest, APressThatIsHeldBackIsCheckedAgainAndCanBeCanceled) {
    job.Header().SpeedPercent = MaximumSpeed;
    InEdit().At(0).Click(Left, 300, 300).At(2000).Click(Left, 300, 300);
    const std::pair<const char*, std::function<void()>> changes[] = {
        {"what came to lie over it meanwhile", [&] { simulated::Cover(notepad); }},
        {"its window was moved, with the cursor still in it", [&] {
             simulated::MoveWindow(notepad, {150, 130});
         }}};
    for (const auto& [what, change] : changes) {
        simulated::MeanwhileAfter(800, change);
        EXPECT_EQ(Replay(), 1);
        const auto downs = Actions(platform::MouseLeftDown);
        EXPECT_EQ(downs.back().window, edit) << what;
        EXPECT_EQ(downs.back().place, downs.front().place) << what;
        simulated::ClearJournals();
        platform::Sleep(1000);
    }
    simulated::UserHoldsEscapeFrom(platform::TickCount() + 700, platform::TickCount() + 720);
    EXPECT_EQ(Replay(), ReplayCanceled);
    EXPECT_EQ(Pairing(), "1") << "and it does not pair with the run before";
}

TEST_F(ReplayEventsTest, APaneThatDrawsSlowlyIsGivenTimeAtEveryLevel) {
    for (const std::int32_t level : {SafetyHigh, SafetyLow}) {
        NewJob(level);
        const auto pane =
            simulated::AddWindow({.className = "NetUIHWND", .caption = "Pane", .rect = {0, 600, 200, 800}});
        job.InWindow(LevelOf(pane)).At(0).Press(Left, 100, 700);
        const std::int64_t began = platform::TickCount();
        EXPECT_EQ(Replay(), 1);
        EXPECT_GE(platform::TickCount() - began, 500);
        simulated::Destroy(pane);
    }
}

TEST_F(ReplayEventsTest, StatusWindowsStepAsideBeforeAClickLandsOnThem) {
    settings.Display_Executing_Status = 1;
    statusViewStandIn.executing2 = {true, {0, 100, 300, 200}};
    job.Header().SafetyLevel = SafetyLow;
    job.Click(Left, 0, 150).Click(Left, 150, 150);
    EXPECT_EQ(Replay(), 1);
    EXPECT_GT(statusViewStandIn.executing2.rectangle.left, 900);
}

// --- windows that are not there ---

// Nothing counts as good before the first wait, search or sending, so what comes before that is not sent. The cursor
// goes along all the same.
TEST_F(ReplayEventsTest, BeforeTheFirstSuccessNothingIsSent) {
    job.Header().SpeedPercent = MaximumSpeed;
    job.Move(400, 300).KeyDown(KeyA).KeyUp(KeyA).Press(XButton1, 400, 300).KeyDown('B').KeyUp('B');
    EXPECT_EQ(Replay(), 1);
    EXPECT_EQ(TextOf(edit), "b");
}

TEST_F(ReplayEventsTest, AMissingWindowStopsSkipsOrIsIgnored) {
    using Case = std::tuple<IfNoWindowChoice, std::int32_t, std::size_t, std::string>;
    for (const auto& [choice, result, presses, text] :
         {Case{StopExecuting, -4, 0, ""}, Case{SkipAction, 1, 1, "b"}, Case{ExecuteAnyway, 1, 2, "ab"}}) {
        SCOPED_TRACE(choice);
        reason.clear();
        simulated::SetText(edit, "");
        NewJob();
        InEdit();
        InLostWindow().IfNoWindow(choice, 0).Click(Left, 300, 300).Wait(2000).Key(KeyA);
        InEdit().Wait(2000).Click(Left, 300, 300).Key('B');
        EXPECT_EQ(Replay(), result);
        EXPECT_EQ(reason, "Cannot find window: 'Nowhere'");
        EXPECT_EQ(Actions(platform::MouseLeftDown).size(), presses);
        EXPECT_EQ(TextOf(edit), text);
    }
}

TEST_F(ReplayEventsTest, AReleaseFollowsASkippedPressIntoNothing) {
    job.Header().SpeedPercent = MaximumSpeed;  // a wait in between would count as a success
    InEdit();
    InLostWindow().IfNoWindow(SkipAction, 0).KeyDown(Shift).KeyUp(Shift).Press(Left, 1, 1).Release(Left, 1, 1);
    EXPECT_EQ(Replay(), 1);
    EXPECT_TRUE(Keys().empty());
    EXPECT_TRUE(Actions(platform::MouseLeftUp).empty());
}

TEST_F(ReplayEventsTest, KeysIntoTheWindowOfTheLastKeyAreNotSearchedFor) {
    settings.play_sounds_for_keystrokes = 1;
    InEdit().At(0).Key(KeyA).At(1000).Key('B');
    simulated::MeanwhileAt(500, [&] { simulated::SetCaption(notepad, "changed"); });
    EXPECT_EQ(Replay(), 1);
    EXPECT_EQ(TextOf(edit), "ab");
    EXPECT_EQ(soundsPlayed, 2) << "once for each key that goes down";
}

TEST_F(ReplayEventsTest, KeysNeverFollowAStolenFocus) {
    for (const std::int32_t level : {SafetyHigh, SafetyMedium}) {
        SCOPED_TRACE(level);
        simulated::SetFocus(edit);
        simulated::SetText(edit, "");
        NewJob(level);
        InEdit().At(0).Key(KeyA).At(2000).Key('B').At(4000).TextRow("cd").At(6000).TextRow("ef").At(8000).Move(1, 1);
        for (const std::int64_t moment : {1500, 3500, 7200}) {
            simulated::MeanwhileAfter(moment, [] {
                simulated::AddWindow({.className = "Edit", .caption = "Thief", .rect = {800, 100, 1200, 500}});
            });
        }
        EXPECT_EQ(Replay(), 1);
        EXPECT_EQ(TextOf(edit), "abcdef");
    }
}

TEST_F(ReplayEventsTest, KeysWhoseFocusCannotBeWonBackFail) {
    using Case = std::tuple<IfNoWindowChoice, std::int32_t, std::string, std::string>;
    for (const auto& [choice, result, text, stolen] :
         {Case{StopExecuting, -4, "a", ""}, {SkipAction, 1, "a", ""}, {ExecuteAnyway, 1, "a", "bc"}}) {
        for (const bool asText : {false, true}) {
            SCOPED_TRACE(testing::Message() << choice << (asText ? " text" : " keys"));
            simulated::Destroy(notepad);
            OpenNotepad();
            NewJob();
            InEdit().IfNoWindow(choice, 0);
            if (asText) {
                job.At(0).TextRow("a{L_SHIFT DOWN}{L_SHIFT UP}bc").At(3000).Move(1, 1);
            } else {
                job.At(0).Key(KeyA).At(1500).Key('B').Key('C');
            }
            WindowHandle thief = 0;
            simulated::MeanwhileAfter(1200, [&] {
                thief = simulated::AddWindow({.className = "Edit", .caption = "Thief", .rect = {800, 100, 1200, 500}});
                simulated::SetCaption(notepad, "gone");
            });
            EXPECT_EQ(Replay(), result);
            EXPECT_EQ(TextOf(edit), text);
            EXPECT_EQ(TextOf(thief), stolen);
            simulated::Destroy(thief);
        }
    }
}

TEST_F(ReplayEventsTest, ATextThatIsBrokenOffReleasesItsShift) {
    InEdit().IfNoWindow(SkipAction, 0).At(0).TextRow("{L_SHIFT DOWN}ab{L_SHIFT UP}").At(2000).Move(1, 1);
    simulated::MeanwhileAt(700, [&] { simulated::Destroy(notepad); });
    simulated::MeanwhileAt(700, [&] { simulated::AddWindow({.className = "Other", .rect = {800, 100, 1200, 500}}); });
    EXPECT_EQ(Replay(), 1);
    ASSERT_FALSE(Keys().empty());
    EXPECT_EQ(Keys().back().record.KeyCode() & 0xFFFF, 160);
    EXPECT_EQ(Keys().back().record.KeyState(), platform::KeyUp);
}

// A text that a person wrote may open a window and type into it.
TEST_F(ReplayEventsTest, ATextGoesOnInTheWindowThatItsOwnKeysOpened) {
    WindowHandle opened = 0;
    simulated::OnKey(edit, 'F', [&] {
        opened = simulated::AddWindow(
            {.className = "Edit", .caption = "Find", .rect = {300, 300, 500, 400}, .owner = notepad});
    });
    InEdit().At(0).TextRow("{L_CTRL DOWN}f{L_CTRL UP}abcdef").At(2000).Move(1, 1);
    EXPECT_EQ(Replay(), 1);
    EXPECT_EQ(TextOf(opened), "abcdef");
    EXPECT_EQ(TextOf(edit), "");

    // Another program's window is not of its making, and a search for Notepad would not lead back to the dialog.
    simulated::Destroy(opened);
    simulated::MeanwhileAfter(1600, [&] {
        simulated::AddWindow({.className = "Edit", .caption = "Thief", .rect = {0, 0, 99, 99}, .thread = 9});
    });
    EXPECT_EQ(Replay(), -4);
    EXPECT_EQ(reason, "Cannot find window: 'Find'");
    EXPECT_EQ(TextOf(edit), "");
}

// After a window was not found, keys for another one are not searched for: the failure stands for them too. Only
// the window that failed is looked for again, without a wait.
TEST_F(ReplayEventsTest, AFailureStandsForTheNextWindowToo) {
    job.Header().SpeedPercent = MaximumSpeed;
    InEdit();
    InLostWindow().IfNoWindow(SkipAction, 1).KeyDown('X');
    InEdit().IfNoWindow(SkipAction, 1).KeyDown(KeyA);
    EXPECT_EQ(Replay(), 1);
    EXPECT_TRUE(Keys().empty()) << "though the edit control is there";
}

TEST_F(ReplayEventsTest, TheSameLostWindowStopsAtOnceTheSecondTime) {
    InEdit();
    InLostWindow().IfNoWindow(SkipAction, 1).KeyDown('X');
    job.IfNoWindow(StopExecuting, 60).KeyDown('Y');
    EXPECT_EQ(Replay(), -1);
    EXPECT_LT(platform::TickCount(), 5000) << "the minute was not waited for";
}

TEST_F(ReplayEventsTest, InputThatTheSystemRefusesLeavesAFailedVerdict) {
    simulated::SetInjection(simulated::Injection::Refused);
    simulated::PlaceCursor({300, 300});
    settings.Display_Executing_Status = 1;
    InEdit().Click(Left, 300, 300).Key(KeyA);
    Replay();
    EXPECT_THAT(statusViewStandIn.list.at(0), HasSubstr("FAILED 1. MOUSE: Left click"));
}

// --- ESC ---

TEST_F(ReplayEventsTest, EscapeNeverCancelsTheFirstEventAndAlwaysTheSecond) {
    simulated::UserPressesKey(27);
    job.Move(1, 1).Move(2, 2).Move(3, 3);
    EXPECT_EQ(Replay(), -2);
    EXPECT_EQ(reason, "User canceled job execution by pressing ESC key");
    EXPECT_EQ(Actions(platform::MouseMove).size(), 1U) << "event 0 alone";
    NewJob();
    job.Header().RepeatCount = 0;
    job.At(10).Move(1, 1);
    EXPECT_EQ(Replay(), -2) << "so an endless job of one event ends, too";
}

TEST_F(ReplayEventsTest, ATapBetweenTwoPollsCancelsAndLeavesTheCursorWhereItIs) {
    simulated::PlaceCursor({700, 700});
    job.At(0).Move(1, 1).At(5000).Move(2, 2);
    simulated::MeanwhileAt(1010, [] { simulated::UserTaps(27); });
    EXPECT_EQ(Replay(), -2);
    EXPECT_EQ(platform::TickCount(), 1050);
    EXPECT_EQ(reason, "") << "seen in a wait, it gives no reason";
    EXPECT_EQ(platform::CursorPosition(), (platform::Point{1, 1}));
}

// A search that the user ends counts as one that found nothing.
TEST_F(ReplayEventsTest, ACancelInsideASearchIsAFailedCheck) {
    for (const auto& [choice, result] : {std::pair{StopExecuting, -2}, {SkipAction, 1}, {ExecuteAnyway, 1}}) {
        SCOPED_TRACE(choice);
        NewJob();
        InLostWindow().IfNoWindow(choice, 60).Press(Left, 1, 1).Release(Left, 1, 1);
        const std::int64_t began = platform::TickCount();
        simulated::MeanwhileAt(began + 1000, [] { simulated::UserTaps(27); });
        EXPECT_EQ(Replay(), result);
        EXPECT_LT(platform::TickCount() - began, 2000);
        EXPECT_EQ(reason, "");
    }
}

TEST_F(ReplayEventsTest, TheJobsOwnEscapeIsNotTheUsers) {
    InEdit().At(0).Key(KeyA).At(100).KeyDown(27).At(1000).Move(1, 1).At(1100).KeyUp(27).At(1110).Move(2, 2);
    EXPECT_EQ(Replay(), 1);
}

// --- text rows ---

TEST_F(ReplayEventsTest, ATextRowSpreadsItsKeysOverItsTime) {
    struct Case {
        std::string text;
        std::int32_t recordedMs, speed;
        std::vector<std::int64_t> keys;  // down and up of each
        std::int64_t nextEvent;
    };
    for (const Case& one : {Case{"abc", 100, 100, {0, 0, 33, 33, 66, 66}, 100},
                            {"", 500, 100, {}, 500},                             // not typed, it takes its time
                            {"ab", 1001, MaximumSpeed, {0, 0, 50, 50}, 100}}) {  // a tenth of it
        SCOPED_TRACE(one.text);
        NewJob(SafetyLow, one.speed);
        InEdit().At(0).TextRow(one.text).At(one.recordedMs / 2).Continuation().At(one.recordedMs).Move(1, 1);
        const std::int64_t began = platform::TickCount();
        EXPECT_EQ(Replay(), 1);
        EXPECT_EQ(TimesSince(began, Keys()), one.keys);
        EXPECT_EQ(Actions(platform::MouseMove).front().time - began, one.nextEvent);
    }
}

TEST_F(ReplayEventsTest, ATextRowWithoutItsWindowStopsIsSkippedOrTypedAnyway) {
    using Case = std::tuple<IfNoWindowChoice, std::int32_t, std::string>;
    for (const auto& [choice, result, text] :
         {Case{StopExecuting, -4, ""}, Case{SkipAction, 1, ""}, Case{ExecuteAnyway, 1, "ab"}}) {
        SCOPED_TRACE(choice);
        simulated::SetText(edit, "");
        NewJob();
        InEdit();
        InLostWindow().IfNoWindow(choice, 0).At(100).TextRow("ab").At(3000).Move(1, 1);
        const std::int64_t began = platform::TickCount();
        EXPECT_EQ(Replay(), result);
        EXPECT_EQ(TextOf(edit), text);
        if (result < 1) continue;
        // The row's own time counts from its moment, so the 200 ms of the search come on top.
        EXPECT_EQ(Actions(platform::MouseMove).front().time - began, 3200);
    }
}

TEST_F(ReplayEventsTest, AContinuationAndAnUnknownTypeAreNeverSent) {
    JobEvent unknown;
    unknown.dwType() = 3;
    job.TextRow("x").Continuation().Raw(unknown);
    job.Built().Strings[0] = "";
    EXPECT_EQ(Replay(), 1);
    EXPECT_TRUE(Keys().empty());
}

TEST_F(ReplayEventsTest, ABadTextShowsTheNumberOfItsTokenAndTheRunGoesOn) {
    InEdit().TextRow("{NOSUCHKEY}").Wait(100).Key(KeyA);
    EXPECT_EQ(Replay(), 1);
    EXPECT_THAT(Boxes(), ElementsAre("Invalid keystroke:\"{NOSUCHKEY}\"|0"));
    EXPECT_EQ(TextOf(edit), "a");
}

// --- what is shown and logged ---

TEST_F(ReplayEventsTest, TheListTellsEveryRowAndItsVerdict) {
    settings.Display_Executing_Status = 1;
    InEdit().Move(5, 5).Click(Left, 300, 300).Type("ab");
    job.Wait(100).DoubleClick(310, 310).Click(XButton2, 300, 300);
    EXPECT_EQ(Replay(), 1);
    EXPECT_THAT(
        statusViewStandIn.list,
        ElementsAre("OK   1. MOUSE: Left click at: Untitled - Notepad", "OK   2. KEYSTROKES: ab at: Untitled - Notepad",
                    "OK   3. MOUSE: Double click at: Untitled - Notepad",
                    "OK   4. MOUSE: Xbutton2 click at: Untitled - Notepad", "Job completed successfully!"));
    EXPECT_EQ(statusViewStandIn.selectedLine, 4);
    EXPECT_EQ(statusViewStandIn.statusLabel, "Finished");
    EXPECT_EQ(statusViewStandIn.barValue, 100);
}

TEST_F(ReplayEventsTest, ALongListScrollsAlong) {
    settings.Display_Executing_Status = 1;
    for (int i = 0; i < 10; ++i) InEdit().Click(Left, 300 + i, 300);
    EXPECT_EQ(Replay(), 1);
    EXPECT_EQ(statusViewStandIn.topIndex, 4) << "at rows 7, 8, 9 and past the last";
}

TEST_F(ReplayEventsTest, CapsLockIsAsItWasRecorded) {
    simulated::SetToggle(20, true);
    InEdit().Key(KeyA);
    EXPECT_EQ(Replay(), 1);
    EXPECT_EQ(TextOf(edit), "a");
    EXPECT_EQ(Keys().size(), 4U) << "one tap of Caps Lock and the key";
}

// --- damaged jobs ---

TEST_F(ReplayEventsTest, IndexesThatLeadNowhereAreRunTimeFailures) {
    const auto replayWithoutRows = [&] {
        rows.clear();
        ReplayEvents(job.Built(), rows, reason, "");
    };
    job.UseChain(7).Press(Left, 1, 1);
    EXPECT_THROW(Replay(), RuntimeFailure);
    NewJob();
    InEdit().TextRow("x");
    job.Built().Strings.clear();
    EXPECT_THROW(replayWithoutRows(), RuntimeFailure);
    NewJob();
    job.At(100).KeyDown(300);
    job.Last().KeyCode() = 301;
    EXPECT_THROW(replayWithoutRows(), RuntimeFailure);
    EXPECT_TRUE(Keys().empty()) << "a key that nobody could release is not pressed";
}

TEST_F(ReplayEventsTest, NumbersThatNoRecordingHasDoNoHarm) {
    constexpr std::int32_t Most = std::numeric_limits<std::int32_t>::max();
    settings.Display_Executing_Status = 1;
    NewJob(SafetyLow, MaximumSpeed);
    InEdit().At(2'000'000'000).Key(KeyA).At(1).Click(Left, 300, 300);
    job.Last().dwFlags() = -Most - 1;
    EXPECT_EQ(Replay(), 1);
    EXPECT_EQ(statusViewStandIn.barHistory.at(1), statusViewStandIn.barMaximum) << "later than the last event";

    job.Header().SpeedPercent = 0;
    EXPECT_THROW(Replay(), RuntimeFailure);
    job.Header().SpeedPercent = -100;
    job.Last().time() = 0;
    EXPECT_EQ(Replay(), 1) << "all is late, and a job without a length has no progress";
}

// A press that is skipped in every pass keeps its converted point, which grows from pass to pass.
TEST_F(ReplayEventsTest, AnEndlessRunOfSkippedPressesStaysARun) {
    job.Header().RepeatCount = 12;
    InLostWindow().IfNoWindow(SkipAction, 0).Press(Left, 700, 700).Wait(10).Move(1, 1);
    EXPECT_EQ(Replay(), 12);
}

}  // namespace
