#include "replay/explanation.h"

#include <algorithm>
#include <utility>

#include "base/runtime_failure.h"
#include "jobs/event_targets.h"
#include "platform/window_services.h"
#include "replay/reach.h"

using platform::WindowHandle;

namespace {

std::optional<Explanation> failedSearch;

std::optional<WindowSignature> Describe(LiveChain& live, std::int32_t level) {
    const WindowHandle window = live.Handle(level);
    if (window == 0) return std::nullopt;
    WindowSignature signature;
    signature.ClassName = live.ClassName(level);
    signature.Caption = live.Caption(level);
    signature.Placement = live.Placement(level);
    signature.ControlId = platform::ControlIdOf(window);
    return signature;
}

std::vector<LevelComparison> Compared(const LookedAt& window, const std::vector<WindowSignature>& recorded) {
    std::vector<LevelComparison> levels;
    for (std::size_t i = 0; i < window.levels.size(); ++i) {
        const auto level = static_cast<std::int32_t>(i);
        LevelComparison compared = {window.level + level, {}, Describe(window.live, level), window.levels[i]};
        compared.recorded = CheckedAt(recorded, compared.level, "Window level");
        levels.push_back(std::move(compared));
    }
    // Where its chain goes on, that is what is wrong with it.
    for (auto level = static_cast<std::int32_t>(levels.size()); level <= window.liveDepth; ++level) {
        levels.push_back({level, {}, Describe(window.live, level), {}});
    }
    return levels;
}

// Of the window that gets the input: of its top-level window, or of an element in the same one.
std::string TitleOf(WindowHandle other, WindowHandle root) {
    if (other == 0) return {};
    const WindowHandle otherRoot = LiveChain(other).Root();
    const WindowHandle named = otherRoot == root ? other : otherRoot;
    const std::string title = LiveCaption(named);
    return title.empty() ? LiveClass(named) : title;
}

// A run has them out of the way, when it comes to look under the pointer.
bool IsOurs(LiveChain& live) {
    return platform::ThreadOf(live.Handle(0)) == platform::CurrentThread();
}

}  // namespace

// --- listening ---

void Explainer::RoundBegins(const SearchRequest& request, const WantedChain& wanted, bool similar) {
    explanation = {};
    explanation.onlyLooked = request.onlyLook;
    explanation.useFocus = request.useFocus;
    explanation.similarAllowed = request.similarAllowed;
    explanation.similarTried = similar;
    explanation.safetyLevel = request.safetyLevel;
    explanation.waitSeconds = request.waitSeconds;
    explanation.recorded.push_back(wanted.Leaf());
    for (std::int32_t level = 1; level <= wanted.Depth(); ++level) explanation.recorded.push_back(wanted.At(level));
}

void Explainer::Looked(const LookedAt& window) {
    if (window.live.Handle(0) == 0) return;  // nothing has the focus, or lies under the cursor
    if (window.step == SearchStep::Element && window.fate == Fate::OtherClass) {
        ++explanation.othersLookedAt;
        return;
    }
    if (explanation.onlyLooked && window.step == SearchStep::LiveWindow && IsOurs(window.live)) return;
    Candidate candidate;
    candidate.window = window.live.Handle(0);
    candidate.step = window.step;
    candidate.fate = window.fate;
    candidate.liveDepth = window.liveDepth;
    candidate.otherTitle = TitleOf(window.other, window.live.Root());
    candidate.levels = Compared(window, explanation.recorded);
    auto& all = explanation.candidates;
    std::erase_if(all,
                  [&](const Candidate& each) { return each.window == candidate.window && each.step == window.step; });
    all.push_back(std::move(candidate));
}

void Explainer::Acts(SearchAct act, WindowHandle window) {
    auto& acts = explanation.acts;
    const bool known =
        std::ranges::any_of(acts, [&](const SearchedAct& each) { return each.act == act && each.window == window; });
    if (!known) acts.push_back({act, window});
}

void Explainer::Ended(int result, WindowHandle found) {
    explanation.result = result;
    explanation.found = result > 0 ? found : 0;
}

SearchRequest RequestFor(const JobHeader& job, const JobEvent& event, bool useFocus) {
    SearchRequest request;
    request.speedPercent = job.SpeedPercent;
    request.chainIndex = event.WindowChainIndex;
    request.safetyLevel = job.SafetyLevel;
    request.similarAllowed = job.SimilarWindowNames == 1;
    request.waitSeconds = event.WaitForWindow;
    request.useFocus = useFocus;
    if (event.dwType() == platform::InputMouse) request.point = {event.dx(), event.dy()};
    return request;
}

// --- a search that only looks ---

Explanation ExplainRequest(SearchRequest request, const std::vector<WindowSignature>& windows,
                           const std::vector<WindowChain>& chains) {
    Explainer explainer;
    request.onlyLook = true;
    request.listener = &explainer;
    request.lastRoundsOnly = false;
    std::string reason;
    const int result = FindTarget(request, windows, chains, reason);
    Explanation explanation = explainer.Heard();
    explanation.onlyLooked = true;  // the search for the task bar says nothing
    explanation.result = result;
    explanation.reason = reason;
    if (result < 1) return explanation;
    const std::int32_t reached = CheckReach(explanation.found, explanation.reason);
    if (reached < 1) explanation.result = reached;
    return explanation;
}

Explanation Explain(const Job& job, std::int32_t event) {
    const JobEvent& searched = CheckedAt(job.Events, event, "Event");
    const bool checked = job.SafetyLevel == SafetyHigh || job.SafetyLevel == SafetyMedium;
    if (!checked || searched.WindowChainIndex < 0 || !LooksForWindow(searched)) {
        Explanation nothing;
        nothing.onlyLooked = true;
        nothing.safetyLevel = job.SafetyLevel;
        return nothing;
    }
    // As at the beginning of a run, whatever the last one has left.
    SearchState before = std::exchange(searchState, {});
    try {
        Explanation explanation =
            ExplainRequest(RequestFor(job, searched, GoesToFocus(searched)), job.Windows, job.Chains);
        searchState = std::move(before);
        return explanation;
    } catch (...) {
        searchState = std::move(before);
        throw;
    }
}

Explanation Explain(const Job& job, std::int32_t firstEvent, std::int32_t lastEvent) {
    for (std::int32_t event = firstEvent; event <= lastEvent; ++event) {
        const JobEvent& each = CheckedAt(job.Events, event, "Event");
        if (each.WindowChainIndex >= 0 && LooksForWindow(each)) return Explain(job, event);
    }
    return Explain(job, firstEvent);
}

// --- the last failure ---

const Explanation* LastFailedSearch() {
    return failedSearch ? &*failedSearch : nullptr;
}

void KeepFailedSearch(const Explanation& explanation) {
    failedSearch = explanation;
}

void ForgetFailedSearch() {
    failedSearch.reset();
}
