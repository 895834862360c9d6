// The small routines under the replay loop: the cursor, the wait that can be canceled, Caps Lock, held keys. They
// carry the few numbers on which timing and aim depend. A failed injection is ignored here.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "jobs/job_records.h"
#include "platform/input.h"
#include "platform/types.h"

inline constexpr int KeyFlagCount = 301;  // by virtual key; 300 is the wheel

// What replay holds down just now.
struct HeldInput {
    std::array<bool, KeyFlagCount> KeysDown{};
    std::vector<platform::InputRecord> presses;  // of the mouse buttons that are down, as they were sent
    platform::Point LastCursorPosition;          // in pixels, as MoveCursor was asked for
};
extern HeldInput heldInput;

// The flag of a virtual key; a range failure above 300.
bool& KeyDownFlag(std::int32_t virtualKey);

inline constexpr int WaitDone = 1;
inline constexpr int WaitCanceled = -2;

// Moves the cursor to a pixel of the desktop, on whatever monitor; beyond all of them, to the nearest edge.
void MoveCursor(std::int32_t x, std::int32_t y);

// Waits `ms`, exactly, and feeds `share` of the progress bar meanwhile. A wait of more than 50 ms pumps and looks for
// ESC every 50 ms (not while `escHeld`): WaitCanceled when it is pressed, else WaitDone.
int TimedWait(std::int32_t ms, bool escHeld, double share);

// Taps Caps Lock when its raw state (GetKeyState) differs from `state`.
void RestoreCapsLock(std::int32_t state);

// Notes a mouse record that was sent: which buttons replay holds down. Other records are ignored.
void NoteButton(const platform::InputRecord& record);

// Releases every key and every mouse button that replay still holds, the buttons where the cursor is.
void ReleaseStuckKeys() noexcept;

// True when ESC is down or was pressed since the last call, unless the job itself holds it; or when the run was asked
// to end (run_stop.h).
bool EscapePressed(bool escHeld);
