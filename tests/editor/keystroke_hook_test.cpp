#include "editor/keystroke_hook.h"

#include "editor/keystroke_stage.h"
#include "platform/hooks.h"
#include "recording/input_capture.h"
#include "recording/recording_session.h"

namespace {

using namespace simulated;

class KeystrokeHookTest : public KeystrokeStage {
protected:
    static constexpr int Pause = 19;
    static constexpr int UntilTick = 300;

    KeystrokeHookTest() {
        OpenRows({"a", "b"});
        view.Focus(view.text);
    }

    static void Settle() { RunFor(50); }
};

TEST_F(KeystrokeHookTest, KeysArriveInOrderAndOutsideOfHookCalls) {
    UserPressesKey(LeftAlt);
    UserTaps(Tab);
    UserTaps('B');
    UserReleasesKey(LeftAlt);
    UserTaps(163);  // an extended key, with the flag for it
    UserTypes("cd");
    Settle();
    EXPECT_EQ(Shown(), "a{ALT DOWN}{TAB DOWN}{TAB UP}b{ALT UP}{R_CTRL DOWN}{R_CTRL UP}cd|");
    EXPECT_EQ(RowText(), keystrokeBox.text);
    EXPECT_THAT(view.calls, IsEmpty());
}

TEST_F(KeystrokeHookTest, OnlyTheUsersKeysCount) {
    for (const int state : {0, platform::KeyUp}) {
        platform::InputRecord record;
        record.dwType() = platform::InputKeyboard;
        record.KeyCode() = 'X';
        record.KeyState() = state;
        platform::SendInput(record);
    }
    Settle();
    EXPECT_EQ(Shown(), "a|");
    view.menuIsOpen = true;
    UserTaps('X');
    Settle();
    EXPECT_EQ(Shown(), "a|") << "it is for the menu";
}

TEST_F(KeystrokeHookTest, KeyThatLedIntoTheBoxIsNotForTheRow) {
    view.Focus(view.grid);
    UserPressesKey(Tab);
    view.Focus(view.text);
    UserPressesKey(Tab);  // repeats itself
    UserReleasesKey(Tab);
    Settle();
    EXPECT_EQ(Shown(), "a|");
    UserTaps(Tab);
    Settle();
    EXPECT_EQ(Shown(), "a{TAB DOWN}{TAB UP}|");
}

TEST_F(KeystrokeHookTest, PauseBreakLeadsOut) {
    UserTaps(Pause);
    Settle();
    EXPECT_EQ(Shown(), "a|");
    EXPECT_THAT(view.calls, ElementsAre("LeaveText"));
    button_MouseDown(Pause);
    EXPECT_EQ(Shown(), "a{19 DOWN}{19 UP}|");
}

TEST_F(KeystrokeHookTest, FocusBringsTheHookAndTakesIt) {
    EXPECT_TRUE(TextKeyboardIsHooked());
    view.Focus(view.grid);
    EXPECT_FALSE(platform::KeyboardHookInstalled());
    UserTypes("x");
    Settle();
    EXPECT_EQ(Shown(), "a|");
}

TEST_F(KeystrokeHookTest, TimerRepairsAFocusThatChangedWithoutAWord) {
    view.FocusWithoutEvent(view.grid);
    UserTypes("x");
    Settle();
    EXPECT_EQ(Shown(), "a|") << "typed elsewhere, although the hook is in";
    RunFor(UntilTick);
    EXPECT_FALSE(platform::KeyboardHookInstalled());
    view.FocusWithoutEvent(view.text);
    RunFor(UntilTick);
    EXPECT_TRUE(TextKeyboardIsHooked());
    UserTypes("x");
    Settle();
    EXPECT_EQ(Shown(), "ax|");
}

// The list acts on the row as soon as it gets the focus: what was typed before is in it by then.
TEST_F(KeystrokeHookTest, NoKeyIsLeftForTheNextRow) {
    NoteKey('X', false);
    EXPECT_EQ(Shown(), "a|");
    view.Focus(view.grid);
    EXPECT_EQ(RowText(0), "ax");
    edit_story::Select(2);
    Settle();
    EXPECT_EQ(RowText(1), "b");
}

TEST_F(KeystrokeHookTest, RecordingKeepsItsHook) {
    recordingSession.state = RecordingState::Preparing;
    Timer1_Timer();
    EXPECT_FALSE(platform::KeyboardHookInstalled()) << "a recording wants the keyboard free";
    OnTextGotFocus();
    EXPECT_FALSE(platform::KeyboardHookInstalled());
    platform::InstallKeyboardHook(OnKeyboardHook);
    OnTextGotFocus();
    OnTextLostFocus();
    Timer1_Timer();
    CloseTextKeyboard();
    EXPECT_EQ(platform::InstalledKeyboardHook(), &OnKeyboardHook);
}

TEST_F(KeystrokeHookTest, NeverOutlivesTheEditor) {
    UserTypes("x");
    EditorHasClosed();
    EXPECT_FALSE(platform::KeyboardHookInstalled());
    OnTextGotFocus();
    RunFor(UntilTick);
    EXPECT_FALSE(platform::KeyboardHookInstalled());
    edit_story::Open(JobBuilder().TextRow("c").Built());
    view.FocusWithoutEvent(view.text);
    RunFor(UntilTick);
    UserTypes("y");
    Settle();
    EXPECT_EQ(Shown(), "cy|") << "and the next one has its own";
}

TEST_F(KeystrokeHookTest, RefusedHookIsTriedAgain) {
    view.Focus(view.grid);
    RefuseHooks();
    view.Focus(view.text);
    EXPECT_FALSE(TextKeyboardIsHooked());
    RefuseHooks(false);
    RunFor(UntilTick);
    EXPECT_TRUE(TextKeyboardIsHooked());
}

TEST_F(KeystrokeHookTest, HookThatWindowsHasTakenAwayComesBack) {
    UserPressesKey(LeftCtrl);
    Settle();
    DropHooks();
    RunFor(3000);
    UserTaps('X');
    OnTextKeyMessage();  // the window hears of it all the same
    UserTaps('C');
    OnTextKeyMessage();
    UserReleasesKey(LeftCtrl);
    Settle();
    EXPECT_EQ(Shown(), "a{L_CTRL DOWN}c{L_CTRL UP}|");
}

}  // namespace
