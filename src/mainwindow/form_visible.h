// The one way to show or hide the main window. The program lives in the notification area: closing and minimising hide
// the window and end nothing. Nothing here pumps.
#pragma once

#include <optional>
#include <string>

struct FormVisibility {
    std::optional<bool> visible;  // no value while the start has not decided it
    bool minimised = false;       // as the last change of the window's state left it
};
extern FormVisibility formVisibility;

// Shows or hides the main window when that is a change, and words the tray menu's entry to match. A window that was
// minimised comes up in its normal state, unless `keepState`.
void FormVisible(bool show, bool keepState);

bool MainWindowVisible();

// The user closes the window: it is hidden, and the first time of all a balloon tells that the program goes on.
void CloseToTray();

// The window's size or state has changed: a minimised window leaves the task bar, and one that comes back is shown.
void FormResized();

// "&Hide Tessarine" or "&Show Tessarine", for the tray menu; also to be called when the language has changed.
void WordTrayEntry();
