// A main window that hears hotkeys, a table of three jobs, and a user who presses combinations.
#pragma once

#include "hotkeys/hotkey_messages.h"
#include "hotkeys/hotkey_table.h"
#include "identity/window_identity.h"
#include "settings/folders.h"
#include "settings/settings.h"
#include "support/hotkey_view_stand_in.h"
#include "support/story.h"

inline constexpr int ControlKey = 17;
inline constexpr int ShiftKey = 16;
inline constexpr int AltKey = 18;

inline std::string PathOf(const std::string& job) {
    return "C:\\jobs\\" + job + ".tsj";
}

class HotkeyStage : public testing::Test {
protected:
    HotkeyStage() {
        folders.DataFolder = "C:\\jobs";
        for (const char* job : {"one", "two", "three", "four"}) simulated::PutFile(PathOf(job), "");
        settings.Hotkeys = {{HotkeyControl, 'A', PathOf("one") + "  "},
                            {HotkeyControl | HotkeyAlt, 'B', PathOf("Two")},
                            {HotkeyShift, 'C', PathOf("three")}};
        ownWindows.main = simulated::AddWindow({.caption = "Tessarine", .thread = simulated::OwnThread});
        simulated::OnMessage(ownWindows.main, [](const simulated::Message& message) {
            if (message.message == 0x312) OnHotkey(message.wParam);
        });
        simulated::AddWindow({.caption = "Another program"});
        RegisterAllHotkeys();
    }

    // What the combination sets going, in the order in which it came; empty when nothing does.
    static std::vector<std::string> Press(const std::vector<int>& modifiers, int key) {
        hotkeyViewStandIn.calls.clear();
        for (const int modifier : modifiers) simulated::UserPressesKey(modifier);
        simulated::UserTaps(key);
        for (const int modifier : modifiers) simulated::UserReleasesKey(modifier);
        platform::Pump();
        return hotkeyViewStandIn.calls;
    }
};
