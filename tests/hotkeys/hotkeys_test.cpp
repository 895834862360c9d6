#include "hotkeys/hotkey_table.h"

#include "dictionary/dictionary.h"
#include "hotkeys/hotkey_stage.h"
#include "hotkeys/job_hotkey.h"

namespace {

const std::string settingsFile = "C:\\jobs\\settings.binary";

HotkeyControls Ctrl(char letter) {
    return {.assign_hotkey = true, .hot_ctrl = true, .hot_slovo = letter - 'A'};
}

using JobHotkey = HotkeyStage;
using Hotkeys = HotkeyStage;

TEST_F(JobHotkey, ShowsWhatTheTableHolds) {
    EXPECT_EQ(HotkeyOfJob(PathOf("one")), Ctrl('A'));
    const HotkeyControls two{.assign_hotkey = true, .hot_ctrl = true, .hot_alt = true, .hot_slovo = 1};
    EXPECT_EQ(HotkeyOfJob(PathOf("two")), two);
    EXPECT_EQ(HotkeyOfJob(PathOf("four")), HotkeyControls());
    EXPECT_FALSE(HotkeyOfJob(PathOf("four")).KeysEnabled());
    settings.Hotkeys[0].virtual_key = 300;  // from a damaged file
    EXPECT_EQ(HotkeyOfJob(PathOf("one")).hot_slovo, HotkeyControls::NoLetter);
}

TEST_F(JobHotkey, IsRefusedWithTheReasonAndTheControlToMend) {
    const std::tuple<HotkeyControls, std::string, std::string, HotkeyFocus> cases[] = {
        {{.assign_hotkey = true, .hot_slovo = 3},
         "Invalid hotkey selection for job. You must select CTRL, SHIFT or ALT key.",
         "Invalid HotKey",
         HotkeyFocus::hot_ctrl},
        {{.assign_hotkey = true, .hot_alt = true},
         "Invalid hotkey selection. You must select a key from 'A' to 'Z'",
         "Invalid HotKey",
         HotkeyFocus::hot_slovo},
        {Ctrl('A'),
         "Please select another key combination because this key combination is already associated with job \"one\"",
         "Tessarine", HotkeyFocus::lista_jobs},
    };
    for (const auto& [controls, text, title, focus] : cases) {
        const auto refusal = SaveHotkeyOfJob(PathOf("four"), controls);
        ASSERT_TRUE(refusal) << text;
        EXPECT_EQ(refusal->text, text);
        EXPECT_EQ(refusal->title, title);
        EXPECT_EQ(refusal->focus, focus);
    }
    SetLanguage(LanguageGerman);
    EXPECT_THAT(SaveHotkeyOfJob(PathOf("four"), Ctrl('A'))->text, HasSubstr("Bitte"));
    EXPECT_EQ(settings.Hotkeys.size(), 3U);
    EXPECT_FALSE(simulated::FileBytes(settingsFile));
}

TEST_F(JobHotkey, WorksAtOnceAndIsSaved) {
    EXPECT_FALSE(SaveHotkeyOfJob(PathOf("four"), Ctrl('Z')));
    EXPECT_THAT(Press({ControlKey}, 'Z'), ElementsAre("start " + PathOf("four")));
    EXPECT_TRUE(simulated::FileBytes(settingsFile));
    settings = {};
    LoadSettings();
    EXPECT_EQ(HotkeyOfJob(PathOf("four")), Ctrl('Z'));
}

// The first record: its neighbour below is the combination that starts a recording.
TEST_F(JobHotkey, WhenChangedLeavesTheOldOneAliveAndTakesTheIdBelow) {
    EXPECT_FALSE(SaveHotkeyOfJob(PathOf("ONE"), Ctrl('K')));
    EXPECT_EQ(settings.Hotkeys.size(), 3U);
    EXPECT_THAT(Press({ControlKey}, 'K'), ElementsAre("start " + PathOf("ONE")));
    EXPECT_THAT(Press({ControlKey}, 'A'), ElementsAre("start " + PathOf("ONE")));
    EXPECT_THAT(Press({ControlKey, ShiftKey}, 'N'), IsEmpty());
    UnregisterAllHotkeys();
    RegisterAllHotkeys();  // as the next start does
    EXPECT_THAT(Press({ControlKey}, 'A'), IsEmpty());
    EXPECT_THAT(Press({ControlKey, ShiftKey}, 'N'), ElementsAre("ClickCommand3"));
}

TEST_F(JobHotkey, OfTheSameJobIsNoConflict) {
    EXPECT_FALSE(SaveHotkeyOfJob(PathOf("one"), Ctrl('A')));
    EXPECT_THAT(Press({ControlKey}, 'A'), ElementsAre("start " + PathOf("one")));
}

TEST_F(JobHotkey, GoesWithItsTick) {
    EXPECT_FALSE(SaveHotkeyOfJob(PathOf("one"), {}));
    EXPECT_FALSE(SaveHotkeyOfJob(PathOf("four"), {}));  // has none
    EXPECT_EQ(settings.Hotkeys.size(), 2U);
    EXPECT_THAT(Press({ControlKey}, 'A'), IsEmpty());
    EXPECT_THAT(Press({ControlKey, AltKey}, 'B'), ElementsAre("start " + PathOf("Two")));
}

TEST_F(JobHotkey, ThatCannotBeSavedChangesNothing) {
    simulated::MakeReadOnly("C:\\jobs");
    EXPECT_THROW(SaveHotkeyOfJob(PathOf("four"), Ctrl('Z')), RuntimeFailure);
    EXPECT_THROW(SaveHotkeyOfJob(PathOf("one"), Ctrl('Y')), RuntimeFailure);
    EXPECT_EQ(settings.Hotkeys.size(), 3U);
    EXPECT_THAT(Press({ControlKey}, 'Z'), IsEmpty());
    EXPECT_THAT(Press({ControlKey}, 'A'), ElementsAre("start " + PathOf("one")));
    EXPECT_THAT(Press({ControlKey, ShiftKey}, 'N'), ElementsAre("ClickCommand3"));
}

TEST_F(Hotkeys, StartWhatBelongsToThemWhateverWindowHasTheFocus) {
    EXPECT_THAT(Press({ControlKey}, 'A'), ElementsAre("start " + PathOf("one")));
    EXPECT_THAT(Press({ControlKey, AltKey}, 'B'), ElementsAre("start " + PathOf("Two")));
    EXPECT_THAT(Press({ShiftKey}, 'C'), ElementsAre("start " + PathOf("three")));
    EXPECT_THAT(Press({ControlKey, ShiftKey}, 'N'), ElementsAre("ClickCommand3"));
    EXPECT_THAT(Press({AltKey}, 'A'), IsEmpty());
}

TEST_F(Hotkeys, BehindADroppedOneGoOnUnderLowerIds) {
    DropHotkeyOfJob(PathOf("two"));
    EXPECT_THAT(Press({ControlKey, AltKey}, 'B'), IsEmpty());
    EXPECT_THAT(Press({ShiftKey}, 'C'), ElementsAre("start " + PathOf("three")));
    EXPECT_THAT(Press({ControlKey, ShiftKey}, 'N'), ElementsAre("ClickCommand3"));
    DropHotkeyOfJob(PathOf("four"));  // has none
    EXPECT_EQ(settings.Hotkeys.size(), 2U);
    EXPECT_THAT(simulated::ShownBoxes(), IsEmpty());
}

TEST_F(Hotkeys, AboveTheTableAreToldAndFail) {
    EXPECT_THROW(OnHotkey(4), RuntimeFailure);
    EXPECT_THAT(Boxes(), ElementsAre(EndsWith("|HotKey error!")));
    OnHotkey(-2);  // the system's own: a snapshot of the desktop
    EXPECT_THAT(hotkeyViewStandIn.calls, IsEmpty());
}

}  // namespace
