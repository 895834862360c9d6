// A job as the rows that the editor shows, with the meaning of each row as numbers: rows of two jobs are compared
// without making their texts. The open job of the editor is borrowed for a moment while a job is folded and while
// texts are made, and is afterwards as it was.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "folding/popuni_listu.h"
#include "folding/row_texts.h"
#include "jobs/job_records.h"

// Of two rows with the same number, the same is meant.
struct RowMeaning {
    std::uint64_t action = 0;   // what is done: click, typing, wheel, moves
    std::uint64_t window = 0;   // class, caption and control id of each window of the chain
    std::uint64_t content = 0;  // keys and texts, places in the window, the path of moves on the screen
    std::uint64_t timing = 0;   // of the events within the row
    std::uint64_t waiting = 0;  // for the window, and what is done without it
    bool operator==(const RowMeaning&) const = default;
};

// Of the row's first and last event, in ms.
struct RowTimes {
    std::int64_t first = 0;
    std::int64_t last = 0;
};

class JobRows {
public:
    // Takes any job. Pumps nothing and shows no box.
    explicit JobRows(Job job);

    std::int32_t Count() const { return static_cast<std::int32_t>(state.RowIndex.size()); }
    const JobHeader& Header() const { return state.header; }
    const RowMeaning& MeaningOf(std::int32_t row) const { return meanings[static_cast<std::size_t>(row)]; }

    // One number for a whole meaning.
    const std::vector<std::uint64_t>& Numbers() const { return numbers; }

    const RowTimes& TimesOf(std::int32_t row) const { return times[static_cast<std::size_t>(row)]; }

    // As the editor shows them.
    GridColumns ColumnsOf(std::int32_t row);

private:
    void ReadMeanings();

    EditState state;
    std::vector<RowMeaning> meanings;
    std::vector<RowTimes> times;
    std::vector<std::uint64_t> numbers;
};
