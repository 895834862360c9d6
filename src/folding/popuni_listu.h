// PopuniListu ("fill the list"): the job that is open in the editor, and its fold into rows. The state is the job's
// working copy with its rows, and beside it the events as they stand in the file, which are what a save writes back
// for all rows that were not edited. What the rows say is in row_texts.h.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "folding/fold.h"
#include "jobs/job_records.h"

// The one job that is open. EditEvents and PristineEvents have the same length and order, and their times agree.
// Between two folds Strings, KeyRows and FoldedRowText have the same count.
struct EditState : FoldedRows {
    std::string jobName;                   // path of the job file
    JobHeader header;                      // as read; with the description and the program to start
    std::vector<JobEvent> EditEvents;      // the working copy, changed by the fold
    std::vector<JobEvent> PristineEvents;  // before any folding
    std::vector<std::string> Strings;
    std::vector<WindowSignature> Windows;
    std::vector<WindowChain> Chains;
    std::vector<std::string> FoldedRowText;  // by keystroke row: its text as folded, to detect edits
    std::int32_t stringsAtLoad = 0;          // count of Strings in the file

    // The moves that the last call of PopuniListu has dropped, a list for each of its passes: runs in order, by their
    // places in PristineEvents as it was before the pass.
    std::vector<std::vector<EventRun>> DroppedMoves;

    // What the form shows beside the grid.
    std::string title;
    std::string Browse_Text;  // the program to start, with its parameters
    std::string debugLabel;

    JobArrays Arrays() const { return {EditEvents, Strings, Windows, Chains}; }
};
extern EditState editState;

// Without `keep` reads the job file first; with it folds the arrays in memory afresh, after a delete or an insert.
// Moves inside a keystroke row can't be shown and are dropped for good, from both arrays. The form then shows the
// grid and the pane, and disables Save. A failure of the file leaves the job before it; after any other run-time
// failure (an index that leads nowhere) the job has no rows. Pumps where the fold shows a box; until the fold has
// ended the job is still the one before it, or with `keep` none.
void PopuniListu(std::string jobName, bool keep);

// The same for a job that has been read, from whatever it was.
void OpenAsRows(Job job, std::string jobName);

// The rows in the order of the grid, and Strings and FoldedRowText as the rows have them: what the grid is filled
// from.
void OrderRows();
