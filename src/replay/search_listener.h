// What a search tells of itself while it goes: every window that it looks at, in which step, what became of it and why,
// and what it does to the desktop. Whoever explains a search listens to the search itself, so that what is explained is
// what was done. Without a listener nothing of this is put together; telling is left to functions that nobody calls
// then. A listener must not pump.
#pragma once

#include <cstdint>
#include <vector>

#include "identity/live_chain.h"
#include "platform/types.h"
#include "replay/window_match.h"

struct SearchRequest;

// The steps of a round, in their order.
enum class SearchStep {
    LiveWindow,  // the window under the cursor, or with the focus
    TopWindow,   // the top-level windows of the recorded name
    StandIn,     // those with a similar caption
    Element,     // what lies in the top-level window
    LastLook,    // the one found: its depth, its place, and whether input reaches it
};

// What became of a window in a step.
enum class Fate {
    Taken,
    OtherClass,
    OtherCaption,
    OtherParents,
    AnotherIsTheTop,  // it lies in a window of the recorded name that is not the recorded one
    AnotherIsNearer,  // to the recorded place
    AnotherIsBetter,  // stands as recorded, was met before, or has more words of the caption
    Hidden,           // while others of its name are shown
    OneOfSeveral,     // of this name, and nothing to tell the recorded one by
    OtherDepth,       // more or fewer windows lie around it than around the recorded one
    NotFoundByName,   // another window of its name stands in front of it
    NotPlaced,        // it did not answer, or refuses the place
    NotForward,       // it did not come to the front
    GoesElsewhere,    // it does not stay where it was put
    InputElsewhere,   // something else would get the input
};

// The fate of a window that compares like this (see MatchWindow). Asked of every element of a window.
constexpr Fate FateOf(int match) {
    switch (match) {
        case 0:
            return Fate::OtherClass;
        case 1:
            return Fate::OtherCaption;
        case -1:
            return Fate::OtherParents;
        default:
            return Fate::Taken;
    }
}

struct LookedAt {
    SearchStep step = SearchStep::LiveWindow;
    Fate fate = Fate::Taken;
    LiveChain& live;
    std::int32_t level = 0;            // of the recorded chain that the window itself was held against
    std::vector<LevelMatch> levels;    // from there up to the recorded top-level window
    std::int32_t liveDepth = -1;       // where its chain ends, if that was looked at
    platform::WindowHandle other = 0;  // that gets the input in its place
};

enum class SearchAct { Minimise, Place, BringForward, Focus };

class SearchListener {
public:
    virtual ~SearchListener() = default;

    // A new round; what was told of the one before is out of date. `similar`: captions may differ from now on.
    virtual void RoundBegins(const SearchRequest& request, const WantedChain& wanted, bool similar) = 0;

    // A window that is told twice in one step has met the second fate after the first.
    virtual void Looked(const LookedAt& window) = 0;

    // About to be done, or, by a search that only looks, what another one would do.
    virtual void Acts(SearchAct act, platform::WindowHandle window) = 0;

    // `found` is the window that the search ended with; 0 too where keys go as things are.
    virtual void Ended(int result, platform::WindowHandle found) = 0;
};

// Who listens, and whether a search only looks: a pointer and a flag. The bench of the search is built once more as a
// search that has never heard of either, to tell what they cost the search of a run.
#ifdef TESSARINE_PLAIN_SEARCH
struct HeardBy {
    constexpr HeardBy(SearchListener*) {}
    constexpr operator SearchListener*() const { return nullptr; }
    constexpr SearchListener* operator->() const { return nullptr; }
};
struct OnlyLooks {
    constexpr explicit OnlyLooks(bool) {}
    constexpr operator bool() const { return false; }
};
#else
using HeardBy = SearchListener*;
using OnlyLooks = bool;
#endif

// Tells of a window whose whole chain was compared, as MatchLive does it.
void TellChain(SearchListener& listener, SearchStep step, Fate fate, LiveChain& live, const WantedChain& wanted,
               bool similar, std::int32_t liveDepth = -1, platform::WindowHandle other = 0);

// Tells of a top-level window that was compared by itself, with this class and caption.
void TellTop(SearchListener& listener, SearchStep step, Fate fate, LiveChain& live, const WantedChain& wanted,
             const std::string& caption, platform::WindowHandle other = 0);
