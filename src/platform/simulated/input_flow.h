// The way of one input through the simulated system, injected or by hand: journal, hooks, key state, hotkeys, window.
#pragma once

#include <array>
#include <cstdint>

#include "platform/input.h"
#include "simulated/desktop.h"

namespace simulated {

struct KeyInput {
    int virtualKey = 0;  // a modifier is the left or the right one
    int scanCode = 0;
    bool extended = false;
    bool up = false;
    bool injected = false;
    std::int64_t time = 0;  // ms
    std::int32_t extraInfo = 0;
};

struct MouseInput {
    std::int32_t action = 0;  // one of the Mouse... flags
    Point point;              // of a move
    std::int32_t data = 0;    // wheel delta or X button
    bool injected = false;
    std::int64_t time = 0;  // ms
};

// Calls the hook, if there is one, and then lets the input take effect.
void Feed(const KeyInput& input);
void Feed(const MouseInput& input);

// Every input comes past here first, whether a hook has to be waited for or not.
void NoteInput();

// Notes a record as it is about to take effect.
void WriteDown(bool injected, std::int64_t time, const platform::InputRecord& record);

// Where a mouse record that moves puts the cursor, before the edges of the monitors hold it.
Point ResolvedPoint(const platform::InputRecord& record);

// Whether an input of this type (platform::InputMouse or InputKeyboard) has a hook to wait for.
bool HookWaitsFor(std::int32_t inputType);

// The key behind a button: 1, 2, 4, 5, 6. The flags are a press's; `data` tells the X buttons apart.
int KeyOfButton(std::int32_t downFlag, std::int32_t data);

bool IsKeyDown(int virtualKey);
bool IsToggled(int virtualKey);

}  // namespace simulated
