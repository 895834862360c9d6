// Two jobs, row by row: what the second has that the first has not, and the other way round. A row counts by what it
// does, where in its window, and by its delay; that it comes sooner or later because a row in front of it has come,
// gone or changed its delay is no difference. Jobs with the same rows can still differ in what no row shows: moves
// inside a row of keys, and where their windows stood.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "comparison/job_rows.h"

enum class RowChange { Removed, Added, Changed };

// What has changed of a row; several can be set.
enum RowAspect : std::uint32_t {
    DelayAspect = 1,
    WindowAspect = 2,
    ContentAspect = 4,  // keys, text, place or path
    TimingAspect = 8,   // its duration, or the times within it
    WaitingAspect = 16,
};

struct RowDifference {
    RowChange change = RowChange::Changed;
    std::int32_t rowA = -1;  // grid rows, from 0; -1: this job has no such row
    std::int32_t rowB = -1;
    std::uint32_t aspects = 0;  // of a changed row
};

// An option of the header, by the name of its field in the file.
struct OptionDifference {
    std::string name;
    std::string valueA;
    std::string valueB;
};

class JobComparison {
public:
    // Takes any two jobs. Linear in their lengths and the number of differences.
    JobComparison(Job jobA, Job jobB);

    bool AreSame() const { return options.empty() && rows.empty(); }

    const std::vector<OptionDifference>& Options() const { return options; }

    // In the order of the rows; of one place, first what is removed, then what is added.
    const std::vector<RowDifference>& Rows() const { return rows; }

    // The rows as the editor shows them, with their numbers and times.
    GridColumns ColumnsOfA(std::int32_t row) { return a.ColumnsOf(row); }
    GridColumns ColumnsOfB(std::int32_t row) { return b.ColumnsOf(row); }

private:
    void CompareOptions();
    void CompareRows();
    void AddBlock(std::int32_t endA, std::int32_t endB);
    std::uint32_t AspectsOf(std::int32_t rowA, std::int32_t rowB) const;
    bool DelayIsSame(std::int32_t rowA, std::int32_t rowB) const;

    JobRows a;
    JobRows b;
    std::vector<OptionDifference> options;
    std::vector<RowDifference> rows;
    std::int32_t doneA = 0;  // rows in front of which everything is compared
    std::int32_t doneB = 0;
    std::int32_t pairedA = -1;  // the last two rows that are the same but for their delay
    std::int32_t pairedB = -1;
};
