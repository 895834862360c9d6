#include "replay/similar_caption.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "identity/live_chain.h"
#include "platform/text.h"
#include "platform/window_services.h"

namespace {

using Words = std::vector<std::string>;

Words WordsOf(const std::string& caption) {
    const std::string text = platform::LowerCase(caption);
    Words words;
    for (std::size_t start = 0; (start = text.find_first_not_of(' ', start)) != std::string::npos;) {
        const std::size_t end = std::min(text.find(' ', start), text.size());
        words.push_back(text.substr(start, end - start));
        start = end;
    }
    return words;
}

// Pairs of equal words; a repeated word counts for each. Single characters (dashes, initials) say nothing.
std::ptrdiff_t Score(const Words& recorded, const Words& live) {
    std::ptrdiff_t score = 0;
    for (const std::string& word : recorded) {
        if (word.size() >= 2) score += std::count(live.begin(), live.end(), word);
    }
    return score;
}

// The very last window of the enumeration is never a candidate: the walk has always stopped one short of it, and
// which window stands in for a changed one depends on that.
std::vector<platform::WindowHandle> Candidates() {
    std::vector<platform::WindowHandle> windows;
    platform::ForEachTopWindow([&](platform::WindowHandle window) {
        windows.push_back(window);
        return true;
    });
    if (!windows.empty()) windows.pop_back();
    return windows;
}

}  // namespace

SimilarWindow FindSimilarWindow(const std::string& className, const std::string& caption) {
    const Words recorded = WordsOf(caption);
    SimilarWindow best;
    std::ptrdiff_t bestScore = 0;
    for (const platform::WindowHandle window : Candidates()) {
        LiveChain live(window);
        if (live.ClassName(0) != className) continue;
        const std::ptrdiff_t score = Score(recorded, WordsOf(live.Caption(0)));
        if (score < bestScore || !live.IsFoundByName(0)) continue;
        bestScore = score;
        best = {window, live.Caption(0)};
    }
    return best;
}
