// The lines of a run's action list.
#pragma once

#include <string>
#include <vector>

#include "folding/action_row.h"
#include "jobs/job_records.h"

// Drops the rows that only move the mouse: nobody wants to read of them.
void DropMoveRows(std::vector<ActionRow>& rows);

// One text per row, with eight blanks in front for the verdict to take the place of.
std::vector<std::string> RowDescriptions(const std::vector<ActionRow>& rows, const std::vector<JobEvent>& events);
