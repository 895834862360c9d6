// The icon in the notification area. What the user does with it arrives as message 512 at the window's procedure.
#pragma once

#include <string>

#include "platform/types.h"

namespace platform {

// One icon for the process. The tip holds at most 127 characters.
bool AddTrayIcon(WindowHandle window, const std::string& tip);
bool ChangeTrayTip(const std::string& tip);
void RemoveTrayIcon();

// A balloon at the icon, which goes by itself: a title of at most 63 characters and a text of at most 255. False
// without an icon.
bool ShowTrayBalloon(const std::string& title, const std::string& text);

// The shell was started anew and has forgotten the icon: adds it as it was. False when there was none.
bool RestoreTrayIcon();

}  // namespace platform
