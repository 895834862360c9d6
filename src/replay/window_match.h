// The compare of live windows with recorded ones. Asks the system for as little as the answer needs, the cheapest
// first. Never pumps.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "identity/live_chain.h"
#include "jobs/job_records.h"

// One chain of a job with its signatures. Indexes come from a file: one that points nowhere is a range failure.
class WantedChain {
public:
    WantedChain(std::int32_t chainIndex, const std::vector<WindowSignature>& windows,
                const std::vector<WindowChain>& chains);

    std::int32_t Depth() const { return chain.Depth; }
    const WindowSignature& Leaf() const;
    const WindowSignature& At(std::int32_t level) const;
    const WindowSignature& Top() const { return At(chain.Depth); }
    std::int32_t TopIndex() const;

private:
    const WindowChain& chain;
    const std::vector<WindowSignature>& signatures;
};

// MatchWindow without a look at the placement: MatchMoved is then the best. What has been asked of the live window is
// kept in `live`.
int MatchNames(LiveChain& live, const WantedChain& wanted, bool similar);

// MatchWindow, likewise.
int MatchLive(LiveChain& live, const WantedChain& wanted, bool similar);

// What compares equal between a live window and the recorded one of a level, by the rules of MatchLive. (That takes
// only the placement of the window itself for a difference.)
struct LevelMatch {
    bool className = false;
    bool caption = false;
    bool placement = false;
};
LevelMatch MatchLevel(LiveChain& live, const WantedChain& wanted, std::int32_t level, bool similar);
