// The guard's own process. For the entry of a program that calls platform::StartGuard, before anything else that it
// does: a guard has no window, no console, no message loop, and takes no part in what the program does at its start.
#pragma once

#include <optional>

#include "guard/guard_command.h"

// What this process was started for, if it is to be a guard.
std::optional<GuardCommand> GuardCommandOfThisProcess();

// Waits, without polling, until the program ends, in whatever way, releases what that held down, and returns the exit
// code. It has every right that it needs with its two handles: to wait for the program and to read that memory.
int RunGuard(const GuardCommand& command);
