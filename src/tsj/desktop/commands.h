// The commands that need a desktop, a file each.
#pragma once

#include "tsj/tsj.h"

void AddExplain(CLI::App& tsj, Tool& tool);
void AddRun(CLI::App& tsj, Tool& tool);
