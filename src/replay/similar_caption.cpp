#include "replay/similar_caption.h"

#include <algorithm>
#include <functional>
#include <string_view>
#include <utility>
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

struct ScoredWindow {
    LiveChain live;
    std::ptrdiff_t score = 0;
};

// The best first.
std::vector<ScoredWindow> Scored(const std::string& className, const std::string& caption) {
    const Words recorded = WordsOf(caption);
    std::vector<ScoredWindow> scored;
    for (const platform::WindowHandle window : Candidates()) {
        LiveChain live(window);
        if (live.ClassName(0) != className) continue;
        const std::ptrdiff_t score = Score(recorded, WordsOf(live.Caption(0)));
        scored.push_back({std::move(live), score});
    }
    std::reverse(scored.begin(), scored.end());  // on a tie the later one wins
    std::ranges::stable_sort(scored, std::greater(), &ScoredWindow::score);
    return scored;
}

}  // namespace

// Classes are the cheapest to ask for, captions come next, and to be found by name costs a walk of the system over all
// windows: so that is asked of the best first, mostly once.
SimilarWindow FindSimilarWindow(const std::string& className, const std::string& caption, const SimilarTold& tell) {
    SimilarWindow found;
    for (ScoredWindow& each : Scored(className, caption)) {
        Fate fate = Fate::AnotherIsBetter;
        if (found.window == 0) fate = each.live.IsFoundByName(0) ? Fate::Taken : Fate::NotFoundByName;
        if (fate == Fate::Taken) found = {each.live.Handle(0), each.live.Caption(0)};
        if (tell) {
            tell(each.live, fate);
        } else if (found.window != 0) {
            break;
        }
    }
    return found;
}

std::ptrdiff_t WordsInCommon(const std::string& recorded, const std::string& live) {
    return Score(WordsOf(recorded), WordsOf(live));
}
