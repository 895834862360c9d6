// System-wide hotkeys. A press arrives as WM_HOTKEY with the id at the window's procedure, inside the pump.
#pragma once

#include "platform/types.h"

namespace platform {

// Modifiers: 1 Alt, 2 Ctrl, 4 Shift. A key that is held and repeats is one press (MOD_NOREPEAT). False when another
// program holds the combination.
bool RegisterHotkey(WindowHandle window, int id, int modifiers, int virtualKey);
bool UnregisterHotkey(WindowHandle window, int id);

}  // namespace platform
