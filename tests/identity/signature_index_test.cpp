// Captures find their signatures through an index; what they store must be what a plain walk over the array stores. And
// what makes two placements the same.
#include "base/text.h"
#include "identity/window_identity.h"
#include "support/story.h"

namespace {

using platform::WindowHandle;

// The plain way, word for word.
class LinearCapture {
public:
    std::vector<WindowSignature> windows;
    std::vector<WindowChain> chains;

    void Capture(WindowHandle window) {
        WindowChain chain;
        for (;; ++chain.Depth) {
            const WindowSignature live = {platform::PlacementOf(window), Trim(platform::CaptionOf(window)),
                                          Trim(platform::ClassOf(window)), platform::ControlIdOf(window)};
            chain.Path[static_cast<std::size_t>(chain.Depth)] = Find(live, chain);
            const bool isTop = platform::FindTopWindow(live.ClassName, live.Caption) == window;
            window = platform::ParentOf(window);
            if (window <= 0 || isTop) break;
        }
        chain.LeafWindow = chain.Path[0];
        chains.push_back(chain);
    }

private:
    std::int32_t Find(const WindowSignature& live, const WindowChain& chain) {
        for (std::size_t j = 0; j < windows.size(); ++j) {
            const WindowSignature& stored = windows[j];
            if (stored.ControlId == live.ControlId && stored.Caption == live.Caption &&
                stored.ClassName == live.ClassName && WindowPlacementsEqual(stored.Placement, live.Placement) &&
                !IsInChain(chain, static_cast<std::int32_t>(j))) {
                return static_cast<std::int32_t>(j);
            }
        }
        windows.push_back(live);
        return static_cast<std::int32_t>(windows.size()) - 1;
    }

    static bool IsInChain(const WindowChain& chain, std::int32_t j) {
        if (chain.Depth < 1) return false;
        for (std::int32_t level = 0; level <= chain.Depth; ++level) {
            if (chain.Path[static_cast<std::size_t>(level)] == j) return true;
        }
        return false;
    }
};

// A desktop of windows that look much alike, and go on changing.
class RestlessDesktop {
public:
    explicit RestlessDesktop(unsigned seed) : random(seed) {
        for (int i = 0; i < 12; ++i) AddOne();
    }

    WindowHandle Any() { return windows[Below(windows.size())]; }

    void Change() {
        const WindowHandle window = Any();
        platform::WindowPlacement placement = platform::PlacementOf(window);
        const std::function<void()> changes[] = {
            [&] { simulated::SetCaption(window, AnyCaption()); },
            [&] { placement.rcNormalPosition = AnyRect(); },
            [&] {
                placement.ptMaxPosition = {AnyEdge(), AnyEdge()};
            },
            [&] {
                placement.flags = 1, placement.ptMinPosition = {AnyEdge(), AnyEdge()};
            },
            [&] { placement.showCmd = 1 + static_cast<std::uint32_t>(Below(3)); },
            [&] { AddOne(); },
        };
        changes[Below(std::size(changes))]();
        platform::SetPlacement(window, placement);
    }

    std::size_t Below(std::size_t limit) { return random() % limit; }

private:
    void AddOne() {
        const bool child = !windows.empty() && Below(4) != 0;
        windows.push_back(simulated::AddWindow({.className = Below(2) == 0 ? "Box" : "box",
                                                .caption = AnyCaption(),
                                                .rect = AnyRect(),
                                                .parent = child ? Any() : 0,
                                                .controlId = static_cast<std::int32_t>(Below(2))}));
    }

    std::string AnyCaption() { return std::vector<std::string>{"", " A", "A", "a"}[Below(4)]; }
    std::int32_t AnyEdge() { return static_cast<std::int32_t>(Below(2)) - 1; }
    platform::Rect AnyRect() { return {0, 0, 100, 100 + AnyEdge()}; }

    std::mt19937 random;
    std::vector<WindowHandle> windows;
};

// Captures the window by the focus, which reaches any window in any state.
bool CaptureIsTheSame(LinearCapture& plain, WindowHandle window) {
    simulated::SetFocus(window);
    plain.Capture(window);
    JobEvent event;
    return CaptureWindow(event, true) == plain.chains.back().Depth + 1 &&
           event.WindowChainIndex == static_cast<std::int32_t>(plain.chains.size()) - 1 &&
           windowArrays.windows.size() == plain.windows.size() &&
           windowArrays.chains.back().LeafWindow == plain.chains.back().LeafWindow &&
           windowArrays.chains.back().Path == plain.chains.back().Path;
}

TEST(SignatureIndex, FindsWhatAWalkOverTheArrayFinds) {
    for (unsigned seed = 1; seed <= 40; ++seed) {
        RestlessDesktop desktop(seed);
        LinearCapture plain;
        ResetWindowArrays();
        for (int step = 0; step < 150; ++step) {
            if (desktop.Below(3) == 0) desktop.Change();
            ASSERT_TRUE(CaptureIsTheSame(plain, desktop.Any())) << "seed " << seed << ", step " << step;
            // An open job is extended: other arrays, as long or longer than those before.
            if (desktop.Below(40) != 0) continue;
            std::reverse(plain.windows.begin(), plain.windows.end());
            plain.windows.push_back(plain.windows.front());
            ResetWindowArrays(plain.windows, plain.chains);
        }
        EXPECT_GT(plain.windows.size(), 10U);
        EXPECT_GT(plain.chains.size(), 10U);
    }
}

using platform::WindowPlacement;

WindowPlacement SomePlacement() {
    return {44, 0, platform::ShowNormal, {-1, -1}, {-1, -1}, {10, 20, 300, 200}};
}

TEST(WindowPlacementsEqual, LooksAtSomeMembersOnly) {
    const std::tuple<std::string, std::function<void(WindowPlacement&)>, bool> cases[] = {
        {"nothing", [](auto&) {}, true},
        {"length", [](auto& p) { p.length = 0; }, true},
        {"showCmd", [](auto& p) { p.showCmd = platform::ShowMinimized; }, true},
        {"ptMinPosition.y", [](auto& p) { p.ptMinPosition.y = 7; }, true},
        {"flags", [](auto& p) { p.flags = 2; }, false},
        {"ptMinPosition.x", [](auto& p) { p.ptMinPosition.x = 7; }, false},
        {"ptMaxPosition.y", [](auto& p) { p.ptMaxPosition.y = 7; }, false},
        {"left", [](auto& p) { p.rcNormalPosition.left = 9; }, false},
        {"top", [](auto& p) { p.rcNormalPosition.top = 9; }, false},
        {"right", [](auto& p) { p.rcNormalPosition.right = 9; }, false},
        {"bottom", [](auto& p) { p.rcNormalPosition.bottom = 9; }, false},
    };
    for (const auto& [change, apply, equal] : cases) {
        WindowPlacement current = SomePlacement();
        apply(current);
        EXPECT_EQ(WindowPlacementsEqual(SomePlacement(), current), equal) << change;
    }
}

TEST(WindowPlacementsEqual, CrossesTheMaximisedPosition) {
    const auto withMaximised = [](platform::Point position) {
        WindowPlacement placement = SomePlacement();
        placement.ptMaxPosition = position;
        return placement;
    };
    // The stored x is held against the current y, and the current x is not looked at.
    EXPECT_TRUE(WindowPlacementsEqual(withMaximised({5, 5}), withMaximised({99, 5})));
    EXPECT_FALSE(WindowPlacementsEqual(withMaximised({99, 5}), withMaximised({99, 5})));
    EXPECT_FALSE(WindowPlacementsEqual(withMaximised({99, 5}), withMaximised({5, 5})));
}

}  // namespace
