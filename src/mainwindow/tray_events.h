// What a mouse action on the tray icon does. Nothing here pumps, but for the menu while it is open.
#pragma once

#include <cstdint>
#include <optional>

// The mouse messages that the icon's callback carries.
inline constexpr unsigned TrayLeftDown = 513;
inline constexpr unsigned TrayLeftDoubleClick = 515;
inline constexpr unsigned TrayRightUp = 517;

struct TrayEvents {
    std::optional<std::int64_t> lastToggleMs;  // of the last double click that was accepted
};
extern TrayEvents trayEvents;

// While a recording runs, each of the three ends it. Otherwise a double click shows or hides the main window and the
// right button opens the menu; neither while a run or a modal box holds the user interface.
void OnTrayMessage(unsigned message);

// The "&Hide Tessarine" or "&Show Tessarine" entry of the menu.
void ToggleFromTray();
