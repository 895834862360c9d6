// What the other modules of the simulated desktop need of the rest of the system.
#pragma once

namespace simulated {

// Whether a hotkey swallows this key press. One of the program's is posted to its window.
bool TakeHotkey(int modifiers, int virtualKey);

}  // namespace simulated
