// Which chains of a job lead to windows. Each is looked at once.
#pragma once

#include <cstdint>
#include <vector>

#include "jobs/job_records.h"

class JobLinks {
public:
    explicit JobLinks(const Job& linkedJob);

    // Whether the index is that of a chain all of whose indexes are good.
    bool IsGood(std::int32_t chainIndex) const;

    // Whether a chain is bad that no event has asked for with IsGood.
    bool HasUnusedBadChain() const;

    // Of a good chain.
    const WindowSignature& TopOf(std::int32_t chainIndex) const;
    std::int32_t TopIndexOf(std::int32_t chainIndex) const;

private:
    bool LeadsToWindows(const WindowChain& chain) const;
    bool IsWindow(std::int32_t index) const;

    enum State : std::uint8_t { Good, Bad, BadAndAskedFor };

    const Job& job;
    mutable std::vector<State> states;
};
