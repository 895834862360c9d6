// The clock and what is due on it, for the other modules of the simulated desktop. Moments are in microseconds.
#pragma once

#include <cstdint>
#include <functional>

namespace simulated {

std::int64_t Now();
std::int64_t NowMs();

// Moves the clock, and lets other programs and the user's hands act on the way. Never moves it backwards.
void AdvanceTo(std::int64_t moment);

// A message for the program: runs in the next pump outside of hook calls, in the order of the posts and before all
// timers.
void Post(std::function<void()> action);

// What the system sends: runs in the next pump, before all that is posted, and inside a hook call as well.
void SendBySystem(std::function<void()> action);

// Calls into the program as the system does: a failure that comes back is shown in a box, that of a hook procedure
// from the next pump outside.
void CallProgram(const std::function<void()>& action);
void CallHookProcedure(const std::function<void()>& procedure);

}  // namespace simulated
