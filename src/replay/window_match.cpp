#include "replay/window_match.h"

#include <algorithm>
#include <string_view>

#include "base/runtime_failure.h"
#include "base/text.h"
#include "identity/window_identity.h"
#include "platform/text.h"
#include "platform/window_services.h"
#include "replay/target_search.h"

namespace {

constexpr std::string_view generatedClass = "Afx:";

// The rest of such a class is made up when the application starts, and differs from start to start.
bool IsGenerated(std::string_view className) {
    return className.starts_with(generatedClass);
}

bool IsGeneratedInAnyCase(std::string_view className) {
    return platform::LowerCase(className.substr(0, generatedClass.size())) == "afx:";
}

// These are asked of every element of a window, and stand in MatchNames itself for that.
inline bool LeafClassMatches(const std::string& live, const std::string& recorded) {
    return live == recorded || (IsGenerated(live) && IsGenerated(recorded));
}

// Unlike the leaf's, a parent's generated class is known in any case of its letters. Jobs rely on either.
inline bool ParentClassMatches(const std::string& live, const std::string& recorded) {
    return live == recorded || (IsGeneratedInAnyCase(live) && IsGeneratedInAnyCase(recorded));
}

inline bool CaptionMatches(const std::string& live, const std::string& recorded, bool similar) {
    if (live == recorded) return true;
    return similar && !live.empty() && searchState.CaptionAlias.Find(recorded) == live;
}

bool MatchParents(LiveChain& live, const WantedChain& wanted, bool similar) {
    for (std::int32_t level = 1; level <= wanted.Depth(); ++level) {
        const WindowSignature& parent = wanted.At(level);
        if (!ParentClassMatches(live.ClassName(level), parent.ClassName)) return false;
        if (!CaptionMatches(live.Caption(level), parent.Caption, similar)) return false;
    }
    return true;
}

}  // namespace

WantedChain::WantedChain(std::int32_t chainIndex, const std::vector<WindowSignature>& windows,
                         const std::vector<WindowChain>& chains)
    : chain(CheckedAt(chains, chainIndex, "Window chain")), signatures(windows) {}

const WindowSignature& WantedChain::Leaf() const {
    return CheckedAt(signatures, chain.LeafWindow, "Window");
}

std::int32_t WantedChain::TopIndex() const {
    return CheckedAt(chain.Path, chain.Depth, "Window level");
}

const WindowSignature& WantedChain::At(std::int32_t level) const {
    return CheckedAt(signatures, CheckedAt(chain.Path, level, "Window level"), "Window");
}

int MatchNames(LiveChain& live, const WantedChain& wanted, bool similar) {
    const WindowSignature& leaf = wanted.Leaf();
    if (!LeafClassMatches(live.ClassName(0), leaf.ClassName)) return MatchNothing;
    if (!CaptionMatches(live.Caption(0), leaf.Caption, similar)) return MatchClassOnly;
    return MatchParents(live, wanted, similar) ? MatchMoved : MatchOtherParents;
}

int MatchLive(LiveChain& live, const WantedChain& wanted, bool similar) {
    const int match = MatchNames(live, wanted, similar);
    if (match != MatchMoved) return match;
    return WindowPlacementsEqual(wanted.Leaf().Placement, live.Placement(0)) ? MatchAll : MatchMoved;
}

LevelMatch MatchLevel(LiveChain& live, const WantedChain& wanted, std::int32_t level, bool similar) {
    const WindowSignature& recorded = level == 0 ? wanted.Leaf() : wanted.At(level);
    const std::string& className = live.ClassName(level);
    return {level == 0 ? LeafClassMatches(className, recorded.ClassName)
                       : ParentClassMatches(className, recorded.ClassName),
            CaptionMatches(live.Caption(level), recorded.Caption, similar),
            WindowPlacementsEqual(recorded.Placement, live.Placement(level))};
}

int MatchWindow(platform::WindowHandle window, std::int32_t chainIndex, const std::vector<WindowSignature>& windows,
                const std::vector<WindowChain>& chains, bool similar) {
    LiveChain live(window);
    return MatchLive(live, WantedChain(chainIndex, windows, chains), similar);
}

bool SameChain(const WindowChain& a, const WindowChain& b) {
    if (a.Depth != b.Depth) return false;
    const auto levels = std::clamp(a.Depth + 1LL, 0LL, static_cast<long long>(WindowChain::MaximumLevels));
    return std::equal(a.Path.begin(), a.Path.begin() + levels, b.Path.begin());
}

void CaptionAliasTable::Add(const std::string& recorded, const std::string& live) {
    pairs.emplace_back(Trim(recorded), Trim(live));
}

std::string CaptionAliasTable::Find(const std::string& recorded) const {
    const auto found =
        std::find_if(pairs.begin(), pairs.end(), [&](const auto& pair) { return pair.first == recorded; });
    return found == pairs.end() ? std::string() : found->second;
}
