// The events of a recording while it grows. They lie in blocks, so growth never moves what is there: a hook that makes
// the array longer costs the same with a million events as with a thousand. Nothing here pumps.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "jobs/job_records.h"

class EventArray {
public:
    // Empty, with room for the indexes 0..upperBound.
    void Reset(std::int32_t upperBound);

    // Makes room for the indexes 0..upperBound; what is there stays where it is.
    void Reserve(std::int32_t upperBound);

    // Cuts off everything from `count` on and gives the room back.
    void Trim(std::int32_t count);

    // The event at `index`, all words zero; the array becomes that long if it is shorter.
    JobEvent& NewSlot(std::int32_t index);

    // A range failure for an index that was never taken.
    JobEvent& operator[](std::int32_t index) {
        if (index < 0 || index >= size) Refuse(index);
        return At(index);
    }
    const JobEvent& operator[](std::int32_t index) const { return const_cast<EventArray&>(*this)[index]; }

    // Slots that were taken so far; a slot that was given back counts on.
    std::int32_t Size() const { return size; }

    // A copy in one piece.
    std::vector<JobEvent> First(std::int32_t count) const;

private:
    static constexpr std::size_t BlockSize = 4096;

    [[noreturn]] void Refuse(std::int32_t index) const;
    JobEvent& At(std::int32_t index) {
        const auto place = static_cast<std::size_t>(index);
        return blocks[place / BlockSize][place % BlockSize];
    }

    std::vector<std::vector<JobEvent>> blocks;  // each reserved in full, filled as slots are taken
    std::int32_t size = 0;
};
