#include "identity/window_identity.h"
#include "support/story.h"

namespace {

using platform::WindowHandle;
using simulated::AddWindow;

// A program with a dialog in which a button lies in a group.
class CaptureWindowOf : public testing::Test {
protected:
    CaptureWindowOf() {
        dialog = AddWindow({.className = "#32770", .caption = "Setup", .rect = {100, 100, 500, 400}});
        group = AddWindow({.className = "Group", .rect = {10, 10, 150, 100}, .parent = dialog, .controlId = 7});
        button = AddWindow(
            {.className = "Button", .caption = "OK", .rect = {20, 20, 90, 44}, .parent = group, .controlId = 1});
    }

    // The number of windows that were captured.
    int Press(WindowHandle window) {
        simulated::PlaceCursor(simulated::CentreOf(window));
        return CaptureWindow(event, false);
    }
    int KeyDown() { return CaptureWindow(event, true); }

    // The class names of a chain, target first.
    static std::vector<std::string> ClassesOf(const WindowChain& chain) {
        std::vector<std::string> classes;
        for (std::int32_t level = 0; level <= chain.Depth; ++level) {
            classes.push_back(windowArrays.windows.at(static_cast<std::size_t>(SignatureAt(chain, level))).ClassName);
        }
        return classes;
    }
    static std::int32_t SignatureAt(const WindowChain& chain, std::int32_t level) {
        return chain.Path.at(static_cast<std::size_t>(level));
    }
    std::vector<std::string> CapturedClasses() const { return ClassesOf(Captured()); }
    WindowChain Captured() const { return windowArrays.chains.at(static_cast<std::size_t>(event.WindowChainIndex)); }

    WindowHandle dialog = 0;
    WindowHandle group = 0;
    WindowHandle button = 0;
    JobEvent event;
};

TEST_F(CaptureWindowOf, AButtonIsItsWayUpToTheDialog) {
    simulated::SetCaption(button, "  OK ");  // texts are trimmed
    EXPECT_EQ(Press(button), 3);
    EXPECT_THAT(CapturedClasses(), ElementsAre("Button", "Group", "#32770"));
    const WindowSignature& leaf = windowArrays.windows[static_cast<std::size_t>(Captured().LeafWindow)];
    EXPECT_EQ(leaf.Caption, "OK");
    EXPECT_EQ(leaf.ControlId, 1);
    EXPECT_EQ(leaf.Placement, platform::PlacementOf(button));
    EXPECT_EQ(Captured().LeafWindow, Captured().Path[0]);
}

// The level being filled still reads 0, so the first signature of all is taken for one of the chain.
TEST_F(CaptureWindowOf, TheFirstSignatureIsNeverUsedAboveTheLeaf) {
    Press(dialog);
    EXPECT_EQ(Captured().LeafWindow, 0);
    Press(button);
    EXPECT_EQ(Captured().Path[2], 3) << "the dialog has a second signature";
    Press(button);
    EXPECT_EQ(Captured().Path[2], 3) << "which is used from then on";
    Press(dialog);
    EXPECT_EQ(Captured().LeafWindow, 0);
    EXPECT_EQ(windowArrays.windows.size(), 4U);
}

// An owned dialog has its owner as a parent; the chain ends at the first window that is found by name.
TEST_F(CaptureWindowOf, AnOwnedDialogEndsTheChain) {
    const WindowHandle box = AddWindow({.className = "#32770", .caption = "Sure?", .owner = dialog});
    const WindowHandle yes = AddWindow({.className = "Button", .rect = {0, 0, 50, 50}, .parent = box});
    EXPECT_EQ(Press(yes), 2);
    EXPECT_THAT(CapturedClasses(), ElementsAre("Button", "#32770"));
    // With a namesake in front of it, the name finds that one.
    AddWindow({.className = "#32770", .caption = "Sure?", .rect = {900, 900, 950, 950}});
    EXPECT_EQ(Press(yes), 3);
    EXPECT_THAT(CapturedClasses(), ElementsAre("Button", "#32770", "#32770"));
}

TEST_F(CaptureWindowOf, OurOwnWindowsTakeNoClicksAndTheirKeysGoToTheDesktop) {
    const WindowHandle desktop = AddWindow({.className = "Progman", .caption = "Program Manager"});
    for (WindowHandle OwnWindows::*own : {&OwnWindows::main, &OwnWindows::replayStatus, &OwnWindows::recordingStatus}) {
        ownWindows.*own = AddWindow({.className = "Form", .rect = {0, 0, 90, 90}, .thread = simulated::OwnThread});
        const WindowHandle control =
            AddWindow({.className = "Stop", .rect = {0, 0, 90, 90}, .parent = ownWindows.*own});
        event.WindowChainIndex = NoWindowMarker;
        const std::size_t chains = windowArrays.chains.size();
        EXPECT_EQ(Press(control), 0);
        EXPECT_EQ(event.WindowChainIndex, NoWindowMarker);
        EXPECT_EQ(windowArrays.chains.size(), chains);
        EXPECT_EQ(KeyDown(), 1);
        EXPECT_THAT(CapturedClasses(), ElementsAre("Progman"));
    }
    simulated::Destroy(desktop);
    EXPECT_EQ(KeyDown(), 1);
    EXPECT_THAT(CapturedClasses(), ElementsAre(IsEmpty())) << "no desktop: a signature that says nothing";
}

TEST_F(CaptureWindowOf, BoxesOfOursAreNeitherTheNamedWindowsNorAnotherProgram) {
    ownWindows.main = AddWindow({.className = "Form", .rect = {600, 0, 900, 300}, .thread = simulated::OwnThread});
    const WindowHandle page = AddWindow({.className = "Page", .rect = {0, 0, 90, 90}, .parent = ownWindows.main});
    const WindowHandle box = AddWindow({.className = "#32770",
                                        .rect = {600, 400, 900, 600},
                                        .thread = simulated::OwnThread,
                                        .owner = ownWindows.main});
    const WindowHandle ok = AddWindow({.className = "Button", .rect = {9, 9, 90, 90}, .parent = box});
    const std::tuple<WindowHandle, bool> cases[] = {
        {ok, true}, {box, true}, {page, false}, {button, false}, {dialog, false}};
    for (const auto& [window, ownBox] : cases) {
        simulated::SetFocus(window);
        simulated::PlaceCursor(simulated::CentreOf(window));
        EXPECT_EQ(IsForOwnBox(true), ownBox) << platform::ClassOf(window);
        EXPECT_EQ(IsForOwnBox(false), ownBox) << platform::ClassOf(window);
    }
    simulated::LeaveNoForeground();
    EXPECT_FALSE(IsForOwnBox(true));
}

TEST_F(CaptureWindowOf, NoWindowIsNotTakenForOneOfOurs) {
    AddWindow({.className = "Progman", .caption = "Program Manager"});
    simulated::LeaveNoForeground();
    EXPECT_EQ(KeyDown(), 1);
    EXPECT_THAT(CapturedClasses(), ElementsAre(IsEmpty()));
}

TEST_F(CaptureWindowOf, KeysGoToTheFocusAndTheTaskBarTakesThemWhole) {
    simulated::SetFocus(button);
    EXPECT_EQ(KeyDown(), 3);
    const WindowHandle bar = AddWindow({.className = "Shell_TrayWnd", .rect = {0, 990, 1280, 1024}});
    simulated::SetFocus(AddWindow({.className = "Start", .rect = {0, 0, 50, 30}, .parent = bar}));
    EXPECT_EQ(KeyDown(), 1);
    EXPECT_THAT(CapturedClasses(), ElementsAre("Shell_TrayWnd"));
}

TEST_F(CaptureWindowOf, NestingTooDeepIsARangeFailure) {
    WindowHandle innermost = AddWindow({.className = "Box", .caption = "Outermost", .rect = {0, 0, 90, 90}});
    for (int i = 1; i < WindowChain::MaximumLevels; ++i) {
        innermost = AddWindow({.className = "Box", .rect = {0, 0, 90, 90}, .parent = innermost});
    }
    EXPECT_EQ(Press(innermost), WindowChain::MaximumLevels);
    innermost = AddWindow({.className = "Box", .rect = {0, 0, 90, 90}, .parent = innermost});
    EXPECT_THROW(Press(innermost), RuntimeFailure);
}

// The traces in the capture pump, and what runs there can be the next hook call.
TEST_F(CaptureWindowOf, ACaptureInsideACaptureFillsTheSameChainAndTheOuterStands) {
    const WindowHandle other = AddWindow({.className = "Other", .rect = {700, 700, 800, 800}, .active = false});
    JobEvent inner;
    simulated::After(0, [&] {
        simulated::PlaceCursor(simulated::CentreOf(other));
        EXPECT_EQ(CaptureWindow(inner, false), 1);
        EXPECT_THAT(ClassesOf(windowArrays.chains[0]), ElementsAre("Other"));
    });
    EXPECT_EQ(Press(button), 3);
    EXPECT_EQ(inner.WindowChainIndex, 0);
    EXPECT_EQ(event.WindowChainIndex, 0);
    EXPECT_THAT(CapturedClasses(), ElementsAre("Button", "Group", "#32770"));
    EXPECT_EQ(windowArrays.chains.size(), 2U) << "both count it";
    EXPECT_EQ(windowArrays.windows.size(), 4U);
    Press(button);
    EXPECT_EQ(event.WindowChainIndex, 2);
    EXPECT_EQ(windowArrays.windows.size(), 4U);
}

}  // namespace
