// The message pump.
#pragma once

#include <functional>

namespace platform {

// Runs what is waiting for the program's own windows and timers, and returns when nothing is left. Handlers run
// inside this call, so whatever a handler may change must be looked up again afterwards. Never blocks.
void Pump();

// Calls once, from a pump within some milliseconds, for a caller that must return at once (a hook procedure). A
// RuntimeFailure that comes out of it is shown in a box by the desktop. A memory failure when the system refuses.
void CallFromPump(std::function<void()> call);

}  // namespace platform
