// Who may use the main window: the user, unless somebody has taken it. A run, a box and a dialog may hold it at the
// same time, one inside the other or not, and only when the last of them gives it back is it enabled. Nobody else
// enables or disables it. Nothing here pumps.
#pragma once

#include <array>
#include <cstddef>

#include "platform/types.h"

enum class MainWindowHolder {
    Run,     // at most one; taking it twice is taking it once
    Dialog,  // a form of our own that is modal
    Box,
};

class MainWindowUse {
public:
    void Take(MainWindowHolder holder);
    void GiveBack(MainWindowHolder holder);

    // A box with this owner (0: none) disables the main window itself, and enables it before it closes, so that the
    // foreground comes back here: taken by another owner, the window is disabled for it.
    void TakeForBox(platform::WindowHandle owner);

    // True when the user may use it: nothing may begin then that would need it too. A form of the system's own, which
    // takes it without a word, counts as well.
    bool IsFree() const;

private:
    bool IsHeld() const;
    int& HoldsOf(MainWindowHolder holder) { return holds[static_cast<std::size_t>(holder)]; }

    std::array<int, 3> holds{};
};
extern MainWindowUse mainWindowUse;

// From now on boxes take the main window. Once, when it stands.
void HoldMainWindowDuringBoxes();
