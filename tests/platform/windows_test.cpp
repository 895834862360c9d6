#include <gtest/gtest.h>

#include <algorithm>

#include "contract_desktop.h"
#include "platform/window_services.h"

using contract::BoundMs;
using contract::OtherProgram;
using contract::TimeOf;
using platform::WindowHandle;

namespace {

// A handle that never was a window.
constexpr WindowHandle NoWindow = 0x7FFF0000;

std::vector<WindowHandle> TopWindowsAmong(const std::vector<WindowHandle>& wanted) {
    std::vector<WindowHandle> found;
    platform::ForEachTopWindow([&](WindowHandle window) {
        if (std::find(wanted.begin(), wanted.end(), window) != wanted.end()) found.push_back(window);
        return true;
    });
    return found;
}

std::vector<WindowHandle> DescendantsOf(WindowHandle window) {
    std::vector<WindowHandle> found;
    platform::ForEachDescendant(window, [&](WindowHandle descendant) {
        found.push_back(descendant);
        return true;
    });
    return found;
}

using Handles = std::vector<WindowHandle>;

// Brings `window` to the foreground and waits until it is also the frontmost of `others`.
void BringForward(WindowHandle window, Handles others) {
    EXPECT_TRUE(platform::BringToForeground(window));
    others.push_back(window);
    EXPECT_TRUE(contract::Within(contract::PatienceMs, [&] {
        return platform::ForegroundWindow() == window && TopWindowsAmong(others).front() == window;
    }));
}

TEST(Windows, TellWhoTheyAre) {
    OtherProgram program;
    const WindowHandle top =
        program.Add({.className = "Contract class", .caption = "A caption", .rect = {90, 80, 490, 380}});
    const WindowHandle child =
        program.Add({.className = "Edit", .caption = "", .rect = {10, 20, 110, 60}, .parent = top, .controlId = 1234});
    const WindowHandle owned = program.Add({.caption = "Owned", .rect = {600, 80, 700, 180}, .owner = top});

    EXPECT_EQ(platform::ClassOf(top), "Contract class");
    EXPECT_EQ(platform::CaptionOf(top), "A caption");
    EXPECT_EQ(platform::ClassOf(child), "Edit");
    EXPECT_EQ(platform::ControlIdOf(child), 1234);
    EXPECT_EQ(platform::ParentOf(child), top);
    EXPECT_EQ(platform::ParentOf(top), 0);
    EXPECT_EQ(platform::ParentOf(owned), top);
    EXPECT_EQ(platform::ThreadOf(child), platform::ThreadOf(top));
    EXPECT_NE(platform::ThreadOf(top), 0u);
    EXPECT_NE(platform::ThreadOf(top), platform::CurrentThread());
    EXPECT_EQ(platform::PlacementOf(top).rcNormalPosition, (platform::Rect{90, 80, 490, 380}));
    EXPECT_EQ(platform::PlacementOf(child).rcNormalPosition, (platform::Rect{10, 20, 110, 60}));
    program.Rename(top, "Another");
    EXPECT_EQ(platform::CaptionOf(top), "Another");
}

TEST(Windows, LongTextsAreCut) {
    OtherProgram program;
    const WindowHandle window = program.Add({.className = std::string(99, 'k'), .caption = std::string(1050, 'c')});
    EXPECT_EQ(platform::ClassOf(window), std::string(99, 'k'));
    EXPECT_EQ(platform::CaptionOf(window), std::string(1023, 'c'));
}

void ExpectNothingOf(WindowHandle window) {
    SCOPED_TRACE(window);
    EXPECT_FALSE(platform::WindowExists(window));
    EXPECT_EQ(platform::ClassOf(window), "");
    EXPECT_EQ(platform::CaptionOf(window), "");
    EXPECT_EQ(platform::ControlIdOf(window), 0);
    EXPECT_EQ(platform::PlacementOf(window), platform::WindowPlacement{});
    EXPECT_EQ(platform::ParentOf(window), 0);
    EXPECT_EQ(platform::ThreadOf(window), 0u);
    EXPECT_EQ(DescendantsOf(window), Handles{});
    EXPECT_FALSE(platform::BringToForeground(window));
    platform::WindowPlacement placement;
    placement.showCmd = platform::ShowNormal;
    placement.rcNormalPosition = {1, 2, 300, 400};
    EXPECT_FALSE(platform::SetPlacement(window, placement));
}

TEST(Windows, GoneAnswerWithNothing) {
    OtherProgram program;
    const WindowHandle top = program.Add({.caption = "Going"});
    const WindowHandle child = program.Add({.rect = {0, 0, 50, 50}, .parent = top, .controlId = 7});
    const std::uint32_t thread = platform::ThreadOf(top);
    program.Remove(top);
    ExpectNothingOf(top);
    ExpectNothingOf(child);
    ExpectNothingOf(NoWindow);
    ExpectNothingOf(0);
    EXPECT_EQ(platform::FocusOf(thread).window, 0);
    EXPECT_FALSE(platform::FocusOf(0).attached);
    EXPECT_EQ(platform::FindTopWindow("Contract", "Going"), 0);
}

TEST(Windows, AreFoundByTheExactClassAndCaption) {
    OtherProgram program;
    const WindowHandle named = program.Add({.className = "Contract one", .caption = "Find me"});
    const WindowHandle silent = program.Add({.className = "Contract one", .caption = ""});
    const WindowHandle hidden = program.Add({.className = "Contract two", .caption = "Find me", .visible = false});
    program.Add({.className = "Contract three", .caption = "A child", .rect = {0, 0, 50, 50}, .parent = named});

    const std::tuple<const char*, const char*, WindowHandle> cases[] = {
        {"Contract one", "Find me", named},
        {"Contract two", "Find me", hidden},
        {"Contract one", "", silent},
        {"Contract one", "Find", 0},
        {"Contract one", "Find me ", 0},
        {"Contract", "Find me", 0},
        {"Contract three", "A child", 0},
        {"Contract two", "", 0},
        {"", "Find me", 0},
        {"CONTRACT one", "FIND ME", named},
    };
    for (const auto& [className, caption, expected] : cases) {
        EXPECT_EQ(platform::FindTopWindow(className, caption), expected)
            << '"' << className << "\", \"" << caption << '"';
    }
}

TEST(Windows, TheTopmostOfSeveralIsFound) {
    OtherProgram program;
    const WindowHandle first = program.Add({.caption = "Twin"});
    const WindowHandle second = program.Add({.caption = "Twin"});
    BringForward(second, {first});
    EXPECT_EQ(platform::FindTopWindow("Contract", "Twin"), second);
    BringForward(first, {second});
    EXPECT_EQ(platform::FindTopWindow("Contract", "Twin"), first);
}

TEST(Windows, AreWalkedTopmostFirst) {
    OtherProgram program;
    const WindowHandle a = program.Add({.caption = "a"});
    const WindowHandle b = program.Add({.caption = "b"});
    const WindowHandle c = program.Add({.caption = "c", .visible = false});
    BringForward(a, {b});
    const Handles order = TopWindowsAmong({a, b, c});
    EXPECT_EQ(order.size(), 3u) << "hidden ones too";
    EXPECT_EQ(TopWindowsAmong({a, b}), (Handles{a, b}));

    const WindowHandle first = program.Add({.rect = {0, 0, 200, 200}, .parent = a});
    const WindowHandle second = program.Add({.rect = {0, 0, 200, 200}, .parent = a, .visible = false});
    const WindowHandle inner = program.Add({.rect = {0, 0, 100, 100}, .parent = first});
    EXPECT_EQ(DescendantsOf(a), (Handles{first, inner, second}));
    EXPECT_EQ(DescendantsOf(first), (Handles{inner}));
    EXPECT_EQ(DescendantsOf(inner), Handles{});
    EXPECT_EQ(TopWindowsAmong({first, second, inner}), Handles{});
}

TEST(Windows, AWalkStopsWhenToldAndOutlivesWhatItVisits) {
    OtherProgram program;
    const WindowHandle top = program.Add({.caption = "top"});
    for (int child = 0; child < 3; ++child) program.Add({.rect = {0, 0, 50, 50}, .parent = top});
    int visits = 0;
    platform::ForEachTopWindow([&](WindowHandle) { return ++visits < 1; });
    EXPECT_EQ(visits, 1);
    visits = 0;
    platform::ForEachDescendant(top, [&](WindowHandle) {
        if (++visits == 1) program.Remove(top);
        return true;
    });
    EXPECT_GE(visits, 1);
    program.Add({.caption = "another"});
    EXPECT_THROW(platform::ForEachTopWindow([](WindowHandle) -> bool { throw 1; }), int) << "a visitor may fail";
}

TEST(Windows, WindowAtSeesWhatThePointerWould) {
    OtherProgram program;
    OtherProgram other;
    const WindowHandle low = program.Add({.caption = "low", .rect = {100, 100, 500, 500}});
    const WindowHandle child = program.Add({.rect = {10, 10, 60, 60}, .parent = low});
    const WindowHandle grandchild = program.Add({.rect = {5, 5, 20, 20}, .parent = child});
    const WindowHandle wide = program.Add({.rect = {350, 10, 900, 60}, .parent = low});
    const WindowHandle disabled = program.Add({.rect = {10, 100, 60, 150}, .parent = low, .enabled = false});
    program.Add({.rect = {10, 200, 60, 250}, .parent = low, .visible = false});
    const WindowHandle high = other.Add({.caption = "high", .rect = {300, 300, 600, 600}});
    other.Add({.caption = "hidden", .rect = {100, 100, 600, 600}, .visible = false});

    const std::tuple<const char*, platform::Point, WindowHandle> cases[] = {
        {"its own ground", {250, 250}, low},           {"a child", {150, 150}, child},
        {"a child's child", {116, 116}, grandchild},   {"a child's last pixel", {159, 159}, child},
        {"beside a child", {160, 160}, low},           {"a child that reaches out", {480, 120}, wide},
        {"a disabled child", {120, 220}, low},         {"a hidden child", {120, 320}, low},
        {"where another covers it", {400, 400}, high}, {"the other alone", {550, 550}, high},
        {"its first pixel", {100, 100}, low},
    };
    for (const auto& [what, point, expected] : cases) EXPECT_EQ(platform::WindowAt(point), expected) << what;
    EXPECT_NE(platform::WindowAt({520, 120}), wide) << "a child is cut off at its parent's edge";
    EXPECT_NE(disabled, 0);
    BringForward(low, {high});
    EXPECT_EQ(platform::WindowAt({400, 400}), low) << "brought to the front";
}

TEST(Windows, PlacementsGoThereAndBack) {
    OtherProgram program;
    const WindowHandle window = program.Add({.caption = "Placed", .rect = {100, 100, 500, 400}});
    const std::tuple<std::uint32_t, platform::Rect> steps[] = {
        {platform::ShowNormal, {200, 150, 700, 650}},    {platform::ShowMinimized, {200, 150, 700, 650}},
        {platform::ShowMaximized, {210, 160, 710, 660}}, {platform::ShowMinimized, {220, 170, 720, 670}},
        {platform::ShowNormal, {230, 180, 730, 680}},
    };
    for (const auto& [showCmd, rect] : steps) {
        platform::WindowPlacement wanted = platform::PlacementOf(window);
        wanted.showCmd = showCmd;
        wanted.rcNormalPosition = rect;
        wanted.length = 0;
        EXPECT_TRUE(platform::SetPlacement(window, wanted));
        const platform::WindowPlacement now = platform::PlacementOf(window);
        EXPECT_EQ(now.length, 44u);
        EXPECT_EQ(now.showCmd, showCmd);
        if (showCmd == platform::ShowNormal || contract::Desktop().placesMinimised) {
            EXPECT_EQ(now.rcNormalPosition, rect) << "showCmd " << showCmd;
        }
    }
    EXPECT_EQ(platform::WindowAt({725, 675}), window) << "it stands where its placement says";
}

TEST(Windows, AChildIsPlacedInItsParent) {
    OtherProgram program;
    const WindowHandle top = program.Add({.caption = "Parent", .rect = {100, 100, 500, 400}});
    const WindowHandle child = program.Add({.rect = {10, 10, 60, 60}, .parent = top});
    platform::WindowPlacement wanted = platform::PlacementOf(child);
    wanted.rcNormalPosition = {50, 60, 90, 100};
    EXPECT_TRUE(platform::SetPlacement(child, wanted));
    EXPECT_EQ(platform::PlacementOf(child).rcNormalPosition, wanted.rcNormalPosition);
    EXPECT_EQ(platform::WindowAt({155, 165}), child);
}

TEST(Windows, BringingAChildForwardActivatesItsTop) {
    OtherProgram first;
    OtherProgram second;
    const WindowHandle back = first.Add({.caption = "back"});
    const WindowHandle child = first.Add({.rect = {10, 10, 60, 60}, .parent = back});
    const WindowHandle front = second.Add({.caption = "front"});
    EXPECT_EQ(platform::ForegroundWindow(), front);
    EXPECT_TRUE(platform::BringToForeground(child));
    EXPECT_TRUE(contract::Within(contract::PatienceMs, [&] {
        return platform::ForegroundWindow() == back && TopWindowsAmong({back, front}) == Handles{back, front};
    }));
    const WindowHandle own = contract::AddOwn({.caption = "own"});
    EXPECT_EQ(platform::ForegroundWindow(), own);
    BringForward(front, {own, back});
    BringForward(own, {front, back});
    contract::RemoveOwn(own);
}

TEST(Windows, TheFocusOfAnotherThreadIsSeen) {
    OtherProgram program;
    OtherProgram second;
    const WindowHandle top = program.Add({.caption = "Focus"});
    const WindowHandle edit = program.Add({.className = "Edit", .rect = {10, 10, 60, 60}, .parent = top});
    program.Focus(edit);
    const std::uint32_t thread = platform::ThreadOf(top);
    EXPECT_TRUE(platform::FocusOf(thread).attached);
    EXPECT_EQ(platform::FocusOf(thread).window, edit);
    EXPECT_FALSE(platform::FocusOf(platform::CurrentThread()).attached) << "a thread is not attached to itself";

    const WindowHandle other = second.Add({.caption = "Other"});
    second.Focus(other);
    EXPECT_EQ(platform::FocusOf(platform::ThreadOf(other)).window, other);
}

TEST(Windows, TheFocusIsGivenToAnElementOfTheForeground) {
    OtherProgram program;
    const WindowHandle top = program.Add({.caption = "Focus"});
    const WindowHandle first = program.Add({.className = "Edit", .rect = {10, 10, 60, 60}, .parent = top});
    const WindowHandle second = program.Add({.className = "Edit", .rect = {70, 10, 120, 60}, .parent = top});
    const WindowHandle off =
        program.Add({.className = "Edit", .rect = {130, 10, 180, 60}, .parent = top, .enabled = false});
    program.Focus(first);
    const std::uint32_t thread = platform::ThreadOf(top);
    for (const WindowHandle window : {second, first, top}) {
        EXPECT_TRUE(platform::GiveFocus(window));
        EXPECT_EQ(platform::FocusOf(thread).window, window);
    }
    EXPECT_FALSE(platform::GiveFocus(off));
    EXPECT_EQ(platform::FocusOf(thread).window, top);
    program.Remove(second);
    EXPECT_FALSE(platform::GiveFocus(second));
    EXPECT_FALSE(platform::GiveFocus(0));
}

TEST(Windows, AreShownWithAllTheyLieIn) {
    OtherProgram program;
    const WindowHandle hidden = program.Add({.caption = "Hidden", .visible = false});
    const WindowHandle inHidden = program.Add({.rect = {0, 0, 9, 9}, .parent = hidden});
    const WindowHandle top = program.Add({.caption = "Shown"});
    EXPECT_TRUE(platform::IsShown(top));
    EXPECT_FALSE(platform::IsShown(hidden));
    EXPECT_FALSE(platform::IsShown(inHidden));
    program.Remove(top);
    EXPECT_FALSE(platform::IsShown(top));
    EXPECT_FALSE(platform::IsShown(0));
}

TEST(Windows, AHungOneHoldsNobodyUp) {
    OtherProgram program;
    OtherProgram front;
    const WindowHandle window = program.Add({.caption = "Hung", .rect = {100, 100, 500, 400}});
    const WindowHandle edit = program.Add({.className = "Edit", .rect = {10, 10, 60, 60}, .parent = window});
    program.Focus(edit);
    front.Add({.caption = "front", .rect = {600, 600, 700, 700}});
    platform::WindowPlacement placement = platform::PlacementOf(window);
    placement.rcNormalPosition = {200, 200, 600, 500};
    program.Hang();

    EXPECT_LE(TimeOf([&] { EXPECT_FALSE(platform::SetPlacement(window, placement)); }), BoundMs);
    EXPECT_LE(TimeOf([&] { EXPECT_FALSE(platform::BringToForeground(window)); }), BoundMs);
    EXPECT_LE(TimeOf([&] { platform::FocusOf(platform::ThreadOf(window)); }), BoundMs);
    EXPECT_LE(TimeOf([&] {
                  EXPECT_EQ(platform::CaptionOf(window), "Hung");
                  EXPECT_EQ(platform::ClassOf(edit), "Edit");
                  EXPECT_EQ(platform::WindowAt({110, 110}), edit);
                  EXPECT_EQ(platform::FindTopWindow("Contract", "Hung"), window);
                  EXPECT_EQ(platform::PlacementOf(window).rcNormalPosition, (platform::Rect{100, 100, 500, 400}));
                  EXPECT_EQ(TopWindowsAmong({window}), Handles{window});
              }),
              BoundMs);
}

}  // namespace
