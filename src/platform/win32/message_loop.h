// The program's message loop and what it shares with Pump: both dispatch in the same way, so that a modeless form
// behaves alike whether the program is at rest or a long operation pumps.
#pragma once

#include "win32/handles.h"

namespace platform {

// A modeless form whose keyboard (Tab, Enter, Esc, mnemonics) the loop is to handle. `onKey` sees what is on its way to
// the form and its controls first, and says whether that was all. Removed when it is destroyed.
using KeyHandler = bool (*)(const MSG& message);
void AddModelessForm(HWND form, KeyHandler onKey = nullptr);
void RemoveModelessForm(HWND form);

// Delivers what was sent to this thread: messages of other threads to its windows, low-level hook calls among them.
// Posted messages, input and timers stay in the queue.
void TakeInSentMessages();

// Runs until WM_QUIT and returns its exit code.
int RunMessageLoop();

}  // namespace platform
