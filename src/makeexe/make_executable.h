// The way to a program that plays one job by itself. There is no runner to put in front of a job yet: nothing is made,
// and the main window offers it greyed.
#pragma once

#include <string>

inline constexpr bool MakeExeExists = false;

// Asks for the name of the executable and makes it from the job file.
void MakeExecutable(const std::string& jobPath);
