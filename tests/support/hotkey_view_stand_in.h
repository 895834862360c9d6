// What the presses of hotkeys set going in a test.
#pragma once

#include <string>
#include <vector>

struct HotkeyViewStandIn {
    std::vector<std::string> calls;  // "start C:\...", "ClickCommand3"
};
extern HotkeyViewStandIn hotkeyViewStandIn;
