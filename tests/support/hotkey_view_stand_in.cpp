#include "support/hotkey_view_stand_in.h"

#include "hotkeys/hotkey_view.h"

HotkeyViewStandIn hotkeyViewStandIn;

void hotkey_view::StartJob(const std::string& path) {
    hotkeyViewStandIn.calls.push_back("start " + path);
}

void hotkey_view::ClickCommand3() {
    hotkeyViewStandIn.calls.push_back("record");
}
