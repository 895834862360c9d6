// Grid rows of the open job and the events that they stand for. Rows are counted from 0, without the header. A row or
// an event that does not exist is a range failure.
#pragma once

#include <cstdint>

#include "jobs/job_records.h"

std::int32_t RowCount();

// MouseRowKind or KeyRowKind.
std::int32_t KindOfRow(std::int32_t row);

// From the first to the last event, those of other rows in between included.
struct EventRange {
    std::int32_t first = 0;
    std::int32_t last = 0;
};
EventRange EventsOfRow(std::int32_t row);

// The index of a keystroke row among those of its kind; -1 for a mouse row.
std::int32_t KeyRowOf(std::int32_t row);

// Of the working copy.
const JobEvent& EditEventAt(std::int32_t event);

// The row that an event stands in: the last that begins at it or before it, 0 when there is none.
std::int32_t RowAtEvent(std::int32_t event);
