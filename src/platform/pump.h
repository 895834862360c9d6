// The message pump.
#pragma once

namespace platform {

// Runs what is waiting for the program's own windows and timers, and returns when nothing is left. Handlers run
// inside this call, so whatever a handler may change must be looked up again afterwards. Never blocks.
void Pump();

}  // namespace platform
