// The icon in the notification area. What the user does with it arrives as message 512 at the window's procedure.
#pragma once

#include <string>

#include "platform/types.h"

namespace platform {

// One icon for the process. The tip holds at most 63 characters.
bool AddTrayIcon(WindowHandle window, const std::string& tip);
bool ChangeTrayTip(const std::string& tip);
void RemoveTrayIcon();

}  // namespace platform
