#include "replay/target_search.h"

#include "dictionary/dictionary.h"
#include "identity/live_chain.h"
#include "identity/window_identity.h"
#include "replay/explanation_text.h"
#include "replay/similar_caption.h"
#include "settings/settings.h"
#include "support/status_view_stand_in.h"
#include "support/story.h"

namespace {

using platform::WindowHandle;
using simulated::AddWindow;

bool AllEqual(const std::vector<LevelComparison>& levels, std::size_t from) {
    return std::all_of(levels.begin() + static_cast<std::ptrdiff_t>(from), levels.end(), [](const auto& level) {
        return !level.recorded || (level.equal.className && level.equal.caption);
    });
}

// What is told of a window does not contradict what became of it.
void ExpectTold(const Candidate& candidate) {
    const LevelMatch& own = candidate.levels.at(0).equal;
    switch (candidate.fate) {
        case Fate::OtherClass:
            EXPECT_FALSE(own.className);
            break;
        case Fate::OtherCaption:
            EXPECT_TRUE(own.className && !own.caption);
            break;
        case Fate::OtherParents:
            EXPECT_TRUE(own.className && own.caption && !AllEqual(candidate.levels, 1));
            break;
        case Fate::AnotherIsBetter:
        case Fate::NotFoundByName:
        case Fate::Taken:
            EXPECT_TRUE(candidate.step == SearchStep::StandIn || AllEqual(candidate.levels, 0));
            break;
        default:
            EXPECT_TRUE(AllEqual(candidate.levels, 0));
    }
}

// The story that a search tells ends as the search did: it leads to the window that was found, or gives a reason for
// each that it leads to.
void ExpectTold(const Explanation& told, int result, WindowHandle found) {
    EXPECT_EQ(told.result, result);
    const Candidate* last = nullptr;
    for (const Candidate& each : told.candidates) {
        ExpectTold(each);
        if (each.step == SearchStep::LastLook) last = &each;
    }
    const std::string text = LikelyReason(told);
    EXPECT_EQ(text.find('<'), std::string::npos) << text;
    if (result < TargetReady) {
        EXPECT_TRUE(last == nullptr || last->fate != Fate::Taken);
        EXPECT_EQ(result == TargetCanceled, text.empty());
    } else if (last != nullptr) {
        EXPECT_EQ(last->fate, Fate::Taken);
        EXPECT_EQ(last->window, found);
        EXPECT_EQ(told.found, found);
    }
}
using simulated::WindowSpec;

constexpr int Pause = 200;   // between two looks
constexpr int Placed = 500;  // after the first placing of a window
constexpr int NewPage = 3000;
constexpr std::int64_t HungStep = 2 * (simulated::HungMilliseconds + Pause);  // a search asks a hung window twice

// An editor with a panel and a button, in which a click was recorded. The stories then change the desktop and look for
// the button again, with the cursor where the click was.
class TargetSearch : public testing::Test {
protected:
    TargetSearch() {
        Translate("");  // fills the words of the status
        settings.Display_Executing_Status = 1;
        OpenEditor();
        RecordClick(button);
    }

    void OpenEditor() {
        editor = AddWindow(editorSpec);
        panel = AddWindow(PanelIn(editor));
        button = AddWindow(ButtonIn(panel));
    }
    static WindowSpec PanelIn(WindowHandle parent) {
        return {.className = "Panel", .rect = {10, 10, 500, 400}, .parent = parent, .controlId = 5};
    }
    static WindowSpec ButtonIn(WindowHandle parent) {
        return {.className = "Button", .caption = "OK", .rect = {20, 20, 40, 40}, .parent = parent, .controlId = 1};
    }

    void RecordClick(WindowHandle window) {
        simulated::PlaceCursor(simulated::CentreOf(window));
        Record(false);
    }
    void RecordKeys(WindowHandle window) {
        simulated::SetFocus(window);
        Record(true);
    }
    void Record(bool byFocus) {
        JobEvent event;
        CaptureWindow(event, byFocus);
        windows = windowArrays.windows;
        chains = windowArrays.chains;
        request.chainIndex = event.WindowChainIndex;
        request.useFocus = byFocus;
    }

    int Find() {
        const std::int64_t begin = platform::TickCount();
        told.Reset();
        request.listener = &told;
        const int result = FindTarget(request, windows, chains, reason);
        took = platform::TickCount() - begin;
        const bool taskBar = Signature(Chain().Depth).ClassName == "Shell_TrayWnd";  // not searched for
        if (!taskBar || !request.useFocus) ExpectTold(told.Heard(), result, searchState.current);
        return result;
    }
    std::string Why() const { return LikelyReason(told.Heard()); }
    // A search that is over and done with: what it put in place needs no pause the next time.
    void FindOnce() { ASSERT_EQ(Find(), TargetReady); }

    void ExpectReadyAfter(std::int64_t ms) {
        EXPECT_EQ(Find(), TargetReady) << reason;
        EXPECT_EQ(took, ms);
    }
    void ExpectFailureAfter(std::int64_t ms, int result, const std::string& text) {
        EXPECT_EQ(Find(), result);
        EXPECT_EQ(took, ms);
        EXPECT_EQ(reason, text);
    }

    // The user holds ESC, `ms` into the search, and the search ends as soon as a step of it can.
    void ExpectCancelledAt(std::int64_t ms, std::int64_t step = Pause) {
        const std::int64_t now = platform::TickCount();
        simulated::UserHoldsEscapeFrom(now + ms, now + ms + 100);
        EXPECT_EQ(Find(), TargetCanceled);
        EXPECT_GE(took, ms);
        EXPECT_LE(took, ms + step);
        EXPECT_EQ(reason, "as before");
        simulated::RunFor(Pause);  // until the key is up again
    }

    void ExpectHungUntilTheWaitIsOver() {
        EXPECT_EQ(Find(), TargetWindowMissing);
        EXPECT_EQ(reason, "Cannot find window: 'a.txt - Editor'");
        const std::int64_t wait = std::int64_t{1000} * request.waitSeconds;
        EXPECT_GT(took, wait);
        EXPECT_LE(took, wait + HungStep);
    }

    WindowChain& Chain() { return chains.at(static_cast<std::size_t>(request.chainIndex)); }
    WindowSignature& Signature(std::int32_t level) {
        return windows.at(static_cast<std::size_t>(Chain().Path.at(static_cast<std::size_t>(level))));
    }

    const WindowSpec editorSpec = {.className = "Editor", .caption = "a.txt - Editor", .rect = {100, 100, 700, 600}};
    WindowHandle editor = 0;
    WindowHandle panel = 0;
    WindowHandle button = 0;
    std::vector<WindowSignature> windows;  // as a job has them
    std::vector<WindowChain> chains;
    SearchRequest request;
    Explainer told;
    std::string reason = "as before";
    std::int64_t took = 0;
};

// --- what input would really reach ---

TEST_F(TargetSearch, WhatLiesOverTheTargetForGoodIsAFailureAndNotAClick) {
    request.waitSeconds = 1;
    const WindowHandle cover = AddWindow({.className = "Clock", .rect = editorSpec.rect, .topmost = true});
    EXPECT_EQ(Find(), TargetElementMissing);
    EXPECT_EQ(reason, "Cannot find element: 'OK' (Button' in window: 'a.txt - Editor'");
    request.safetyLevel = SafetyMedium;
    EXPECT_EQ(Find(), TargetWindowMissing);
    simulated::MeanwhileAfter(300, [cover] { simulated::Destroy(cover); });
    EXPECT_EQ(Find(), TargetReady) << "when it goes away in time, the click goes on";
}

TEST_F(TargetSearch, WhatComesUpDuringAPauseIsSeen) {
    WindowHandle thief = 0;
    simulated::MeanwhileAfter(100, [&] { thief = AddWindow({.className = "Thief", .rect = editorSpec.rect}); });
    EXPECT_EQ(Find(), TargetReady);
    EXPECT_GT(thief, 0);
    EXPECT_EQ(platform::WindowAt(platform::CursorPosition()), button);
    RecordKeys(button);
    ResetSearch();
    simulated::MeanwhileAfter(100, [&] { AddWindow({.className = "Thief", .rect = {0, 0, 50, 50}}); });
    EXPECT_EQ(Find(), TargetReady);
    EXPECT_EQ(simulated::FocusedWindow(), button);
}

TEST_F(TargetSearch, KeysWantTheFocusInTheVeryElement) {
    const WindowHandle other = AddWindow({.className = "Edit", .rect = {0, 0, 9, 9}, .parent = panel});
    RecordKeys(button);
    simulated::SetFocus(other);
    EXPECT_EQ(Find(), TargetReady);
    EXPECT_EQ(simulated::FocusedWindow(), button);
    simulated::SetFocus(other);
    simulated::SetEnabled(button, false);
    EXPECT_EQ(Find(), TargetElementMissing) << "the element is there, but the keys would go elsewhere";
    RecordKeys(editor);
    simulated::SetFocus(other);
    EXPECT_EQ(Find(), TargetReady);
    EXPECT_EQ(simulated::FocusedWindow(), editor);
}

TEST_F(TargetSearch, AWindowMovedOrMaximisedLaterOnComesBackForAPress) {
    FindOnce();
    simulated::MoveWindow(editor, {105, 103});  // the cursor is still over the button
    ExpectReadyAfter(Placed);
    EXPECT_EQ(simulated::ScreenRectOf(editor), editorSpec.rect);
    simulated::Maximise(editor);
    EXPECT_EQ(Find(), TargetReady);
    EXPECT_EQ(simulated::ScreenRectOf(editor), editorSpec.rect);
    simulated::MoveWindow(editor, {105, 103});
    RecordKeys(button);
    ResetSearch();
    FindOnce();
    simulated::MoveWindow(editor, {110, 103});
    ExpectReadyAfter(0);
    EXPECT_EQ(simulated::ScreenRectOf(editor).left, 110) << "keys do not mind";
    request.useFocus = false;
    ExpectReadyAfter(Placed);
    EXPECT_EQ(simulated::ScreenRectOf(editor).left, 105) << "and the next press does";

    ResetSearch();
    RecordKeys(button);
    simulated::MeanwhileAfter(100, [&] { simulated::MoveWindow(editor, {300, 150}); });
    ExpectReadyAfter(Placed);
    request.useFocus = false;
    FindOnce();
    EXPECT_EQ(simulated::ScreenRectOf(editor).left, 105)
        << "moved in the pause of a search for keys, it is not in place";
}

TEST_F(TargetSearch, ACaptionBeyondTheCodePageIsFoundByWhatTheCodePageMakesOfIt) {
    WindowSpec foreign = editorSpec;
    foreign.className = "Foreign";
    foreign.caption = "?????.txt - Editor";
    foreign.captionBeyondCodePage = true;
    const WindowHandle window = AddWindow(foreign);
    for (request.safetyLevel = SafetyHigh; request.safetyLevel <= SafetyMedium; ++request.safetyLevel) {
        RecordClick(window);
        simulated::Minimise(window);
        EXPECT_EQ(Find(), TargetReady) << reason;
        EXPECT_EQ(platform::ForegroundWindow(), window);
    }
}

TEST_F(TargetSearch, WhatTheRunHasCaughtUpIsWaitedForAtLeast) {
    simulated::Destroy(editor);
    request.graceMs = 3000;
    const std::int64_t begin = platform::TickCount();
    EXPECT_EQ(Find(), TargetWindowMissing);
    EXPECT_GT(platform::TickCount() - begin, 3000);
}

// --- all is in place ---

TEST_F(TargetSearch, InPlaceCostsAPauseOnceARun) {
    ExpectReadyAfter(Placed);
    ExpectReadyAfter(0);
    EXPECT_EQ(searchState.current, button);
    EXPECT_EQ(reason, "as before");
    ResetSearch();
    ExpectReadyAfter(Placed);
}

TEST_F(TargetSearch, AMatchPutsEveryLevelBackInPlace) {
    FindOnce();
    simulated::MoveWindow(button, {23, 20});
    ExpectReadyAfter(0);
    EXPECT_EQ(platform::PlacementOf(button).rcNormalPosition, ButtonIn(panel).rect);
    // The leaf alone decides whether something moved.
    simulated::Resize(editor, {550, 450});
    ExpectReadyAfter(0);
    EXPECT_EQ(simulated::ScreenRectOf(editor).right, 650);
    simulated::MoveWindow(button, {23, 20});
    ExpectReadyAfter(0);
    EXPECT_EQ(simulated::ScreenRectOf(editor), editorSpec.rect);
}

TEST_F(TargetSearch, PanesAreNotMoved) {
    const WindowHandle pane = AddWindow({.className = "NetUIHWND", .rect = {100, 100, 200, 200}, .parent = panel});
    RecordClick(pane);
    simulated::MoveWindow(pane, {103, 100});
    ExpectReadyAfter(0);
    EXPECT_EQ(platform::PlacementOf(pane).rcNormalPosition.left, 103);
}

// --- the window is elsewhere ---

TEST_F(TargetSearch, AMinimisedWindowIsRestoredAndAMaximisedOneIsMaximised) {
    simulated::Minimise(editor);
    ExpectReadyAfter(Pause + Placed);
    EXPECT_EQ(platform::PlacementOf(editor).showCmd, platform::ShowNormal);
    simulated::Maximise(editor);
    ResetWindowArrays();  // a signature that is there already would keep its recorded state
    RecordClick(button);
    simulated::Restore(editor);
    ExpectReadyAfter(Pause);
    EXPECT_EQ(platform::PlacementOf(editor).showCmd, platform::ShowMaximized);
}

TEST_F(TargetSearch, MediumIsContentWithTheTopLevelWindow) {
    request.safetyLevel = SafetyMedium;
    simulated::Destroy(button);
    simulated::Cover(editor);
    ExpectReadyAfter(Placed);
    EXPECT_EQ(platform::ForegroundWindow(), editor);
    EXPECT_EQ(searchState.current, editor);

    request.waitSeconds = 10;
    const WindowHandle twin = AddWindow(editorSpec);
    AddWindow(ButtonIn(AddWindow(PanelIn(twin))));
    simulated::MoveWindow(twin, {120, 120});
    simulated::MeanwhileAfter(Placed / 2, [&] { simulated::MoveWindow(editor, {800, 100}); });
    FindOnce();
    EXPECT_EQ(platform::WindowAt(platform::CursorPosition()), panel) << "and not its twin, which came to light";
}

// --- the window is late ---

TEST_F(TargetSearch, ALateWindowIsWaitedFor) {
    simulated::Destroy(editor);
    const WindowHandle late = simulated::AppearsAfter(3000, editorSpec);
    const WindowHandle latePanel = simulated::AppearsAfter(3000, PanelIn(late));
    const WindowHandle lateButton = simulated::AppearsAfter(3000, ButtonIn(latePanel));
    request.waitSeconds = 10;
    ExpectReadyAfter(3000 + Placed);
    EXPECT_EQ(searchState.current, lateButton);
    EXPECT_EQ(statusViewStandIn.statusLabel, "Waiting for window:\r\na.txt - Editor");
}

TEST_F(TargetSearch, AMissingWindowFailsWhenTheWaitIsOver) {
    simulated::SetCaption(editor, "b.txt - Editor");
    const std::string text = "Cannot find window: 'a.txt - Editor'";
    ExpectFailureAfter(Pause, TargetWindowMissing, text);
    request.waitSeconds = 1;
    ExpectFailureAfter(1200, TargetWindowMissing, text);  // more than the wait must have passed
    request.safetyLevel = SafetyMedium;
    ExpectFailureAfter(1200, TargetWindowMissing, text);
}

TEST_F(TargetSearch, AMissingElementFailsWhenTheWaitIsOver) {
    simulated::SetCaption(button, "Cancel");
    ExpectFailureAfter(Pause, TargetElementMissing, "Cannot find element: 'OK' (Button' in window: 'a.txt - Editor'");
    request.waitSeconds = 1;
    EXPECT_EQ(Find(), TargetElementMissing);
    EXPECT_GT(took, 1000);
    EXPECT_LE(took, 1000 + Pause);
    // The markers are replaced one after the other, so a caption with the second one in it takes the window's.
    Signature(0).Caption = "100%2";
    request.waitSeconds = 0;
    ExpectFailureAfter(Pause, TargetElementMissing,
                       "Cannot find element: '100a.txt - Editor' (Button' in window: '%2'");
}

TEST_F(TargetSearch, ABareDialogGetsTwentyLooks) {
    const WindowSpec bare = {.className = "#32770", .rect = {800, 100, 900, 200}};
    const WindowHandle dialog = AddWindow(bare);
    RecordClick(dialog);
    simulated::Destroy(dialog);
    ExpectFailureAfter(19 * Pause + Pause + 19 * Pause, TargetWindowMissing, "Cannot find window: ''");
    simulated::AppearsAfter(2500, bare);
    ExpectReadyAfter(2600 + Placed);
}

// --- ESC ---

TEST_F(TargetSearch, EscapeEndsEveryWait) {
    simulated::UserTaps(platform::VirtualKeyEscape);
    EXPECT_EQ(Find(), TargetCanceled) << "a tap before the search";
    EXPECT_EQ(took, 0);
    request.waitSeconds = 60;
    simulated::SetCaption(button, "Cancel");
    ExpectCancelledAt(700);  // for the element
    simulated::SetCaption(editor, "b.txt - Editor");
    ExpectCancelledAt(700);  // for the window
    RecordClick(AddWindow({.className = "#32770", .rect = {800, 100, 900, 200}}));
    simulated::Destroy(platform::ForegroundWindow());
    ExpectCancelledAt(700);  // for the bare dialog
}

TEST_F(TargetSearch, TheEscapeOfTheJobIsNotTheUsers) {
    simulated::UserHoldsEscapeFrom(0, 10'000);
    request.escHeld = true;
    ExpectReadyAfter(Placed);
    request.escHeld = false;
    EXPECT_EQ(Find(), TargetCanceled);
}

// --- windows that do not do as they are told ---

TEST_F(TargetSearch, AHungWindowEndsWithTheWait) {
    request.waitSeconds = 2;
    simulated::SetHung(editor);
    simulated::Resize(editor, {550, 450});  // it matches, but cannot be put in place
    ExpectHungUntilTheWaitIsOver();
    simulated::Cover(editor);
    ExpectHungUntilTheWaitIsOver();
    request.useFocus = true;
    ExpectHungUntilTheWaitIsOver();
}

TEST_F(TargetSearch, AWindowThatCannotComeForwardIsNotReady) {
    request.safetyLevel = SafetyMedium;
    request.waitSeconds = 2;
    simulated::Cover(editor);
    simulated::LeaveNoForeground();
    simulated::RefuseForeground(editor);
    EXPECT_EQ(Find(), TargetWindowMissing);
    simulated::MeanwhileAfter(500, [this] { simulated::RefuseForeground(editor, false); });
    ExpectReadyAfter(600 + Placed);
}

// --- several windows that look alike ---

TEST_F(TargetSearch, OfTwinElementsTheNearestWinsAndElseTheFirst) {
    const auto addTwinAt = [this](const platform::Rect& rect) {
        WindowSpec twin = ButtonIn(panel);
        twin.rect = rect;
        const WindowHandle added = AddWindow(twin);
        simulated::Raise(button);
        return added;
    };
    simulated::MoveWindow(button, {90, 20});
    const WindowHandle nearest = addTwinAt({50, 20, 70, 40});
    ExpectReadyAfter(Pause + Placed);
    EXPECT_EQ(searchState.current, nearest);
    EXPECT_EQ(platform::PlacementOf(nearest).rcNormalPosition, ButtonIn(panel).rect);

    simulated::Destroy(nearest);
    simulated::MoveWindow(button, {60, 20});
    addTwinAt({20, 60, 40, 80});  // as far away
    ExpectReadyAfter(Pause);
    EXPECT_EQ(searchState.current, button);
}

class TwinDialogs : public TargetSearch {
protected:
    TwinDialogs() {
        dialog = AddWindow(DialogAt({200, 200, 400, 300}));
        yes = AddWindow(YesIn(dialog));
    }
    WindowSpec DialogAt(const platform::Rect& rect) const {
        return {.className = "#32770", .caption = "Save", .rect = rect, .owner = editor};
    }
    static WindowSpec YesIn(WindowHandle parent) {
        return {.className = "Button", .caption = "Yes", .rect = {10, 10, 60, 40}, .parent = parent};
    }

    WindowHandle dialog = 0;
    WindowHandle yes = 0;
};

// The name finds the twin in front, so the live chain of the recorded one goes on to the owner of its dialog.
TEST_F(TwinDialogs, TheOneThatStandsAsRecordedIsTaken) {
    for (const bool byFocus : {false, true}) {
        byFocus ? RecordKeys(yes) : RecordClick(yes);
        const WindowHandle twin = AddWindow(DialogAt({800, 200, 1000, 300}));
        simulated::SetFocus(AddWindow(YesIn(twin)));
        for (request.safetyLevel = SafetyHigh; request.safetyLevel <= SafetyMedium; ++request.safetyLevel) {
            EXPECT_EQ(Find(), TargetReady) << reason;
            EXPECT_EQ(LiveChain(searchState.current).Handle(1), dialog);
        }
        request.safetyLevel = SafetyHigh;
        simulated::Destroy(twin);
    }
}

// A dialog lies over its owner whatever comes forward.
TEST_F(TwinDialogs, ADialogOverTheTargetIsNotTheTarget) {
    simulated::MoveWindow(dialog, {110, 110});
    simulated::Resize(dialog, {300, 300});
    RecordClick(yes);
    simulated::SetVisible(dialog, false);
    RecordClick(button);
    simulated::SetVisible(dialog, true);
    request.safetyLevel = SafetyMedium;
    EXPECT_EQ(Find(), TargetWindowMissing);
    EXPECT_EQ(reason, "Cannot find window: 'a.txt - Editor'");
}

TEST_F(TwinDialogs, ThatWasMetBeforeIsKnownAndAStrangerIsNotTaken) {
    RecordClick(yes);
    FindOnce();
    simulated::MoveWindow(dialog, {500, 500});
    const WindowHandle twin = AddWindow(DialogAt({800, 200, 1000, 300}));
    AddWindow(YesIn(twin));
    EXPECT_EQ(Find(), TargetReady) << reason;
    EXPECT_EQ(searchState.current, yes);
    EXPECT_EQ(simulated::ScreenRectOf(dialog).left, 200) << "and it is back in its place";

    ResetSearch();
    simulated::MoveWindow(dialog, {500, 500});
    for (request.safetyLevel = SafetyHigh; request.safetyLevel <= SafetyMedium; ++request.safetyLevel) {
        EXPECT_EQ(Find(), TargetWindowMissing) << "one of the two, but nothing tells which";
        EXPECT_EQ(reason, "More than one window is called 'Save', and none of them stands where it was recorded.");
    }
}

// A dialog that is a part of another window is not the recorded one.
TEST_F(TwinDialogs, AtAWrongDepthAClickGivesUpWithoutAReason) {
    RecordClick(yes);
    simulated::Destroy(dialog);
    simulated::Destroy(panel);
    WindowSpec part = DialogAt({100, 100, 300, 200});
    part.parent = std::exchange(part.owner, 0);
    AddWindow(YesIn(AddWindow(part)));
    request.waitSeconds = 60;
    ExpectFailureAfter(0, TargetWindowMissing, "");
    request.safetyLevel = SafetyMedium;
    EXPECT_EQ(Find(), TargetReady) << "where the depth is not looked at";
}

// --- browsers ---

TEST_F(TargetSearch, ANewPageOfABrowserGetsTimeAtMoreThanRecordedSpeed) {
    for (const std::string className : {"IEFrame", "MozillaUIWindowClass", "Chrome_WidgetWin_0", "ieframe", "Editor"}) {
        const std::int64_t pause = className == "Editor" ? 0 : NewPage;
        request.speedPercent = 100;
        const WindowHandle browser = AddWindow({.className = className});
        const WindowHandle page = AddWindow({.className = "Page", .rect = {0, 0, 300, 300}, .parent = browser});
        for (const char* title : {"One", "Two"}) {  // recorded, and replayed before
            simulated::SetCaption(browser, title);
            RecordClick(page);
            FindOnce();
        }
        searchState.lastTopCaption = "One";  // now with a title that the last search did not see
        ExpectReadyAfter(0);
        searchState.lastTopCaption = "One";
        request.speedPercent = 101;
        statusViewStandIn.statusLabel.clear();
        ExpectReadyAfter(pause);
        EXPECT_EQ(statusViewStandIn.statusLabel, pause > 0 ? "Waiting for web page to load..." : "") << className;
        ExpectReadyAfter(0);
        searchState.lastTop = editor;
        searchState.lastTopCaption = "One";
        ExpectReadyAfter(0);
    }
}

// --- the desktop and the task bar ---

class DesktopSearch : public TargetSearch {
protected:
    DesktopSearch() {
        simulated::Destroy(editor);
        desktop = AddWindow({.className = "Progman", .caption = "Program Manager", .rect = {0, 0, 1280, 1024}});
        icons = AddWindow({.className = "SysListView32", .rect = {0, 0, 1280, 1024}, .parent = desktop});
        RecordClick(icons);
    }

    WindowHandle desktop = 0;
    WindowHandle icons = 0;
};

TEST_F(DesktopSearch, WindowsOverTheDesktopAreMinimised) {
    OpenEditor();
    const WindowHandle second = AddWindow(editorSpec);
    const WindowHandle aside = AddWindow({.rect = {900, 900, 1000, 1000}});
    simulated::PlaceCursor(simulated::CentreOf(button));
    ExpectReadyAfter(Placed);
    for (const WindowHandle window : {editor, second, aside}) {
        EXPECT_EQ(platform::PlacementOf(window).showCmd == platform::ShowMinimized, window != aside);
    }
}

TEST_F(DesktopSearch, AWindowThatStaysIsMinimisedOnlyOnce) {
    const WindowHandle stubborn = simulated::Cover(desktop);
    simulated::RefusePlacement(stubborn);
    ExpectReadyAfter(Pause + Placed);
    EXPECT_EQ(platform::ForegroundWindow(), desktop);
}

TEST_F(TargetSearch, KeysForTheTaskBarAreNotSearchedFor) {
    const WindowHandle bar = AddWindow({.className = "Shell_TrayWnd", .rect = {0, 990, 1280, 1024}});
    Record(true);
    simulated::Destroy(bar);
    ExpectReadyAfter(0);
    request.useFocus = false;
    EXPECT_EQ(Find(), TargetWindowMissing) << "clicks are";
}

// --- similar captions ---

TEST_F(TargetSearch, AnotherDocumentStandsInAfterTheWaitAndThenAtOnce) {
    simulated::SetCaption(editor, "b.txt - Editor");
    AddWindow({.className = "Last"});
    simulated::Activate(editor);
    request.waitSeconds = 1;
    request.similarAllowed = true;
    ExpectReadyAfter(1200 + Pause + Placed);
    EXPECT_EQ(searchState.current, button);
    // The top-level window is known by its alias now; what lies in it is compared under it only when the wait is over.
    ExpectReadyAfter(1020 + Pause);
    request.safetyLevel = SafetyMedium;
    request.waitSeconds = 60;
    ExpectReadyAfter(0);
    ResetSearch();
    request.waitSeconds = 1;
    ExpectReadyAfter(1200 + Placed);
}

TEST_F(TargetSearch, WithoutPermissionNothingStandsIn) {
    searchState.CaptionAlias.Add("a.txt - Editor", "b.txt - Editor");
    simulated::SetCaption(editor, "b.txt - Editor");
    EXPECT_EQ(Find(), TargetWindowMissing);
}

// --- the compare ---

// The tails of these classes change from start to start. Upper and lower case matter for the leaf alone.
TEST_F(TargetSearch, GeneratedClassesMatchByTheirBeginning) {
    for (const auto& [recorded, live, asLeaf, asParent] : std::vector<std::tuple<std::string, std::string, bool, bool>>{
             {"Afx:400000:8:10011:0:0", "Afx:400000:8:10013:0:0", true, true},
             {"afx:1", "afx:2", false, true},
             {"Afx:1", "AFX:2", false, true},
             {"Afx1", "Afx2", false, false},
             {"Afx:1", "Editor", false, false},
             {"afx:1", "afx:1", true, true},
         }) {
        const WindowHandle parent = AddWindow({.className = live, .rect = {700, 10, 900, 90}});
        const WindowHandle child = AddWindow({.className = "Child", .rect = {0, 0, 50, 50}, .parent = parent});
        const auto matches = [this](WindowHandle window) {
            return MatchWindow(window, request.chainIndex, windows, chains, false) == MatchAll;
        };
        ResetWindowArrays();
        RecordClick(child);
        Signature(1).ClassName = recorded;
        EXPECT_EQ(matches(child), asParent) << recorded << " " << live;
        RecordClick(parent);
        Signature(0).ClassName = recorded;
        EXPECT_EQ(matches(parent), asLeaf) << recorded << " " << live;
    }
}

// --- damaged jobs ---

TEST_F(TargetSearch, IndexesThatPointNowhereAreRangeFailures) {
    const auto find = [this] { Find(); };
    const WindowChain good = Chain();
    const std::pair<const char*, std::int32_t*> indexes[] = {{"leaf", &Chain().LeafWindow},
                                                             {"parent", &Chain().Path[1]},
                                                             {"top", &Chain().Path[2]},
                                                             {"depth", &Chain().Depth}};
    for (const std::int32_t bad : {-1, 256, 2'147'483'647, NoWindowMarker}) {
        for (const auto& [name, index] : indexes) {
            *index = bad;
            EXPECT_EQ(FailureOf(find), FailureKind::Range) << name << " " << bad;
            Chain() = good;
        }
    }
    for (const std::int32_t bad : {-1, 99, NoWindowMarker}) {
        request.chainIndex = bad;
        EXPECT_EQ(FailureOf(find), FailureKind::Range) << "chain " << bad;
    }
    request.chainIndex = 0;
    EXPECT_EQ(Find(), TargetReady);
}

TEST_F(TargetSearch, AChainTooLongForTheSearchIsARangeFailureOnceItMatches) {
    WindowHandle innermost = AddWindow({.className = "Box", .caption = "Outermost", .rect = {0, 0, 90, 90}});
    const WindowHandle outermost = innermost;
    for (int i = 0; i < 100; ++i) {
        innermost = AddWindow({.className = "Box", .rect = {0, 0, 90, 90}, .parent = innermost});
    }
    RecordClick(innermost);
    EXPECT_EQ(Find(), TargetReady) << "100 parents still go";
    RecordClick(AddWindow({.className = "Box", .rect = {0, 0, 90, 90}, .parent = innermost}));
    for (const std::int32_t level : {SafetyHigh, SafetyMedium}) {
        request.safetyLevel = level;
        EXPECT_THROW(Find(), RuntimeFailure);
    }
    simulated::Cover(outermost);
    EXPECT_THROW(Find(), RuntimeFailure) << "for the top-level window as well";
    simulated::Destroy(outermost);
    EXPECT_EQ(Find(), TargetWindowMissing) << "what is never met is no fault";
}

using platform::WindowHandle;

// The captions of windows of one class, from the front to the back, and the index of the one that is taken, -1 for
// none. A window of another class stands last in the enumeration.
TEST(FindSimilarWindow, TakesTheMostWordsInCommon) {
    const std::tuple<std::string, std::vector<std::string>, std::string, int> cases[] = {
        {"most words", {"b.txt - Text Editor", "Editor", "x"}, "a.txt - Text Editor", 0},
        {"two words", {"My Editor", "My Text Editor", "Text"}, "text editor", 1},
        {"a tie goes to the later", {"b - Editor", "c - Editor", "d"}, "a - Editor", 1},
        {"no word at all is still the class", {"One", "Two"}, "Three", 1},
        {"any case", {"EDITOR", "Viewer"}, "eDitor", 0},
        {"single characters do not count", {"a b c - x", "dd"}, "a b c - dd", 1},
        {"repeated words count for each pair", {"go go", "go now"}, "go go now", 0},
        {"runs of blanks are no words", {"big   blue", "big"}, "  big  blue ", 0},
        {"a namesake behind is not reached by name", {"Editor", "x", "Editor"}, "Editor", 0},
        {"an empty caption is a candidate", {""}, "Editor", 0},
        {"nothing of the class", {}, "Editor", -1},
    };
    std::vector<WindowHandle> old;
    for (const auto& [why, captions, wanted, index] : cases) {
        for (const WindowHandle window : old) simulated::Destroy(window);
        old.assign(1, simulated::AddWindow({.className = "Last", .caption = wanted}));
        std::vector<WindowHandle> windows(captions.size());
        for (std::size_t i = windows.size(); i-- > 0;) {
            windows[i] = simulated::AddWindow({.className = "Editor", .caption = captions[i]});
        }
        const WindowHandle expected = index < 0 ? 0 : windows[static_cast<std::size_t>(index)];
        EXPECT_EQ(FindSimilarWindow("Editor", wanted).window, expected) << why;
        old.insert(old.end(), windows.begin(), windows.end());
    }
}

TEST(FindSimilarWindow, NeverTakesTheLastOfTheEnumeration) {
    simulated::AddWindow({.className = "Editor", .caption = "b - Editor"});
    EXPECT_EQ(FindSimilarWindow("Editor", "a - Editor").window, 0);
    const WindowHandle front = simulated::AddWindow({.className = "Editor", .caption = "Other"});
    const SimilarWindow found = FindSimilarWindow("Editor", "a - Editor");
    EXPECT_EQ(found.window, front) << "not even for a better one";
    EXPECT_EQ(found.caption, "Other");
}

}  // namespace
