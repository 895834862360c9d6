// The numbers that the editor shows for the rows of a job, by event. The fold is that of the editor, on a copy.
#pragma once

#include <cstdint>
#include <vector>

#include "folding/fold.h"
#include "jobs/job_records.h"

class RowNumbers {
public:
    // Takes any job; events of an unknown kind are in no row. A whole one, without indexes, kinds and keys that there
    // are not, is folded as it stands and without a copy.
    RowNumbers(const Job& job, bool isWhole);

    // The grid row, from 0, in which an event stands: the last that begins at it or before it; -1 without rows.
    std::int32_t RowOf(std::int32_t event) const;

    // The number of that row, from 1; of a run of moves, which has none, that of the row behind it or, at the end of
    // the job, before it. 0 without numbered rows.
    std::int32_t NumberOf(std::int32_t event) const;

private:
    bool DropHiddenMoves(const Job& job);
    void FoldCopy(const Job& job);
    void CopyEvents(const Job& job);
    std::int32_t FirstEventOf(std::int32_t row) const;
    bool IsMoveRow(std::int32_t row) const;

    std::vector<JobEvent> events;      // a copy of those that are left, as the fold changes them
    std::vector<std::int32_t> places;  // of these in the job; empty: all are left
    FoldedRows rows;
};
