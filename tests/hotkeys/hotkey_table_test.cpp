#include "hotkeys/hotkey_table.h"

#include "hotkeys/hotkey_stage.h"

namespace {

using Hotkeys = HotkeyStage;

TEST_F(Hotkeys, StartWhatBelongsToThemWhateverWindowHasTheFocus) {
    EXPECT_THAT(Press({ControlKey}, 'A'), ElementsAre("start " + PathOf("one")));
    EXPECT_THAT(Press({ControlKey, AltKey}, 'B'), ElementsAre("start " + PathOf("Two")));
    EXPECT_THAT(Press({ShiftKey}, 'C'), ElementsAre("start " + PathOf("three")));
    EXPECT_THAT(Press({ControlKey, ShiftKey}, 'N'), ElementsAre("record"));
    EXPECT_THAT(Press({AltKey}, 'A'), IsEmpty());
}

TEST_F(Hotkeys, BehindADroppedOneGoOnUnderLowerIds) {
    DropHotkeyOfJob(PathOf("two"));
    EXPECT_THAT(Press({ControlKey, AltKey}, 'B'), IsEmpty());
    EXPECT_THAT(Press({ShiftKey}, 'C'), ElementsAre("start " + PathOf("three")));
    EXPECT_THAT(Press({ControlKey, ShiftKey}, 'N'), ElementsAre("record"));
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
