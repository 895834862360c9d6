// As much of a desktop as the targets ask for, beside the simulated files: boxes that are not kept, no registry, a
// clock that moves only in sleeps, and timers that tick when they are told to. A fuzzer runs millions of inputs in one
// process; nothing may pile up.
#pragma once

#include <cstdint>

namespace quiet {

// The local time, in seconds since 1970. It goes on from here as the clock does.
void SetWallClock(std::int64_t seconds);
std::int64_t WallClock();

void TickAllTimers();  // each once, whatever its interval
void StopAllTimers();

}  // namespace quiet
