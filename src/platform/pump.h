// The message pump, and what has to wait for it.
#pragma once

#include <functional>
#include <utility>

#include "platform/hooks.h"

namespace platform {

// Runs what is waiting for the program's own windows and timers, and returns when nothing is left. Handlers run
// inside this call, so whatever a handler may change must be looked up again afterwards. Never blocks.
//
// Inside a hook call the whole desktop waits, so there it takes in only what the system sends: further hook calls, and
// messages that other programs send to our windows and wait for. Timers, posted messages and the calls below stay where
// they are, for a pump outside.
void Pump();

// Calls once, from a pump outside of all hook calls within some milliseconds, for a caller that must return at once. A
// RuntimeFailure that comes out of it is shown in a box by the desktop. A memory failure when the system refuses.
void CallFromPump(std::function<void()> call);

// Calls now; or, inside a hook call, by CallFromPump. For what can be set off by a message that another program sends,
// and opens a box or takes its time.
inline void CallOutsideHooks(std::function<void()> call) {
    InHookCall() ? CallFromPump(std::move(call)) : call();
}

}  // namespace platform
