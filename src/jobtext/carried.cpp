#include "jobtext/carried.h"

#include <algorithm>

std::int32_t LevelsOf(const WindowChain& chain) {
    if (chain.Depth >= -1 && chain.Depth < WindowChain::MaximumLevels) return chain.Depth + 1;
    const auto last =
        std::find_if(chain.Path.rbegin(), chain.Path.rend(), [](std::int32_t window) { return window != 0; });
    return static_cast<std::int32_t>(chain.Path.rend() - last);
}

bool CarriesAll(const WindowChain& chain) {
    return std::all_of(chain.Path.begin() + LevelsOf(chain), chain.Path.end(),
                       [](std::int32_t window) { return window == 0; });
}

JobEvent Carried(const JobEvent& event) {
    JobEvent carried = event;
    for (std::size_t word = 0; word < event.word.size(); ++word) {
        if ((WordsCarried(event.dwType()) >> word & 1) == 0) carried.word[word] = 0;
    }
    return carried;
}

WindowChain Carried(const WindowChain& chain) {
    WindowChain carried = chain;
    std::fill(carried.Path.begin() + LevelsOf(chain), carried.Path.end(), 0);
    return carried;
}
