// The command line that makes a guard of the program: "-guard", and the handles that it has inherited.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

// Handles, as numbers; both are inherited.
struct GuardCommand {
    std::uint64_t program = 0;  // the process to be watched
    std::uint64_t memory = 0;   // the file mapping with its HeldState
};

// "-guard 1a4 1a8": what follows the path of the program.
std::string GuardCommandText(const GuardCommand& command);

// Nothing for the command line of anyone but a guard. `text` has no path in front.
std::optional<GuardCommand> ParseGuardCommand(const std::string& text);
