// The numbers that the editor shows for the rows of a job, by event.
#pragma once

#include <cstdint>

#include "folding/editor_fold.h"

class RowNumbers {
public:
    // Takes any job, as the fold of the editor does.
    RowNumbers(const Job& job, bool isWhole) : fold(job, isWhole) {}

    // The grid row, from 0, in which an event stands: the last that begins at it or before it; -1 without rows.
    std::int32_t RowOf(std::int32_t event) const;

    // The number of that row, from 1; of a run of moves, which has none, that of the row behind it or, at the end of
    // the job, before it. 0 without numbered rows.
    std::int32_t NumberOf(std::int32_t event) const;

private:
    std::int32_t FirstEventOf(std::int32_t row) const;
    bool IsMoveRow(std::int32_t row) const;

    EditorFold fold;
};
