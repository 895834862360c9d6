// The part of the editor's form in which keystrokes are edited, as a test sees it: Text1 and plain_text are windows of
// the simulated desktop, so that keys which are sent for real arrive in them.
#pragma once

#include <string>
#include <vector>

#include "platform/types.h"

struct KeystrokeViewStandIn {
    std::vector<std::string> calls;  // "LeaveText", "FocusGrid", "ShowText in a hook call"
    bool menuIsOpen = false;
    platform::WindowHandle form = 0;
    platform::WindowHandle text = 0;
    platform::WindowHandle plainText = 0;
    platform::WindowHandle grid = 0;

    // The form with its controls, in the foreground, and the focus in the grid.
    void AddWindows();

    // Moves the focus as a person does; the boxes hear of it, unless the event gets lost.
    void Focus(platform::WindowHandle window);
    void FocusWithoutEvent(platform::WindowHandle window);
};
extern KeystrokeViewStandIn keystrokeViewStandIn;
