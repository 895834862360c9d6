#include "replay/target_search.h"

#include <algorithm>
#include <cstdlib>
#include <optional>

#include "base/runtime_failure.h"
#include "dictionary/dictionary.h"
#include "dictionary/sentences.h"
#include "identity/live_chain.h"
#include "identity/window_identity.h"
#include "platform/input.h"
#include "platform/text.h"
#include "platform/window_services.h"
#include "replay/search_hands.h"
#include "replay/search_listener.h"
#include "replay/similar_caption.h"
#include "replay/status.h"
#include "replay/top_choice.h"
#include "replay/window_match.h"

using platform::WindowHandle;

SearchState searchState;

namespace {

// Pauses in ms.
constexpr int RetryPause = 200;     // before another look for a window, and after one was brought forward
constexpr int ElementPause = 20;    // before another look for an element of a window that is there
constexpr int PlacedPause = 500;    // after a window was put in place: it needs the time
constexpr int NewPagePause = 3000;  // for a browser that shows another page than it did at the last search

constexpr int BareDialogAttempts = 20;
constexpr int WrongDepthLimit = 10;
constexpr int RestlessLimit = 3;
constexpr std::int32_t ChainLevels = 101;
constexpr std::int64_t TooFar = 100000;  // pixels

bool& PositionedFlag(WindowHandle window) {
    auto& flags = searchState.PositionedWindows;
    return flags[static_cast<std::uintptr_t>(window) % flags.size()];
}

// The task switcher and the icons' host ("WorkerW") belong to the desktop as well.
bool IsDesktop(WindowHandle root) {
    const std::string className = LiveClass(root);
    return className == "Progman" || className == "WorkerW" || root == platform::DesktopRoot();
}

bool IsBrowser(const std::string& className) {
    const std::string lower = platform::LowerCase(className);
    return lower == "mozillauiwindowclass" || lower == "chrome_widgetwin_0" || lower == "ieframe";
}

std::int64_t Distance(const platform::Rect& a, const platform::Rect& b) {
    return std::abs(std::int64_t{a.left} - b.left) + std::abs(std::int64_t{a.top} - b.top);
}

// Whether `window` is `outer` or lies in it.
bool Contains(WindowHandle outer, WindowHandle window) {
    LiveChain chain(window);
    for (std::int32_t level = 0; chain.Handle(level) != 0; ++level) {
        if (chain.Handle(level) == outer) return true;
    }
    return false;
}

std::vector<WindowHandle> DescendantsOf(WindowHandle window) {
    std::vector<WindowHandle> descendants;
    platform::ForEachDescendant(window, [&](WindowHandle descendant) {
        descendants.push_back(descendant);
        return true;
    });
    return descendants;
}

// One search. It goes in rounds: each looks at the live window, then for the recorded top-level window, then for the
// element inside that, until one of them is confirmed, the wait is over, or the user pressed ESC.
class Search {
public:
    Search(const SearchRequest& searchRequest, const std::vector<WindowSignature>& windows,
           const std::vector<WindowChain>& chains, std::string& failureReason)
        : request(searchRequest),
          wanted(searchRequest.chainIndex, windows, chains),
          reason(failureReason),
          hands(searchRequest.onlyLook) {}

    int Run();

private:
    // What a step leads to: the next one, a new round, or the end of the search with `result`.
    enum class Step { Next, NewRound, Over };

    Step Round();
    void ChooseListener();

    Step LookAtLiveWindow();
    int Attempts() const;
    bool KeysCanGo();
    bool IsTop(WindowHandle window) const;
    Step Compare();
    Fate FateOfLive();
    bool IsTheElement();
    bool UncoverDesktop();

    Step LookForTop();
    WindowHandle FindStandIn();
    Step BringTopForward();

    Step LookForElement();
    WindowHandle NearestElement(WindowHandle window, HeardBy to) const;
    Fate FateOfElement(LiveChain& candidate) const;
    bool HasRightDepth(LiveChain& candidate) const;
    bool BringElementForward(WindowHandle element);
    bool FocusIsIn(WindowHandle window) const;
    bool BelongsTo(WindowHandle outer, WindowHandle window) const;
    bool IsCovered(WindowHandle top) const;

    Step Confirmed(bool asTop);
    Step WrongDepth();
    Step PutInPlace(std::int32_t liveDepth);
    bool PlaceLevels();
    bool TopWasMoved();
    Fate FateOfInput();
    void RememberTop(std::int32_t liveDepth);
    bool ShowsNewPage(WindowHandle top, std::int32_t level);

    Step NotReady();
    Step NotThere();
    int Fail();
    Step End(int searchResult);
    void SleepAndPump(int ms);
    platform::Point AimedAt() const { return hands.Held() ? request.point : platform::CursorPosition(); }
    void SetCurrent(WindowHandle window);
    bool IsExcluded(WindowHandle window) const;
    bool TimeIsUp() const {
        if (hands.Held()) return now > startTick;
        return now - startTick > std::max(request.waitSeconds * std::int64_t{1000}, request.graceMs);
    }
    bool IsHigh() const { return request.safetyLevel == SafetyHigh; }

    // For who listens; never called without.
    void TellElement(SearchListener& to, LiveChain candidate, Fate fate) const;
    void TellCurrent(SearchStep step, Fate fate);
    void TellStandIn(LiveChain& window, Fate fate) const;
    WindowHandle InputGoesTo() const;

    const SearchRequest& request;
    const WantedChain wanted;
    std::string& reason;
    SearchHands hands;
    HeardBy listener = nullptr;  // of this round

    std::int64_t startTick = 0;
    std::int64_t now = 0;  // at the start of the round
    int tries = 0;         // misses so far
    int result = 0;
    int lastMatch = MatchNothing;
    LiveChain live;           // what is known of searchState.current
    bool several = false;     // windows of the name were there, and nothing to tell the recorded one by
    bool similar = false;     // captions may match through CaptionAlias in this round
    bool childPhase = false;  // the top-level window was brought forward: its elements are looked at
    bool waited = false;      // something was not there at once
    bool moved = false;       // the window found has another placement than the recorded one
    bool newTop = false;      // its top-level window is met for the first time in this run
    bool unsettled = false;   // something was moved, brought forward or waited for since the compare
    bool foundAsTop = false;  // the window found was compared as a top-level window, and not with its whole chain
    WindowHandle target = 0;  // the top-level window of the one found
    std::optional<platform::WindowPlacement> placed;  // of that, when it was put in place
    int restless = 0;                                 // how often it did not stay there
    std::vector<WindowHandle> minimised;              // windows that covered the desktop
    std::vector<WindowHandle> excluded;               // windows that match by name, in a chain of the wrong depth
};

int Search::Run() {
    searchState.rounds = 0;
    if (wanted.Top().ClassName == "Shell_TrayWnd" && request.useFocus) return TargetReady;
    // The clock is read between the rounds, so the first never times out, and a wait of 0 gets a second one.
    startTick = now = hands.Now();
    while (Round() != Step::Over) now = hands.Now();
    if (listener != nullptr) listener->Ended(result, searchState.current);
    return result;
}

Search::Step Search::Round() {
    ++searchState.rounds;
    similar = request.similarAllowed && TimeIsUp();
    if (HeardBy(request.listener) != nullptr) ChooseListener();
    if (hands.EscapePressed(request.escHeld)) return End(TargetCanceled);
    several = false;
    Step step = LookAtLiveWindow();
    if (step == Step::Next) step = LookForTop();
    if (step == Step::Next) step = childPhase ? LookForElement() : BringTopForward();
    return step;
}

void Search::ChooseListener() {
    const bool mayFail = TimeIsUp() || tries >= WrongDepthLimit;
    listener = mayFail || !request.lastRoundsOnly ? request.listener : nullptr;
    hands.ToldTo(listener);
    if (listener != nullptr) listener->RoundBegins(request, wanted, similar);
}

// --- the live window ---

Search::Step Search::LookAtLiveWindow() {
    const int attempts = Attempts();
    for (int attempt = 1; attempt <= attempts; ++attempt) {
        if (request.useFocus) {
            if (KeysCanGo()) return End(TargetReady);
            if (IsExcluded(searchState.current)) {
                if (listener != nullptr) TellCurrent(SearchStep::LiveWindow, Fate::OtherDepth);
                break;
            }
        } else {
            SetCurrent(platform::WindowAt(AimedAt()));
        }
        if (const Step step = Compare(); step != Step::Next) return step;
        if (attempt == 1) continue;
        ++tries;
        SleepAndPump(RetryPause);
        if (hands.EscapePressed(request.escHeld)) return End(TargetCanceled);
    }
    return Step::Next;
}

// A bare dialog (class "#32770", no caption) needs a moment to arrive.
int Search::Attempts() const {
    const WindowSignature& leaf = wanted.Leaf();
    return leaf.ClassName.starts_with('#') && leaf.Caption.empty() ? BareDialogAttempts : 1;
}

// Makes the focus the current window. True when keys can go as things are, without a compare.
bool Search::KeysCanGo() {
    // The window of the search before: the desktop was already the target then.
    const bool wasDesktop =
        wanted.Top().ClassName == "Progman" && LiveClass(LiveChain(searchState.current).Root()) == "Progman";
    WindowHandle foreground = 0;
    const WindowHandle focus = FocusedWindow(foreground);
    if (wasDesktop && (foreground == 0 || IsDesktop(LiveChain(focus).Root()))) return true;
    SetCurrent(focus);
    // A window without a focus of its own takes keys as it is.
    return searchState.current == 0 && lastMatch >= MatchClassOnly && IsTop(foreground);
}

bool Search::IsTop(WindowHandle window) const {
    const WindowSignature& top = wanted.Top();
    return LiveClass(window) == top.ClassName && LiveCaption(window) == top.Caption;
}

Search::Step Search::Compare() {
    lastMatch = MatchLive(live, wanted, similar);
    if (lastMatch >= MatchMoved) target = live.Handle(wanted.Depth());
    const Fate fate = FateOfLive();
    if (listener != nullptr) TellCurrent(SearchStep::LiveWindow, fate);
    if (fate == Fate::Taken) {
        moved = lastMatch == MatchMoved;
        unsettled = false;
        return Confirmed(false);
    }
    return UncoverDesktop() ? Step::NewRound : Step::Next;
}

Fate Search::FateOfLive() {
    if (lastMatch < MatchMoved) return FateOf(lastMatch);
    if (!IsTheTop(live, wanted)) return Fate::AnotherIsTheTop;
    return IsTheElement() ? Fate::Taken : Fate::AnotherIsNearer;
}

// An element away from its recorded place can be another one of its kind, when the window itself was moved.
bool Search::IsTheElement() {
    if (lastMatch == MatchAll || !IsHigh() || wanted.Depth() == 0) return true;
    const WindowHandle nearest = NearestElement(target, nullptr);
    return nearest == 0 || nearest == searchState.current;
}

// When the target is the desktop, minimises what lies on it, each window once. False when there is nothing to do.
bool Search::UncoverDesktop() {
    const WindowHandle cover = searchState.current;
    if (wanted.Top().Caption != "Program Manager" || cover == 0) return false;
    if (std::find(minimised.begin(), minimised.end(), cover) != minimised.end()) return false;
    minimised.push_back(cover);
    const WindowHandle root = live.Root();
    if (root == platform::DesktopRoot()) return false;  // a bare desktop, without a shell
    platform::WindowPlacement placement = platform::PlacementOf(root);
    placement.showCmd = platform::ShowMinimized;
    hands.Place(root, placement);
    return true;
}

// --- the top-level window ---

Search::Step Search::LookForTop() {
    const WindowSignature& top = wanted.Top();
    WindowHandle window = ChooseTop(top.ClassName, top.Caption, wanted, several, listener);
    if (window == 0 && request.similarAllowed) window = FindStandIn();
    SetCurrent(window);
    // A recorded minimised or maximised state comes back with the placement.
    if (window == 0) return NotReady();
    // Of several, the next round of another search would know it by its place.
    if (hands.Held()) Meet(window, wanted, {});
    if (hands.Place(window, top.Placement)) return Step::Next;
    if (listener != nullptr) TellCurrent(SearchStep::TopWindow, Fate::NotPlaced);
    return NotReady();
}

WindowHandle Search::FindStandIn() {
    const WindowSignature& top = wanted.Top();
    const std::string alias = searchState.CaptionAlias.Find(top.Caption);
    if (!alias.empty()) return ChooseTop(top.ClassName, alias, wanted, several, listener);
    if (!TimeIsUp()) return 0;
    hands.Trace("Trazim similiar window: ");
    SimilarTold tell;
    if (listener != nullptr) tell = [this](LiveChain& window, Fate fate) { TellStandIn(window, fate); };
    const SimilarWindow found = FindSimilarWindow(top.ClassName, top.Caption, tell);
    if (found.window == 0) return 0;
    searchState.CaptionAlias.Add(top.Caption, found.caption);
    hands.Trace("FOUND SIMILIAR NAME: ");
    return found.window;
}

Search::Step Search::BringTopForward() {
    const bool hasElements = IsHigh() && wanted.Depth() > 0;
    if (hasElements) hands.Sleep(RetryPause);
    const WindowHandle top = searchState.current;
    unsettled = true;
    target = top;
    const bool forward = (platform::ForegroundWindow() == top && !IsCovered(top)) || hands.BringForward(top);
    if (forward && request.useFocus && IsHigh() && !hasElements) hands.GiveFocus(top);
    hands.Pump();
    if (hasElements) {
        // With its window in front, the window under the cursor may well be the right one now.
        childPhase = true;
        return Step::NewRound;
    }
    // At Medium this is all that was asked for.
    if (forward) return Confirmed(true);
    if (listener != nullptr) TellCurrent(SearchStep::TopWindow, Fate::NotForward);
    return NotReady();
}

// --- the element in it ---

Search::Step Search::LookForElement() {
    target = searchState.current;
    unsettled = true;
    if (const WindowHandle element = NearestElement(target, listener); element != 0) {
        if (BringElementForward(element)) {
            hands.Pump();
            moved = true;
            return Confirmed(false);
        }
        if (listener != nullptr) TellCurrent(SearchStep::Element, Fate::NotForward);
    }
    ++tries;
    if (TimeIsUp()) return End(Fail());
    waited = true;
    SleepAndPump(ElementPause);
    return Step::NewRound;
}

// Of several like elements in a window, the one nearest to the recorded place; on a tie the first. 0 for none.
WindowHandle Search::NearestElement(WindowHandle window, HeardBy to) const {
    std::int64_t best = TooFar;
    WindowHandle nearest = 0;
    for (const WindowHandle descendant : DescendantsOf(window)) {
        LiveChain candidate(descendant);
        const Fate fate = FateOfElement(candidate);
        if (fate != Fate::Taken) {
            if (to != nullptr) TellElement(*to, candidate, fate);
            continue;
        }
        const platform::Rect place = platform::PlacementOf(descendant).rcNormalPosition;
        const std::int64_t distance = Distance(place, wanted.Leaf().Placement.rcNormalPosition);
        const WindowHandle farther = distance < best ? nearest : descendant;
        if (to != nullptr && farther != 0) TellElement(*to, LiveChain(farther), Fate::AnotherIsNearer);
        if (distance >= best) continue;
        best = distance;
        nearest = descendant;
    }
    if (to != nullptr && nearest != 0) TellElement(*to, LiveChain(nearest), Fate::Taken);
    return nearest;
}

Fate Search::FateOfElement(LiveChain& candidate) const {
    const int match = MatchNames(candidate, wanted, similar);
    if (match < MatchMoved) return FateOf(match);
    return !IsExcluded(candidate.Handle(0)) && HasRightDepth(candidate) ? Fate::Taken : Fate::OtherDepth;
}

// Recorded chains end at the first window that is found by its name, which is a top-level one. When another window of
// that name stands in front, the live chain ends somewhere else.
bool Search::HasRightDepth(LiveChain& candidate) const {
    return candidate.Depth(ChainLevels) == wanted.Depth() || IsTopLevel(candidate.Handle(wanted.Depth()));
}

bool Search::BringElementForward(WindowHandle element) {
    SetCurrent(element);
    if (request.useFocus && FocusIsIn(element)) return true;
    const bool forward =
        hands.BringForward(element) || platform::ForegroundWindow() == live.Handle(live.Depth(ChainLevels));
    // Its window came forward with the focus where it was last; keys want it in this very element.
    if (forward && request.useFocus && !FocusIsIn(element)) hands.GiveFocus(element);
    return forward;
}

// A window in the foreground can lie under others that never became active.
bool Search::IsCovered(WindowHandle top) const {
    return !request.useFocus && !BelongsTo(top, platform::WindowAt(AimedAt()));
}

bool Search::FocusIsIn(WindowHandle window) const {
    WindowHandle foreground = 0;
    return BelongsTo(window, FocusedWindow(foreground));
}

// Whether input for `window` is input for `outer`. A dialog is a window of its own, although another one owns it; a
// popup without a name may have been recorded as a part of its owner, and then its whole chain fits.
bool Search::BelongsTo(WindowHandle outer, WindowHandle window) const {
    if (outer != target) return Contains(outer, window);
    LiveChain chain(window);
    for (std::int32_t level = 0; chain.Handle(level) != 0; ++level) {
        if (!IsTopLevel(chain.Handle(level))) continue;
        if (chain.Handle(level) == outer) return true;
        return chain.Handle(wanted.Depth()) == outer && MatchNames(chain, wanted, similar) >= MatchMoved;
    }
    return false;
}

// --- the last look ---

// The current window matches: it becomes the target once its chain is as deep as the recorded one and everything is in
// its place. `asTop`: it was found by the signature of the recorded top-level window, and else by that of the leaf.
Search::Step Search::Confirmed(bool asTop) {
    foundAsTop = asTop;
    hands.Pump();
    if (wanted.Depth() >= ChainLevels) {
        throw RuntimeFailure(FailureKind::Range,
                             "A chain of " + std::to_string(wanted.Depth()) + " windows is too long to be replayed.");
    }
    const std::int32_t liveDepth = live.Depth(ChainLevels);
    if (IsHigh() && !HasRightDepth(live)) return WrongDepth();
    const WindowSignature& as = asTop ? wanted.Top() : wanted.Leaf();
    if (const Step step = as.ClassName == "NetUIHWND" ? Step::Next : PutInPlace(liveDepth); step != Step::Next) {
        return step;  // such panes are no real windows to move
    }
    if (waited && !newTop) {
        hands.Sleep(RetryPause);
        unsettled = true;
    }
    RememberTop(liveDepth);
    hands.Pump();
    const Fate fate = unsettled ? FateOfInput() : Fate::Taken;
    if (listener != nullptr) TellCurrent(SearchStep::LastLook, fate);
    if (fate != Fate::Taken) return NotThere();
    Meet(target, wanted, placed);
    return End(TargetReady);
}

// Labels let the mouse through to what lies behind them in the same window.
bool LiesBehindLabel(WindowHandle element, WindowHandle hit) {
    if (platform::ClassOf(hit) != "Static" || platform::ParentOf(hit) != platform::ParentOf(element)) return false;
    const platform::Rect label = platform::PlacementOf(hit).rcNormalPosition;
    const platform::Rect place = platform::PlacementOf(element).rcNormalPosition;
    return label.left < place.right && place.left < label.right && label.top < place.bottom && place.top < label.bottom;
}

// Whether input reaches the target as things are now. Something may have come in between while it was put in place, and
// a window in front can have another element under the cursor or in the focus.
Fate Search::FateOfInput() {
    // Nothing was moved or brought forward: what it would come to is not to be seen.
    if (hands.Held()) return Fate::Taken;
    const WindowHandle reached = IsHigh() ? searchState.current : target;
    if (request.useFocus) return FocusIsIn(reached) ? Fate::Taken : Fate::InputElsewhere;
    // Some windows go on to another place by themselves; they are not put back for ever.
    if (IsHigh() && placed) {
        const platform::WindowPlacement standing = platform::PlacementOf(target);
        if (!StandsAs(standing, *placed) && ++restless <= RestlessLimit) return Fate::GoesElsewhere;
        placed = standing;
    }
    const WindowHandle hit = platform::WindowAt(AimedAt());
    const bool arrives = IsHigh() ? hit == reached || LiesBehindLabel(reached, hit) : BelongsTo(reached, hit);
    return arrives ? Fate::Taken : Fate::InputElsewhere;
}

// The right name in the right place, but not the target. The limit counts all misses and no time.
Search::Step Search::WrongDepth() {
    hands.Trace("OVO NE VALJA!!!");
    if (listener != nullptr) TellCurrent(SearchStep::LastLook, Fate::OtherDepth);
    excluded.push_back(searchState.current);
    if (++tries <= WrongDepthLimit) return Step::NewRound;
    reason.clear();
    return End(TargetWindowMissing);
}

Search::Step Search::PutInPlace(std::int32_t liveDepth) {
    const bool topMoved = TopWasMoved();
    if (PositionedFlag(searchState.current) && !moved && !topMoved) {
        hands.Trace("Vecpodecen Window: ");
        return Step::Next;
    }
    newTop = newTop || !PositionedFlag(live.Handle(liveDepth));
    if (IsHigh() && !PlaceLevels()) {
        if (listener != nullptr) TellCurrent(SearchStep::LastLook, Fate::NotPlaced);
        return NotReady();
    }
    placed = platform::PlacementOf(target);
    // Flags are set at High alone. At Medium every search that gets here pays this pause: the price of that level.
    if (!newTop && !topMoved) return Step::Next;
    SleepAndPump(PlacedPause);
    unsettled = true;
    return Step::Next;
}

// At High a press lands where it did in its window, also when somebody has moved that since it was put in place. Keys
// do not mind.
bool Search::TopWasMoved() {
    if (!IsHigh() || request.useFocus || !PositionedFlag(target)) return false;
    if (unsettled) return !IsInPlace(target, platform::PlacementOf(target), wanted);
    return !IsInPlace(target, live.Placement(wanted.Depth()), wanted);  // as the compare has just seen it
}

// Top-level window first. False when one of them cannot be placed now.
bool Search::PlaceLevels() {
    for (std::int32_t level = wanted.Depth(); level >= 0; --level) {
        const WindowHandle window = live.Handle(level);
        const platform::WindowPlacement& recorded = wanted.At(level).Placement;
        const platform::WindowPlacement standing = platform::PlacementOf(window);
        if (!WindowPlacementsEqual(recorded, standing) || ShowStateOf(recorded) != ShowStateOf(standing)) {
            if (!hands.Place(window, recorded)) return false;
            unsettled = true;
        }
        PositionedFlag(window) = true;
    }
    return true;
}

// Keeps the window at the recorded depth for the next search, and gives a browser with a new page time to load it.
void Search::RememberTop(std::int32_t liveDepth) {
    if (newTop || waited) SetCurrent(searchState.current);  // what was read before the pause may have changed
    const std::int32_t level = wanted.Depth();
    // At Medium the live chain can be shorter than the recorded one: then there is no such window.
    const WindowHandle top = level <= liveDepth ? live.Handle(level) : 0;
    std::string caption = top == 0 ? std::string() : live.Caption(level);
    if (ShowsNewPage(top, level)) {
        hands.ShowStatus(StatusWebPage);
        hands.Pump();
        hands.Sleep(NewPagePause);
        caption = LiveCaption(top);
    }
    searchState.lastTopCaption = caption;
    searchState.lastTop = top;
}

// At more than recorded speed, the next click may beat the page.
bool Search::ShowsNewPage(WindowHandle top, std::int32_t level) {
    return request.speedPercent > 100 && top != 0 && top == searchState.lastTop && IsBrowser(live.ClassName(level)) &&
           live.Caption(level) != searchState.lastTopCaption;
}

// --- helpers ---

// The top-level window is not there, or does not answer: another round, while there is time.
Search::Step Search::NotReady() {
    const std::string& caption = wanted.Top().Caption;
    hands.ShowStatus(StatusWaitingForWindow, caption);
    ++tries;
    if (TimeIsUp()) {
        reason = several
                     ? Translate1("More than one window is called '%1', and none of them stands where it was recorded.",
                                  caption)
                     : Labelled("Cannot find window", "'" + caption + "'");
        return End(TargetWindowMissing);
    }
    waited = true;
    SleepAndPump(RetryPause);
    return Step::NewRound;
}

// The target is there, but something else would get the input.
Search::Step Search::NotThere() {
    if (!IsHigh() || wanted.Depth() == 0) return NotReady();
    ++tries;
    if (TimeIsUp()) return End(Fail());
    waited = true;
    SleepAndPump(RetryPause);
    return Step::NewRound;
}

int Search::Fail() {
    const WindowSignature& leaf = wanted.At(0);
    // The class is left without its closing bracket: the template's own quote follows it.
    reason = Translate2("Cannot find element: '%1' in window: '%2'", leaf.Caption + "' (" + leaf.ClassName,
                        wanted.Top().Caption);
    return TargetElementMissing;
}

Search::Step Search::End(int searchResult) {
    result = searchResult;
    return Step::Over;
}

void Search::SleepAndPump(int ms) {
    hands.Sleep(ms);
    hands.Pump();
}

void Search::SetCurrent(WindowHandle window) {
    searchState.current = window;
    live = LiveChain(window);
}

bool Search::IsExcluded(WindowHandle window) const {
    return std::find(excluded.begin(), excluded.end(), window) != excluded.end();
}

// --- what is told ---

void Search::TellElement(SearchListener& to, LiveChain candidate, Fate fate) const {
    const std::int32_t depth = fate == Fate::OtherDepth ? candidate.Depth(ChainLevels) : -1;
    TellChain(to, SearchStep::Element, fate, candidate, wanted, similar, depth);
}

void Search::TellCurrent(SearchStep step, Fate fate) {
    const WindowHandle other = fate == Fate::InputElsewhere ? InputGoesTo() : 0;
    if (step == SearchStep::TopWindow || (step == SearchStep::LastLook && foundAsTop)) {
        const std::string caption = live.Caption(0);  // the one that it was found by, be it an alias
        if (step == SearchStep::TopWindow && caption != wanted.Top().Caption) step = SearchStep::StandIn;
        return TellTop(*listener, step, fate, live, wanted, caption, other);
    }
    const std::int32_t depth = fate == Fate::OtherDepth ? live.Depth(ChainLevels) : -1;
    TellChain(*listener, step, fate, live, wanted, similar, depth, other);
}

void Search::TellStandIn(LiveChain& window, Fate fate) const {
    TellTop(*listener, SearchStep::StandIn, fate, window, wanted, wanted.Top().Caption);
}

WindowHandle Search::InputGoesTo() const {
    WindowHandle foreground = 0;
    return request.useFocus ? FocusedWindow(foreground) : platform::WindowAt(AimedAt());
}

// Puts searchState back.
struct StateKeeper {
    const SearchState before = searchState;
    StateKeeper() = default;
    StateKeeper(const StateKeeper&) = delete;
    StateKeeper& operator=(const StateKeeper&) = delete;
    ~StateKeeper() { searchState = before; }
};

}  // namespace

void ResetSearch() {
    searchState.CaptionAlias.pairs.clear();
    searchState.PositionedWindows.fill(false);
    searchState.metTops.clear();
}

int FindTarget(const SearchRequest& request, const std::vector<WindowSignature>& windows,
               const std::vector<WindowChain>& chains, std::string& reason) {
    if (!request.onlyLook) return Search(request, windows, chains, reason).Run();
    const StateKeeper keeper;
    return Search(request, windows, chains, reason).Run();
}
