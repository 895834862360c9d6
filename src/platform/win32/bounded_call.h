// Calls that need the cooperation of another program's thread and have no time limit of their own (SetWindowPlacement,
// SetForegroundWindow). They run on a thread that can be left behind; the caller waits until a deadline and meanwhile
// lets in the messages that are sent to its windows, low-level hooks included, as the system's own SendMessage does.
#pragma once

#include <cstdint>
#include <functional>

#include "win32/handles.h"

namespace platform {

enum class BoundedAnswer { Yes, No, Late };

// True when the window's thread takes messages now, or says so by `deadline` (Microseconds()). Asked first, so that
// a hung window costs no thread. False for a window that is gone.
bool Answers(HWND window, std::int64_t deadline);

// What `call` returned, or Late when it had not returned by `deadline`; it may still come through later. At most
// eight calls are left behind at any time; while that many hang, a new one is Late at once and never made.
BoundedAnswer CallUntil(std::int64_t deadline, std::function<bool()> call);

}  // namespace platform
