#include "editor/plain_text.h"

#include "editor/keystroke_stage.h"
#include "hotkeys/hotkey_table.h"
#include "identity/window_identity.h"
#include "platform/input.h"
#include "replay/run_job.h"
#include "settings/settings.h"

namespace {

using namespace simulated;

class PlainTextTest : public KeystrokeStage {
protected:
    static std::string Typed() { return TextOf(view.plainText); }

    static void PlayText(const std::string& text) {
        Show(text + "|");
        Option2_Click();
    }

    static bool IsDown(int key) { return platform::AsyncKeyState(key) < 0; }
};

TEST_F(PlainTextTest, IsWhatTheKeysType) {
    const std::pair<std::string, std::string> cases[] = {
        {"ab c", "ab c"},
        {"{L_SHIFT DOWN}ab{L_SHIFT UP}c", "ABc"},
        {"a{ENTER}b", "a\r\nb"},
        {"a{F5}{TAB}b{ESC}{L_WINKEY}{MENUKEY}c", "a{F5}{TAB}b{ESC}{L_WINKEY}{MENUKEY}c"},
        {"{F4 DOWN}a{F4 UP}", "{F4 DOWN}a{F4 UP}"},
        {"ab{BACKSPACE}c", "ac"},
        {"a{b", "a{b"},
        {"a{WHEEL}b", "a"},  // a turn that is none ends it, as whatever cannot be sent does
        {"", ""},
    };
    OpenRows({"a"});
    for (const auto& [keys, text] : cases) {
        PlayText(keys);
        EXPECT_EQ(Typed(), text) << keys;
    }
    EXPECT_EQ(keystrokeBox.view, KeystrokeView::PlainText);
    EXPECT_THAT(Boxes(), IsEmpty());
    PlayText("a{QQ}b");
    EXPECT_EQ(Typed(), "a");
    EXPECT_THAT(Boxes(), ElementsAre("Invalid keystroke:\"{QQ}\"|0"));
}

TEST_F(PlainTextTest, LeavesTheKeyboardAsItWas) {
    ownWindows.main = AddWindow({.caption = "Tessarine", .thread = OwnThread, .active = false});
    settings.Hotkeys = {{HotkeyControl, 'J', "C:\\jobs\\My job.tsj"}};
    RegisterAllHotkeys();
    OpenRows({"a"});
    bool seen = false;
    OnKey(view.plainText, 'A', [&] {
        seen = true;
        EXPECT_TRUE(plainText.playingPlainText);
        EXPECT_FALSE(HotkeyRegistered(HotkeyControl, 'J')) << "it would start the job";
        EXPECT_TRUE(plain_text_KeyPress()) << "the typing's own";
    });
    PlayText("{CAPS_LOCK}{L_CTRL DOWN}{L_SHIFT DOWN}a");
    EXPECT_TRUE(seen);
    EXPECT_FALSE(IsDown(LeftCtrl));
    EXPECT_FALSE(IsDown(LeftShift));
    EXPECT_EQ(platform::KeyState(platform::VirtualKeyCapital) & 1, 0);
    EXPECT_TRUE(HotkeyRegistered(HotkeyControl, 'J'));
    EXPECT_FALSE(plainText.playingPlainText);
    EXPECT_GT(GuardStarts(), 0);
}

TEST_F(PlainTextTest, KeysGoNowhereElse) {
    OpenRows({"a"});
    const WindowHandle other = AddWindow({.className = "Edit", .active = false});
    OnKey(view.plainText, 'B', [other] { SetFocus(other); });
    PlayText("abcd");
    EXPECT_THAT(Typed(), StartsWith("ab"));
    EXPECT_EQ(TextOf(other), "");
}

TEST_F(PlainTextTest, EndsWithEscapeAndWithAnotherView) {
    OpenRows({"a"});
    OnKey(view.plainText, 'B', [] { UserTaps(platform::VirtualKeyEscape); });
    PlayText("abcd");
    EXPECT_EQ(Typed(), "ab");
    UserTaps(platform::VirtualKeyEscape);
    RunFor(10);
    PlayText("ax");
    EXPECT_EQ(Typed(), "ax") << "an ESC from before does not count";
    OnKey(view.plainText, 'B', Option1_Click);
    PlayText("abcd");
    EXPECT_EQ(Typed(), "ab");
    EXPECT_EQ(keystrokeBox.view, KeystrokeView::Keystrokes);
}

// Chosen by its letter, the view comes while ALT is down.
TEST_F(PlainTextTest, WaitsUntilTheUsersOwnKeysAreUp) {
    OpenRows({"a"});
    UserPressesKey(LeftAlt);
    MeanwhileAfter(300, [] { UserReleasesKey(LeftAlt); });
    PlayText("ab");
    EXPECT_EQ(Typed(), "ab");
    EXPECT_THAT(Journal(), SizeIs(4));
    EXPECT_GE(Journal()[0].time, 300);
}

TEST_F(PlainTextTest, FollowsTheSelectionWhenItRests) {
    OpenRows({"a", "b", "c"});
    Option2_Click();
    view.Focus(view.grid);
    view.calls.clear();
    for (const int row : {2, 4, 2, 4}) {
        edit_story::Select(row);
        RunFor(100);
    }
    EXPECT_EQ(Typed(), "a") << "who walks through the rows keeps the keyboard";
    RunFor(500);
    EXPECT_EQ(Typed(), "c");
    EXPECT_EQ(FocusedWindow(), view.grid);
    edit_story::Select(1);
    EXPECT_EQ(Typed(), "") << "a click types nothing";
    RunFor(500);
    EXPECT_EQ(Typed(), "");
}

TEST_F(PlainTextTest, LeavesTheKeyboardToARunAndToTheEditorsEnd) {
    OpenRows({"a"});
    runState.ReplayRunning = true;
    PlayText("ab");
    EXPECT_EQ(Typed(), "");
    runState.ReplayRunning = false;
    OnKey(view.plainText, 'B', EditorHasClosed);
    PlayText("abcd");
    EXPECT_EQ(Journal().size(), 4U) << "a and b, down and up";
    RunFor(1000);
    EXPECT_EQ(Journal().size(), 4U);
}

TEST_F(PlainTextTest, UsersOwnKeyIsToldWhereToGo) {
    OpenRows({"a"});
    Option2_Click();
    EXPECT_FALSE(plain_text_KeyPress());
    EXPECT_THAT(Boxes(),
                ElementsAre("Edit Keystrokes|If you want to edit keystrokes click on 'Edit Keystrokes' button. This "
                            "field is only for displaying keystrokes as text."));
    EXPECT_EQ(ShownBoxes()[0].icon, platform::BoxIcon::Information);
}

}  // namespace
