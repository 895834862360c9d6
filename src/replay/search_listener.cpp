#include "replay/search_listener.h"

#include "replay/target_search.h"

void TellChain(SearchListener& listener, SearchStep step, Fate fate, LiveChain& live, const WantedChain& wanted,
               bool similar, std::int32_t liveDepth, platform::WindowHandle other) {
    std::vector<LevelMatch> levels;
    for (std::int32_t level = 0; level <= wanted.Depth(); ++level) {
        levels.push_back(MatchLevel(live, wanted, level, similar));
    }
    listener.Looked({step, fate, live, 0, std::move(levels), liveDepth, other});
}

void TellTop(SearchListener& listener, SearchStep step, Fate fate, LiveChain& live, const WantedChain& wanted,
             const std::string& caption, platform::WindowHandle other) {
    const WindowSignature& top = wanted.Top();
    const LevelMatch match = {live.ClassName(0) == top.ClassName, live.Caption(0) == caption,
                              live.Placement(0).rcNormalPosition == top.Placement.rcNormalPosition};
    listener.Looked({step, fate, live, wanted.Depth(), {match}, -1, other});
}
