// The events of a recording while it grows, by 32-bit indexes as jobs have them. Growth never moves what is there.
// Nothing here pumps.
#pragma once

#include <cstdint>
#include <vector>

#include "base/block_array.h"
#include "jobs/job_records.h"

class EventArray {
public:
    // Empty, with room for the indexes 0..upperBound; the memory of the recording before is given back.
    void Reset(std::int32_t upperBound);

    // Provides memory for the indexes 0..upperBound, or for the next of them if those are very many.
    void Reserve(std::int32_t upperBound);

    // Cuts off everything from `count` on and gives the room back.
    void Trim(std::int32_t count);

    // The event at `index`, all words zero; the array becomes that long if it is shorter. Without memory for it,
    // nothing changes.
    JobEvent& NewSlot(std::int32_t index);

    // A range failure for an index that was never taken.
    JobEvent& operator[](std::int32_t index) {
        if (index < 0 || index >= Size()) Refuse(index);
        return events[static_cast<std::size_t>(index)];
    }
    const JobEvent& operator[](std::int32_t index) const { return const_cast<EventArray&>(*this)[index]; }

    // Slots that were taken so far; a slot that was given back counts on.
    std::int32_t Size() const { return static_cast<std::int32_t>(events.size()); }

    // A copy in one piece.
    std::vector<JobEvent> First(std::int32_t count) const;

private:
    [[noreturn]] void Refuse(std::int32_t index) const;

    BlockArray<JobEvent> events;
};
