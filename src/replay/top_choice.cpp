#include "replay/top_choice.h"

#include <algorithm>
#include <vector>

#include "identity/live_chain.h"
#include "platform/window_services.h"
#include "replay/target_search.h"

using platform::WindowHandle;

namespace {

bool HasRecordedRectangle(const platform::WindowPlacement& placement, const WantedChain& wanted) {
    return placement.rcNormalPosition == wanted.Top().Placement.rcNormalPosition;
}

bool HasRecordedRectangle(WindowHandle window, const WantedChain& wanted) {
    return HasRecordedRectangle(platform::PlacementOf(window), wanted);
}

MetTop* FindMet(WindowHandle window, std::int32_t signature) {
    auto& met = searchState.metTops;
    const auto found = std::ranges::find_if(
        met, [&](const MetTop& each) { return each.window == window && each.signature == signature; });
    return found == met.end() ? nullptr : &*found;
}

bool WasMet(WindowHandle window) {
    return std::ranges::any_of(searchState.metTops, [&](const MetTop& each) { return each.window == window; });
}

// Who is told of the windows that ChooseTop looks at.
struct Telling {
    SearchListener& listener;
    const WantedChain& wanted;
    const std::string& caption;

    void Tell(WindowHandle window, Fate fate) const {
        const auto step = caption == wanted.Top().Caption ? SearchStep::TopWindow : SearchStep::StandIn;
        LiveChain live(window);
        TellTop(listener, step, fate, live, wanted, caption);
    }
    void TellStranger(WindowHandle window, bool ofTheClass) const {
        if (ofTheClass) return Tell(window, Fate::OtherCaption);
        if (!caption.empty() && LiveCaption(window) == caption) Tell(window, Fate::OtherClass);
    }
    void TellHidden(const std::vector<WindowHandle>& windows) const {
        for (const WindowHandle window : windows) {
            if (!platform::IsShown(window)) Tell(window, Fate::Hidden);
        }
    }
    void TellChoice(const std::vector<WindowHandle>& windows, WindowHandle chosen) const {
        for (const WindowHandle window : windows) {
            if (window != chosen) Tell(window, chosen == 0 ? Fate::OneOfSeveral : Fate::AnotherIsBetter);
        }
        if (chosen != 0) Tell(chosen, Fate::Taken);
    }
};

std::vector<WindowHandle> NamedWindows(const std::string& className, const std::string& caption,
                                       const Telling* telling = nullptr) {
    std::vector<WindowHandle> windows;
    platform::ForEachTopWindow([&](WindowHandle window) {
        const bool ofTheClass = LiveClass(window) == className;
        if (ofTheClass && LiveCaption(window) == caption) {
            windows.push_back(window);
        } else if (telling != nullptr) {
            telling->TellStranger(window, ofTheClass);
        }
        return true;
    });
    std::vector<WindowHandle> shown = windows;
    std::erase_if(shown, [](WindowHandle window) { return !platform::IsShown(window); });
    if (shown.empty()) return windows;
    if (telling != nullptr) telling->TellHidden(windows);
    return shown;
}

// The only one, or 0.
template <class Condition>
WindowHandle OnlyOne(const std::vector<WindowHandle>& windows, Condition condition) {
    const auto first = std::ranges::find_if(windows, condition);
    if (first == windows.end() || std::find_if(first + 1, windows.end(), condition) != windows.end()) return 0;
    return *first;
}

WindowHandle ChooseFrom(const std::vector<WindowHandle>& windows, const WantedChain& wanted) {
    const auto inPlace =
        std::ranges::find_if(windows, [&](WindowHandle window) { return HasRecordedRectangle(window, wanted); });
    if (inPlace != windows.end()) return *inPlace;  // of several in one place, the one in front
    const std::int32_t signature = wanted.TopIndex();
    if (const WindowHandle met = OnlyOne(windows, [&](WindowHandle window) { return FindMet(window, signature); })) {
        return met;
    }
    if (const WindowHandle met = OnlyOne(windows, WasMet)) return met;
    return windows.size() == 1 ? windows.front() : 0;
}

}  // namespace

bool StandsAs(const platform::WindowPlacement& a, const platform::WindowPlacement& b) {
    return a.rcNormalPosition.left == b.rcNormalPosition.left && a.rcNormalPosition.top == b.rcNormalPosition.top &&
           ShowStateOf(a) == ShowStateOf(b);
}

bool IsTopLevel(WindowHandle window) {
    bool found = false;
    platform::ForEachTopWindow([&](WindowHandle each) { return !(found = each == window); });
    return found;
}

ShowState ShowStateOf(const platform::WindowPlacement& placement) {
    constexpr std::uint32_t Minimise = 6;         // SW_MINIMIZE
    constexpr std::uint32_t ShowMinNoActive = 7;  // SW_SHOWMINNOACTIVE
    switch (placement.showCmd) {
        case platform::ShowMinimized:
        case Minimise:
        case ShowMinNoActive:
            return ShowState::Minimised;
        case platform::ShowMaximized:
            return ShowState::Maximised;
        default:
            return ShowState::Normal;
    }
}

WindowHandle ChooseTop(const std::string& className, const std::string& caption, const WantedChain& wanted,
                       bool& several, HeardBy listener) {
    several = false;
    std::optional<Telling> telling;
    if (listener != nullptr) telling.emplace(Telling{*listener, wanted, caption});
    // Mostly there is one such window, and it is asked for in one call.
    const WindowHandle first = platform::FindTopWindow(className, caption);
    if (first != 0 && platform::IsShown(first) && LiveClass(first) == className && LiveCaption(first) == caption &&
        HasRecordedRectangle(first, wanted)) {
        if (telling) telling->Tell(first, Fate::Taken);
        return first;
    }
    // A caption with characters outside the code page is not found by what the code page makes of it, but compares
    // with it.
    const std::vector<WindowHandle> windows = NamedWindows(className, caption, telling ? &*telling : nullptr);
    const WindowHandle chosen = ChooseFrom(windows, wanted);
    if (telling) telling->TellChoice(windows, chosen);
    several = chosen == 0 && !windows.empty();
    return chosen;
}

bool IsTheTop(LiveChain& live, const WantedChain& wanted) {
    const std::int32_t level = wanted.Depth();
    const WindowHandle window = live.Handle(level);
    if (window == 0 || HasRecordedRectangle(live.Placement(level), wanted)) return true;
    if (FindMet(window, wanted.TopIndex()) != nullptr) return true;
    const std::vector<WindowHandle> windows = NamedWindows(live.ClassName(level), live.Caption(level));
    return windows.size() < 2 || ChooseFrom(windows, wanted) == window;
}

void Meet(WindowHandle window, const WantedChain& wanted, const std::optional<platform::WindowPlacement>& placed) {
    if (window == 0) return;
    MetTop* met = FindMet(window, wanted.TopIndex());
    if (met == nullptr) met = &searchState.metTops.emplace_back(MetTop{wanted.TopIndex(), window, {}});
    if (placed) met->placed = placed;
}

bool IsInPlace(WindowHandle window, const platform::WindowPlacement& standing, const WantedChain& wanted) {
    if (StandsAs(standing, wanted.Top().Placement)) return true;
    const MetTop* const met = FindMet(window, wanted.TopIndex());
    return met != nullptr && met->placed && StandsAs(standing, *met->placed);
}
