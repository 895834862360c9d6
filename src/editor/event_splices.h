// Changes of an array of events as values: each can be applied, and then holds what takes it back. Nothing here pumps.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "jobs/job_records.h"

// Where the events `out` stand, from `first` on, the events `in` come instead. Either may be empty.
struct Splice {
    std::int32_t first = 0;
    std::vector<JobEvent> out;
    std::vector<JobEvent> in;

    // Of the heads of text rows in `out` and in `in`, in their order: what they type.
    std::vector<std::string> outTexts;
    std::vector<std::string> inTexts;
};

// Splices by their places in the array as it is before the first of them, in order and apart.
using Splices = std::vector<Splice>;

// Applies all of them in one walk from the first one to the end of the array. What comes in and types a text gets a new
// place in `strings`. Afterwards `splices` takes it all back. Without memory, nothing has changed.
void Apply(std::vector<JobEvent>& events, std::vector<std::string>& strings, Splices& splices);
