#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/clock.h"
#include "platform/pump.h"
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

std::vector<WindowHandle> DescendantsOf(WindowHandle window) {
    std::vector<WindowHandle> list;
    platform::ForEachDescendant(window, [&list](WindowHandle each) {
        list.push_back(each);
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
    EXPECT_EQ(platform::ParentOf(palette), editor);
    EXPECT_EQ(platform::ParentOf(editor), 0);

    Destroy(search);
    Activate(palette);
    const WindowHandle colours = AddWindow({.caption = "colours", .owner = editor});
    Destroy(colours);
    EXPECT_EQ(ForegroundWindow(), editor) << "the owner comes before the windows above it";

    const WindowHandle alarm = AddWindow({.caption = "alarm", .owner = clock});
    Activate(browser);
    EXPECT_THAT(TopWindows(), ElementsAre(alarm, clock, browser, palette, editor));
}

TEST(Windows, WindowAtSeesWhatThePointerWouldHit) {
    const WindowHandle back = AddWindow({.rect = {0, 0, 400, 400}});
    const WindowHandle front = AddWindow({.rect = {100, 100, 300, 300}, .clientOrigin = {4, 20}});
    const WindowHandle upper = AddWindow({.rect = {40, 40, 500, 90}, .parent = front});
    const WindowHandle lower = AddWindow({.rect = {10, 10, 60, 60}, .parent = front});
    const WindowHandle inner = AddWindow({.rect = {5, 5, 15, 15}, .parent = lower});

    EXPECT_EQ(WindowAt({120, 136}), inner);
    EXPECT_EQ(WindowAt({150, 165}), upper);
    EXPECT_EQ(WindowAt({298, 165}), front) << "a child is clipped to the parent's client area";
    EXPECT_EQ(WindowAt({310, 165}), back);
    EXPECT_EQ(WindowAt({150, 110}), front) << "the caption";
    EXPECT_EQ(WindowAt({300, 299}), back) << "right and bottom lie outside";
    EXPECT_EQ(WindowAt({400, 400}), DesktopRoot());
    EXPECT_EQ(WindowAt({1280, 5}), 0);

    SetEnabled(inner, false);
    EXPECT_EQ(WindowAt({120, 136}), lower) << "a disabled child is passed over";
    SetVisible(upper, false);
    EXPECT_EQ(WindowAt({150, 165}), lower);
    SetEnabled(front, false);
    EXPECT_EQ(WindowAt({150, 165}), front) << "a disabled top-level window is not";
    Minimise(front);
    EXPECT_EQ(WindowAt({150, 165}), back);
    SetVisible(back, false);
    EXPECT_EQ(WindowAt({150, 165}), DesktopRoot());

    SetVisible(back, true);
    const WindowHandle cover = Cover(back);
    EXPECT_EQ(WindowAt({150, 165}), cover);
    EXPECT_EQ(ForegroundWindow(), back);
}

TEST(Windows, PlacementRemembersTheNormalRectangle) {
    const Rect normal = {50, 60, 350, 260};
    const WindowHandle other = AddWindow({.thread = 8});
    const WindowHandle window = AddWindow({.rect = normal, .thread = 7});
    const WindowHandle child = AddWindow({.rect = {5, 6, 25, 26}, .parent = window});
    EXPECT_EQ(PlacementOf(window), (platform::WindowPlacement{44, 0, 1, {-1, -1}, {-1, -1}, normal}));
    EXPECT_EQ(PlacementOf(child).rcNormalPosition, (Rect{5, 6, 25, 26}));
    EXPECT_EQ(ScreenRectOf(child), (Rect{55, 66, 75, 86}));

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

    platform::WindowPlacement elsewhere = PlacementOf(window);
    elsewhere.showCmd = platform::ShowNormal;
    elsewhere.rcNormalPosition = {500, 500, 700, 600};
    EXPECT_TRUE(platform::SetPlacement(window, elsewhere));
    EXPECT_EQ(ScreenRectOf(window), elsewhere.rcNormalPosition);

    EXPECT_TRUE(Place(window, platform::ShowMinimized));
    EXPECT_EQ(ForegroundWindow(), window) << "minimised by a placement, it stays active, without a focus";
    EXPECT_EQ(platform::FocusOf(7).window, 0);
    EXPECT_TRUE(Place(window, platform::ShowNormal));
    EXPECT_EQ(platform::FocusOf(7).window, child);

    RefusePlacement(window);
    EXPECT_FALSE(Place(window, platform::ShowMinimized));
    EXPECT_EQ(PlacementOf(window).showCmd, platform::ShowNormal);
}

TEST(Windows, ShowCommands) {
    struct Case {
        std::uint32_t command;
        std::uint32_t showCmd;
        bool visible;
        bool foreground;  // afterwards, started minimised in the background
    };
    const Case cases[] = {{0, 2, false, false}, {1, 1, true, true},  {2, 2, true, false}, {3, 3, true, true},
                          {4, 1, true, false},  {5, 2, true, false}, {6, 2, true, false}, {7, 2, true, false},
                          {8, 2, true, false},  {9, 1, true, true},  {99, 2, true, false}};
    for (const Case& each : cases) {
        SCOPED_TRACE(each.command);
        const WindowHandle window = AddWindow({.caption = "window"});
        Minimise(window);
        const WindowHandle other = AddWindow({.caption = "other", .thread = 9});
        EXPECT_TRUE(Place(window, each.command));
        EXPECT_EQ(PlacementOf(window).showCmd, each.showCmd);
        EXPECT_EQ(IsVisible(window), each.visible);
        EXPECT_EQ(ForegroundWindow(), each.foreground ? window : other);
    }
}

TEST(Windows, FocusComesBackWithItsWindow) {
    const WindowHandle editor = AddWindow({.thread = 7});
    const WindowHandle text = AddWindow({.className = "Edit", .parent = editor});
    const WindowHandle name = AddWindow({.className = "Edit", .parent = editor});
    const WindowHandle other = AddWindow({.thread = 8});
    EXPECT_EQ(platform::FocusOf(8).window, other);

    SetFocus(text);
    EXPECT_EQ(platform::FocusOf(8).window, 0) << "a thread in the background has no focus";
    EXPECT_TRUE(platform::FocusOf(8).attached);
    EXPECT_TRUE(platform::BringToForeground(other));
    EXPECT_EQ(FocusedWindow(), other);
    EXPECT_TRUE(platform::BringToForeground(name)) << "a child: its top-level window comes forward";
    EXPECT_EQ(ForegroundWindow(), editor);
    EXPECT_EQ(FocusedWindow(), text);

    Destroy(text);
    EXPECT_EQ(FocusedWindow(), editor);
    TakeFocusFrom(7);
    EXPECT_TRUE(platform::BringToForeground(editor));
    EXPECT_EQ(FocusedWindow(), 0) << "nothing changes for a window that is in the foreground";
    Destroy(editor);
    EXPECT_EQ(ForegroundWindow(), other);

    RefuseAttachment(8);
    EXPECT_FALSE(platform::FocusOf(8).attached);
    EXPECT_FALSE(platform::FocusOf(OwnThread).attached) << "a thread cannot be attached to itself";
    EXPECT_FALSE(platform::FocusOf(77).attached) << "no such thread";
    RefuseForeground(other);
    LeaveNoForeground();
    EXPECT_FALSE(platform::BringToForeground(other));
    EXPECT_EQ(ForegroundWindow(), 0);
}

TEST(Windows, AHungThreadCostsTimeAndFollowsLater) {
    const WindowHandle window = AddWindow({.className = "Edit", .thread = 7});
    const WindowHandle other = AddWindow({.thread = 8});
    SetHung(window);
    EXPECT_FALSE(platform::BringToForeground(window));
    EXPECT_FALSE(platform::FocusOf(7).attached);
    EXPECT_FALSE(Place(window, platform::ShowMaximized));
    EXPECT_EQ(platform::TickCount(), 3 * HungMilliseconds);
    EXPECT_LE(HungMilliseconds, platform::BoundedMilliseconds);
    EXPECT_EQ(ForegroundWindow(), other);
    SetFocus(window);
    UserTypes("x");
    EXPECT_EQ(PlacementOf(window).showCmd, platform::ShowNormal);
    EXPECT_EQ(TextOf(window), "");

    SetHung(window, false);
    EXPECT_EQ(PlacementOf(window).showCmd, platform::ShowMaximized);
    EXPECT_EQ(TextOf(window), "x");
}

TEST(Windows, WindowsVanishBetweenTwoCalls) {
    const WindowHandle owner = AddWindow({.caption = "owner"});
    const WindowHandle dialog = AddWindow({.caption = "dialog", .owner = owner});
    const WindowHandle grandchild = AddWindow({.parent = AddWindow({.parent = dialog})});
    const WindowHandle last = AddWindow({.caption = "last"});
    std::vector<std::string> seen;
    platform::ForEachTopWindow([&](WindowHandle window) {
        seen.push_back(platform::CaptionOf(window));
        Destroy(owner);
        return true;
    });
    EXPECT_THAT(seen, ElementsAre("last"));
    EXPECT_THAT(TopWindows(), ElementsAre(last));
    EXPECT_FALSE(platform::WindowExists(dialog));
    EXPECT_FALSE(platform::WindowExists(grandchild));
    EXPECT_EQ(platform::ClassOf(dialog), "");
    EXPECT_EQ(platform::ThreadOf(dialog), 0u);
    EXPECT_EQ(platform::ParentOf(grandchild), 0);
    EXPECT_EQ(PlacementOf(dialog), platform::WindowPlacement());
    EXPECT_FALSE(platform::BringToForeground(dialog));
    EXPECT_FALSE(Place(dialog, 1));
}

TEST(Windows, FindingAndListing) {
    const WindowHandle hidden = AddWindow({.className = "Notepad", .caption = "Untitled", .visible = false});
    const WindowHandle first = AddWindow({.className = "Notepad", .caption = "Untitled"});
    const WindowHandle page = AddWindow({.parent = first});
    const WindowHandle field = AddWindow({.parent = page, .controlId = 15});
    const WindowHandle bar = AddWindow({.parent = first});
    EXPECT_THAT(DescendantsOf(first), ElementsAre(page, field, bar));
    Raise(bar);
    EXPECT_THAT(DescendantsOf(first), ElementsAre(bar, page, field));
    EXPECT_THAT(DescendantsOf(DesktopRoot()), ElementsAre(first, bar, page, field, hidden));
    EXPECT_EQ(platform::ControlIdOf(field), 15);
    EXPECT_EQ(platform::ThreadOf(field), OtherThread);

    EXPECT_EQ(platform::FindTopWindow("NOTEPAD", "untitled"), first);
    EXPECT_EQ(platform::FindTopWindow("Notepad", "Untitle"), 0);
    Destroy(first);
    EXPECT_EQ(platform::FindTopWindow("Notepad", "Untitled"), hidden);

    SetCaption(hidden, std::string(2000, 'x'));
    EXPECT_EQ(platform::CaptionOf(hidden).size(), 1023u);
}

TEST(Windows, AWindowAppearsInItsOwnTime) {
    const WindowHandle owner = AddWindow({.thread = 7});
    const WindowHandle dialog = AppearsAfter(3000, {.caption = "Save As", .owner = owner});
    const WindowHandle button = AppearsAfter(3000, {.rect = {10, 10, 50, 30}, .parent = dialog});
    OnClick(button, [dialog] { Destroy(dialog); });
    platform::Sleep(2999);
    EXPECT_FALSE(platform::WindowExists(dialog));
    EXPECT_EQ(ForegroundWindow(), owner);
    platform::Sleep(1);
    EXPECT_EQ(ForegroundWindow(), dialog);
    EXPECT_EQ(platform::ThreadOf(button), 7u);

    const WindowHandle orphan = AppearsAfter(500, {.parent = dialog});
    UserClicks(CentreOf(button));
    EXPECT_FALSE(platform::WindowExists(button));
    EXPECT_EQ(ForegroundWindow(), owner);
    platform::Sleep(500);
    EXPECT_FALSE(platform::WindowExists(orphan));
}
