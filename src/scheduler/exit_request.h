// The user's wish to leave the program. No schedule fires while the program is not running, so the wish will be
// questioned when a scheduled run is near. As yet no schedule runs, and there is nothing to ask.
#pragma once

#include <functional>

// ExitProgram: calls `quit` unless the user, asked about a run that is near, decides to stay. `quit` ends the process
// and need not return.
void ExitProgram(const std::function<void()>& quit);
