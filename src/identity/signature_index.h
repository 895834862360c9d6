// Finds a stored signature by what it says, without walking the whole array: a recording of hours stays as quick as
// one of a minute. The answer is the one that a walk from the first signature upward would give.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <unordered_map>
#include <vector>

#include "base/block_array.h"
#include "jobs/job_records.h"

class SignatureIndex {
public:
    // The lowest index in `windows` whose signature equals `live` and that is not yet in `path`, the signatures of a
    // chain so far; its last entry is the one to be filled and reads 0. `windows` must be the array of the call before,
    // possibly longer; any other array wants a Rebuild first.
    std::optional<std::int32_t> FindFirst(const BlockArray<WindowSignature>& windows, const WindowSignature& live,
                                          std::span<const std::int32_t> path);

    // For an array with other contents. Done at once, so that no hook has to do it.
    void Rebuild(const BlockArray<WindowSignature>& windows);

private:
    void CatchUp(const BlockArray<WindowSignature>& windows);

    std::unordered_map<std::size_t, std::vector<std::int32_t>> byHash;  // ascending
    std::size_t indexed = 0;  // signatures that are in byHash or can never match
};
