// puni_listu ("it fills the list"): the fold of a job for a run, which gives the run's action list. It is one pass
// that leaves the job as it is: its events keep their types, and moves inside a keystroke row stay where they are.
// Each call returns rows of its own, as a box in the fold pumps and another run may be asked for inside it.
#pragma once

#include <string>
#include <vector>

#include "folding/action_row.h"
#include "jobs/job_records.h"

// One row for each row of the fold, in the order of their first events. Reading fails as ReadJob does; an index that
// leads nowhere is a range failure. Pumps where it shows the box for an event of an unknown type.
std::vector<ActionRow> FoldForReplay(const std::string& jobPath);

// The same for a job that has been read.
std::vector<ActionRow> FoldForReplay(const Job& job);
