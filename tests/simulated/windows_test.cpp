#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/window_services.h"
#include "simulated/desktop.h"

using namespace simulated;
using platform::DesktopRoot;
using platform::ForegroundWindow;
using platform::PlacementOf;
using platform::WindowAt;
using testing::ElementsAre;

namespace {

std::vector<WindowHandle> TopWindows() {
    std::vector<WindowHandle> list;
    platform::ForEachTopWindow([&list](WindowHandle window) {
        list.push_back(window);
        return true;
    });
    return list;
}

bool Place(WindowHandle window, std::uint32_t showCommand) {
    platform::WindowPlacement placement = PlacementOf(window);
    placement.showCmd = showCommand;
    return platform::SetPlacement(window, placement);
}

}  // namespace

TEST(Windows, OrderKeepsOwnedAboveOwnersAndTopmostAboveAll) {
    const WindowHandle editor = AddWindow({.caption = "editor"});
    const WindowHandle palette = AddWindow({.caption = "palette", .owner = editor});
    const WindowHandle search = AddWindow({.caption = "search", .owner = editor});
    const WindowHandle clock = AddWindow({.caption = "clock", .topmost = true});
    const WindowHandle browser = AddWindow({.caption = "browser"});
    EXPECT_THAT(TopWindows(), ElementsAre(clock, browser, search, palette, editor));
    Raise(editor);
    EXPECT_THAT(TopWindows(), ElementsAre(clock, search, palette, editor, browser));
    EXPECT_EQ(ForegroundWindow(), browser);
    Activate(palette);
    EXPECT_THAT(TopWindows(), ElementsAre(clock, palette, search, editor, browser));

    Destroy(palette);
    EXPECT_EQ(ForegroundWindow(), editor) << "the owner comes before the windows above it";
    const WindowHandle alarm = AddWindow({.caption = "alarm", .owner = clock});
    Activate(browser);
    EXPECT_THAT(TopWindows(), ElementsAre(alarm, clock, browser, search, editor));
}

TEST(Windows, WindowAtSeesWhatThePointerWouldHit) {
    const WindowHandle back = AddWindow({.rect = {0, 0, 400, 400}});
    const WindowHandle front = AddWindow({.rect = {100, 100, 300, 300}, .clientOrigin = {4, 20}});
    const WindowHandle child = AddWindow({.rect = {40, 40, 500, 90}, .parent = front});
    EXPECT_EQ(WindowAt({150, 165}), child);
    EXPECT_EQ(WindowAt({298, 165}), front) << "a child is clipped to the parent's client area";
    EXPECT_EQ(WindowAt({150, 110}), front) << "the caption";
    EXPECT_EQ(WindowAt({400, 400}), DesktopRoot());
    EXPECT_EQ(WindowAt({1280, 5}), 0);
    SetEnabled(front, false);
    EXPECT_EQ(WindowAt({150, 110}), front) << "a disabled top-level window is not passed over";
    Minimise(front);
    EXPECT_EQ(WindowAt({150, 165}), back);
    const WindowHandle cover = Cover(back);
    EXPECT_EQ(WindowAt({150, 165}), cover);
    EXPECT_EQ(ForegroundWindow(), back);
}

TEST(Windows, MinimisedAndMaximisedOnesRememberTheirPlaceAndFocus) {
    const Rect normal = {50, 60, 350, 260};
    const WindowHandle other = AddWindow({.thread = 8});
    const WindowHandle window = AddWindow({.rect = normal, .thread = 7});
    const WindowHandle child = AddWindow({.rect = {5, 6, 25, 26}, .parent = window});
    SetFocus(child);
    Maximise(window);
    EXPECT_EQ(ScreenRectOf(window), (Rect{0, 0, 1280, 1024}));
    EXPECT_EQ(ScreenRectOf(child), (Rect{5, 6, 25, 26}));
    Minimise(window);
    EXPECT_EQ(PlacementOf(window), (platform::WindowPlacement{44, 2, 2, {-1, -1}, {-1, -1}, normal}));
    EXPECT_EQ(ForegroundWindow(), other);
    EXPECT_EQ(platform::FocusOf(7).window, 0);
    Restore(window);
    EXPECT_EQ(PlacementOf(window).showCmd, platform::ShowMaximized);
    EXPECT_EQ(ForegroundWindow(), window);
    EXPECT_EQ(platform::FocusOf(7).window, child);

    EXPECT_TRUE(Place(window, platform::ShowMinimized));
    EXPECT_EQ(ForegroundWindow(), window) << "minimised by a placement, it stays active, without a focus";
    EXPECT_EQ(platform::FocusOf(7).window, 0);
    EXPECT_TRUE(Place(window, platform::ShowNormal));
    EXPECT_EQ(platform::FocusOf(7).window, child);
}

// The state that a window in the background, minimised, is in after each command, and whether it is the foreground.
TEST(Windows, ShowCommands) {
    const std::tuple<std::uint32_t, std::uint32_t, bool, bool> cases[] = {
        {0, 2, false, false}, {1, 1, true, true},  {2, 2, true, false}, {3, 3, true, true},
        {4, 1, true, false},  {5, 2, true, false}, {6, 2, true, false}, {7, 2, true, false},
        {8, 2, true, false},  {9, 1, true, true},  {99, 2, true, false}};
    for (const auto& [command, showCmd, visible, foreground] : cases) {
        SCOPED_TRACE(command);
        const WindowHandle window = AddWindow({.caption = "window"});
        Minimise(window);
        const WindowHandle other = AddWindow({.caption = "other", .thread = 9});
        EXPECT_TRUE(Place(window, command));
        EXPECT_EQ(PlacementOf(window).showCmd, showCmd);
        EXPECT_EQ(IsVisible(window), visible);
        EXPECT_EQ(ForegroundWindow(), foreground ? window : other);
    }
}

TEST(Windows, FocusComesBackWithItsWindow) {
    const WindowHandle editor = AddWindow({.thread = 7});
    const WindowHandle text = AddWindow({.className = "Edit", .parent = editor});
    const WindowHandle other = AddWindow({.thread = 8});
    SetFocus(text);
    EXPECT_EQ(platform::FocusOf(8).window, 0) << "a thread in the background has no focus";
    EXPECT_TRUE(platform::FocusOf(8).attached);
    EXPECT_TRUE(platform::BringToForeground(other));
    EXPECT_EQ(FocusedWindow(), other);
    EXPECT_TRUE(platform::BringToForeground(editor));
    EXPECT_EQ(FocusedWindow(), text);
    Destroy(text);
    EXPECT_EQ(FocusedWindow(), editor);
    Destroy(editor);
    EXPECT_EQ(ForegroundWindow(), other);
}

TEST(Windows, AHungOneFollowsLater) {
    const WindowHandle window = AddWindow({.className = "Edit"});
    SetHung(window);
    EXPECT_FALSE(Place(window, platform::ShowMaximized));
    UserTypes("x");
    EXPECT_EQ(PlacementOf(window).showCmd, platform::ShowNormal);
    EXPECT_EQ(TextOf(window), "");
    SetHung(window, false);
    EXPECT_EQ(PlacementOf(window).showCmd, platform::ShowMaximized);
    EXPECT_EQ(TextOf(window), "x");
}
