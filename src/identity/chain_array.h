// The window chains of a recording. A chain of a job has room for 256 levels, a kilobyte; here each takes as much as it
// has levels, so that a press costs some words of memory and not a page. Growth moves nothing. Its functions are named
// as those of std::vector; elements are copies.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "base/block_array.h"
#include "jobs/job_records.h"

class ChainArray {
public:
    using value_type = WindowChain;

    ChainArray() = default;
    ChainArray(const std::vector<WindowChain>& ofOpenJob) : given(ofOpenJob) {}

    // As a job has them.
    operator std::vector<WindowChain>() const;

    std::size_t size() const { return given.size() + chains.size(); }
    bool empty() const { return size() == 0; }

    // A range failure for a chain that does not exist.
    WindowChain at(std::size_t index) const;
    WindowChain operator[](std::size_t index) const { return at(index); }
    WindowChain back() const { return at(size() - 1); }

    // A new chain, as yet without windows, and what it consists of: indexes of signatures, the window itself first.
    // Only new ones can be set. Without memory, nothing changes.
    void Append() { chains.emplace_back(); }
    void Set(std::size_t index, std::span<const std::int32_t> path);

    // Provides memory ahead of need for so many in all, or for the next of them.
    void Reserve(std::size_t count);

private:
    struct Place {
        std::size_t first = 0;  // of its levels
        std::size_t count = 0;
    };

    std::vector<WindowChain> given;  // of an open job, as they were read; they come first
    BlockArray<Place> chains;
    BlockArray<std::int32_t> levels;
};
