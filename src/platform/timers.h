// Periodic timers on the user-interface thread. Their handlers run inside the pump, and never inside a hook call.
#pragma once

#include <functional>

namespace platform {

using TimerId = int;  // 0: no timer

// Calls `handler` every `intervalMs` (at least 1) until stopped; a late pump gets one call, not several. A
// handler may stop its own timer. 0 when the system refuses. A RuntimeFailure that a handler throws is shown in a box
// by the desktop.
TimerId StartTimer(int intervalMs, std::function<void()> handler);

// An id that is not running is ignored.
void StopTimer(TimerId timer);

}  // namespace platform
