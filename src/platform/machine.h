// What a report tells of the machine. Nothing here pumps.
#pragma once

#include <string>
#include <vector>

#include "platform/types.h"

namespace platform {

struct Monitor {
    Rect place;    // pixels of the virtual desktop
    int dpi = 96;  // 96 is a scaling of 100 percent
    bool primary = false;
};

// All that show the desktop, the primary one first.
std::vector<Monitor> Monitors();

// The name of the keyboard layout of this thread ("00000409" is US; GetKeyboardLayoutName).
std::string KeyboardLayoutName();

// Name and build of the system: "Windows 10.0.19045".
std::string SystemVersion();

}  // namespace platform
