// Ending a run from outside, as if the user had pressed ESC: every key is released, and every window put right. A run
// looks at it wherever it looks for ESC, also while the job itself holds that key.
#pragma once

#include <cstdint>

enum class StopReason { None, TimeIsUp, Interrupted };

// The tick (platform/clock.h) at which the next run is to end; 0 for none.
void StopRunAt(std::int64_t tick);

// Now, from any thread, or a handler that the system calls on one of its own.
void InterruptRun();

// Why the run is to end; None while it may go on.
StopReason RunStopReason();
