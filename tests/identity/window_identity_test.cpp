#include "identity/window_identity.h"

#include "support/story.h"

namespace {

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
