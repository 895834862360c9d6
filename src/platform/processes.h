// Starting other programs, and telling whether they run.
#pragma once

#include <cstdint>

#include <string>

namespace platform {

// Starts `commandLine` (a path and its parameters) with the window style 0 hidden, 1 normal, 2 minimised,
// 3 maximised, and does not wait for it. False when it could not be started.
bool StartProgram(const std::string& commandLine, int windowStyle);

// GetCurrentProcessId, and whether a process has that number now. One of which the system will not tell counts as
// running.
std::uint32_t OwnProcess();
bool ProcessRuns(std::uint32_t process);

}  // namespace platform
