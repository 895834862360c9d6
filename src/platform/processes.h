// Starting other programs.
#pragma once

#include <string>

namespace platform {

// Starts `commandLine` (a path and its parameters) with the window style 0 hidden, 1 normal, 2 minimised,
// 3 maximised, and does not wait for it. False when it could not be started.
bool StartProgram(const std::string& commandLine, int windowStyle);

}  // namespace platform
