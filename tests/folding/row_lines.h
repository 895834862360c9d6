// Rows as lines of text, for tests to compare.
#pragma once

#include <string>
#include <vector>

#include "folding/action_row.h"
#include "folding/fold.h"

// A job after one pass, its events changed as the editor has them.
struct FoldedJob : FoldedRows {
    Job job;
};
FoldedJob Folded(const Job& job);

// The rows that one pass makes of a job, in grid order: "moves 0-4 to 5,5", "click 5-6", "keys 7-10 ab". Of mouse
// rows the low bits of the flags are named.
std::vector<std::string> FoldedLines(const Job& job);
std::vector<std::string> LinesOf(const FoldedRows& folded);

// Of an action list, with the window's name behind it.
std::vector<std::string> LinesOf(const std::vector<ActionRow>& rows);
