// What SendInput keeps for the guard.
#pragma once

#include "guard/held_state.h"

namespace platform {

// What this process holds down. In ordinary memory at first, in memory that is shared with the guard once there is one.
HeldState& OwnHeldState();

// The process id of the guard that lives now, 0 for none. For tests and benches.
unsigned long GuardProcessId();

}  // namespace platform
