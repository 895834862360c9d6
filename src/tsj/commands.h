// The commands, a file each. Each adds itself with its options; see tsj.h.
#pragma once

#include "tsj/tsj.h"

void AddPicture(CLI::App& tsj, Tool& tool);
void AddRedact(CLI::App& tsj, Tool& tool);
void AddShow(CLI::App& tsj, Tool& tool);
void AddCheck(CLI::App& tsj, Tool& tool);
void AddDiff(CLI::App& tsj, Tool& tool);
void AddExport(CLI::App& tsj, Tool& tool);
void AddImport(CLI::App& tsj, Tool& tool);
void AddExe(CLI::App& tsj, Tool& tool);
void AddUnpack(CLI::App& tsj, Tool& tool);
