#include "jobtext/carried.h"

#include <algorithm>
#include <array>
#include <cstring>

std::int32_t LevelsOf(const WindowChain& chain) {
    if (chain.Depth >= -1 && chain.Depth < WindowChain::MaximumLevels) return chain.Depth + 1;
    const auto last =
        std::find_if(chain.Path.rbegin(), chain.Path.rend(), [](std::int32_t window) { return window != 0; });
    return static_cast<std::int32_t>(chain.Path.rend() - last);
}

// Compared as a block: it is nearly always all zeros, and a kilobyte of them.
bool CarriesAll(const WindowChain& chain) {
    static constexpr std::array<std::int32_t, WindowChain::MaximumLevels> zeros{};
    const auto levels = static_cast<std::size_t>(LevelsOf(chain));
    return std::memcmp(chain.Path.data() + levels, zeros.data(), (zeros.size() - levels) * sizeof zeros[0]) == 0;
}

JobEvent Carried(const JobEvent& event) {
    if (CarriesAll(event)) return event;
    JobEvent carried = event;
    auto& word = carried.word;
    word[5] = 0;
    if (event.dwType() == platform::InputKeyboard) {
        word[6] = 0;
        return carried;
    }
    word[1] = word[2] = word[4] = 0;
    if (event.dwType() != INPUT_TEXT && event.dwType() != TextContinuation) word[6] = 0;
    return carried;
}

WindowChain Carried(const WindowChain& chain) {
    WindowChain carried = chain;
    std::fill(carried.Path.begin() + LevelsOf(chain), carried.Path.end(), 0);
    return carried;
}
