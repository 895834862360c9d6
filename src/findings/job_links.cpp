#include "findings/job_links.h"

#include <algorithm>

JobLinks::JobLinks(const Job& linkedJob) : job(linkedJob) {
    states.reserve(job.Chains.size());
    for (const WindowChain& chain : job.Chains) states.push_back(LeadsToWindows(chain) ? Good : Bad);
}

bool JobLinks::IsWindow(std::int32_t index) const {
    return index >= 0 && static_cast<std::size_t>(index) < job.Windows.size();
}

bool JobLinks::LeadsToWindows(const WindowChain& chain) const {
    if (chain.Depth < 0 || chain.Depth >= WindowChain::MaximumLevels || !IsWindow(chain.LeafWindow)) return false;
    return std::all_of(chain.Path.begin(), chain.Path.begin() + chain.Depth + 1,
                       [this](std::int32_t window) { return IsWindow(window); });
}

bool JobLinks::IsGood(std::int32_t chainIndex) const {
    if (chainIndex < 0 || static_cast<std::size_t>(chainIndex) >= states.size()) return false;
    State& state = states[static_cast<std::size_t>(chainIndex)];
    if (state == Bad) state = BadAndAskedFor;
    return state == Good;
}

bool JobLinks::HasUnusedBadChain() const {
    return std::ranges::find(states, Bad) != states.end();
}

std::int32_t JobLinks::TopIndexOf(std::int32_t chainIndex) const {
    const WindowChain& chain = job.Chains[static_cast<std::size_t>(chainIndex)];
    return chain.Path[static_cast<std::size_t>(chain.Depth)];
}

const WindowSignature& JobLinks::TopOf(std::int32_t chainIndex) const {
    return job.Windows[static_cast<std::size_t>(TopIndexOf(chainIndex))];
}
