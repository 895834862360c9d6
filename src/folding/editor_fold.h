// A job folded as the editor shows it, for who reads it and changes nothing: moves inside a row of keys are dropped,
// and what is left is folded again, until there are none.
#pragma once

#include <cstdint>
#include <vector>

#include "folding/fold.h"

class EditorFold {
public:
    // Takes any job; events of an unknown kind are in no row. `isWhole` tells of one without indexes, kinds and keys
    // that there are not; it is folded as it stands, and without a copy of its events unless some are dropped.
    explicit EditorFold(const Job& job, bool isWhole = false);

    // In grid order; their indexes are those of the events that are left.
    const FoldedRows& Rows() const { return rows; }

    // Where in the job an event that is left stands.
    std::int32_t PlaceOf(std::int32_t event) const { return isAll ? event : places[static_cast<std::size_t>(event)]; }

    // The events that are left, as the fold has changed them; empty for a whole job without dropped ones.
    const std::vector<JobEvent>& ChangedEvents() const { return events; }

private:
    void FoldCopy(const Job& job);
    bool DropHiddenMoves(const Job& job);

    bool isAll = true;                 // are left
    std::vector<std::int32_t> places;  // of those that are left, unless all are
    std::vector<JobEvent> events;
    FoldedRows rows;
};
