// The commands that need a desktop, a file each.
#pragma once

#include "tsj/tsj.h"

void AddExplain(CLI::App& tsj, Tool& tool);
// Adds --desktop to a command that is there.
void AddCheckOfDesktop(CLI::App& tsj, Tool& tool);

void AddRun(CLI::App& tsj, Tool& tool);
