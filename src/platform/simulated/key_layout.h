// The US keyboard, for the other modules of the simulated desktop.
#pragma once

#include <optional>

namespace simulated {

// What a key types, with SHIFT held or not and Caps Lock on or not. ENTER, TAB, BACKSPACE and ESC type their control
// characters; 0 for a key that types nothing.
char TypedCharacter(int virtualKey, bool shift, bool capsLock);

// Whether its scan code carries the extended prefix on a real keyboard.
bool IsExtendedKey(int virtualKey);

struct Stroke {
    int virtualKey = 0;
    bool shift = false;
};
std::optional<Stroke> StrokeFor(char character);  // of the main block; '\n' is ENTER

}  // namespace simulated
