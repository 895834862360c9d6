#include "replay/explanation.h"

#include <random>

#include "identity/live_chain.h"
#include "identity/window_identity.h"
#include "replay/explanation_text.h"
#include "replay_stage.h"
#include "support/wording.h"

namespace {

using platform::WindowHandle;
using simulated::AddWindow;

// A dialog of Notepad's with a button, in which a click was recorded.
class ExplanationOfARun : public ReplayStage {
protected:
    ExplanationOfARun() {
        dialog = AddWindow(DialogSpec());
        button = AddWindow(ButtonIn(dialog));
        job.InWindow(LevelOf(button), LevelOf(dialog));
        const platform::Point point = simulated::CentreOf(button);
        job.Click(Left, point.x, point.y);
    }

    static simulated::WindowSpec DialogSpec() {
        return {.className = "Report", .caption = "Report 11", .rect = {200, 200, 500, 400}};
    }
    static simulated::WindowSpec ButtonIn(WindowHandle parent) {
        return {.className = "Button", .caption = "Print", .rect = {20, 20, 90, 50}, .parent = parent, .controlId = 7};
    }

    // What the run tells that finds no window, and what is told without a run; both in English.
    std::string WhyOfRun() {
        EXPECT_LT(Replay(), 1);
        return LastFailedSearch() == nullptr ? "" : LikelyReason(*LastFailedSearch());
    }
    std::string WhyNow() { return LikelyReason(Explain(job.Built(), 0, 1)); }

    WindowHandle dialog = 0;
    WindowHandle button = 0;
    WindowHandle other = 0;
};

TEST_F(ExplanationOfARun, SaysInASentenceWhyTheWindowWasNotFound) {
    const std::string tick = " Tick 'similar captions' or change the row.";
    const auto again = [this](auto change) {
        for (const WindowHandle old : {dialog, other}) simulated::Destroy(old);
        dialog = AddWindow(DialogSpec());
        button = AddWindow(ButtonIn(dialog));
        change();
    };
    const std::tuple<const char*, std::function<void()>, std::string> stories[] = {
        {"renamed", [this] { simulated::SetCaption(dialog, "Report 12"); },
         "The window is there, but its title is now 'Report 12', recorded was 'Report 11'." + tick},
        {"several of the kind",
         [this] {
             simulated::SetCaption(dialog, "Report 12");
             other = AddWindow({.className = "Report", .caption = "Other"});
         },
         "'Report 11' is not there. Of the windows of its kind, 'Report 12' has the title most like it." + tick},
        {"closed", [this] { simulated::Destroy(dialog); },
         "The window 'Report 11' is not there, nor any other of its kind. Open it before this row, or give the row a "
         "longer "
         "wait."},
        {"element renamed", [this] { simulated::SetCaption(button, "Send"); },
         "The element is there, but is called 'Send' now, recorded was 'Print'. Record the row anew."},
        {"element gone", [this] { simulated::Destroy(button); },
         "The window 'Report 11' is there, but without 'Print'. Something may have to be opened in it first, or the "
         "row "
         "needs a longer wait."},
        {"in another part",
         [this] {
             simulated::Destroy(button);
             AddWindow(ButtonIn(AddWindow({.className = "Panel", .rect = {0, 0, 200, 100}, .parent = dialog})));
         },
         "'Print' is there, but in another part of the window. Record the row anew."},
        {"one level too deep",
         [this] {
             simulated::WindowSpec part = DialogSpec();
             part.rect = {100, 100, 400, 300};
             part.parent = notepad;
             simulated::Destroy(dialog);
             simulated::Destroy(edit);
             AddWindow(ButtonIn(AddWindow(part)));
         },
         "'Print' is there, but lies deeper in other windows than recorded. Record the row anew."},
        {"several of one name",
         [this] {
             simulated::MoveWindow(dialog, {500, 500});
             simulated::WindowSpec twin = DialogSpec();
             twin.rect = {700, 100, 1000, 300};
             AddWindow(twin);
         },
         "More than one window is called 'Report 11', and none of them stands where it was recorded."},
    };
    for (const auto& [why, change, sentence] : stories) {
        again(change);
        SCOPED_TRACE(why);
        EXPECT_EQ(WhyNow(), sentence) << why;
        EXPECT_EQ(WhyOfRun(), sentence) << why;
    }
}

TEST_F(ExplanationOfARun, KnowsWhatOnlyARunCanMeet) {
    const WindowHandle cover =
        AddWindow({.className = "Clock", .caption = "Clock", .rect = DialogSpec().rect, .topmost = true});
    EXPECT_EQ(WhyOfRun(), "'Print' is there, but 'Clock' covers it.");
    simulated::Destroy(cover);
    simulated::Cover(dialog);
    simulated::SetHung(dialog);
    EXPECT_EQ(WhyOfRun(), "The window 'Report 11' is there, but does not answer, or cannot be put in its place.");
    simulated::SetHung(dialog, false);
    simulated::KeepInputFrom(dialog);
    EXPECT_THAT(WhyOfRun(), testing::HasSubstr("runs as administrator"));
    EXPECT_EQ(WhyNow(), LikelyReason(*LastFailedSearch()));
}

TEST_F(ExplanationOfARun, SaysWhatARunWouldDo) {
    EXPECT_EQ(WhyNow(), "The window is there, as it was recorded.");
    const WindowHandle cover = simulated::Cover(dialog);
    EXPECT_EQ(WhyNow(), "The window is there, but not in front. A run brings it forward.");
    simulated::Destroy(cover);
    simulated::MoveWindow(dialog, {300, 300});
    EXPECT_EQ(WhyNow(), "The window is there, but not in its place or its size. A run puts it back.");
    simulated::Minimise(dialog);
    EXPECT_EQ(WhyNow(), "The window is there, but minimised. A run restores it.");
    simulated::Restore(dialog);
    simulated::MoveWindow(dialog, {200, 200});
    simulated::SetCaption(dialog, "Report 12");
    AddWindow({.className = "Last", .active = false});
    job.Header().SimilarWindowNames = 1;
    EXPECT_EQ(WhyNow(),
              "The window 'Report 12' stands in for 'Report 11', after the wait: similar captions are allowed.");
    job.Header().SafetyLevel = SafetyLow;
    EXPECT_EQ(WhyNow(), "At this safety level no window is looked for.");
    EXPECT_EQ(LastFailedSearch(), nullptr);
}

TEST_F(ExplanationOfARun, IsOneTableAndOneTextInEveryLanguage) {
    simulated::SetCaption(dialog, "Report 12");
    for (const int language : AllLanguages) {
        SetLanguage(language);
        const Explanation explanation = Explain(job.Built(), 0);
        const std::vector<ExplanationRow> table = ExplanationTable(explanation);
        ASSERT_FALSE(table.empty());
        EXPECT_TRUE(table.front().heading);
        const std::string text = ExplanationText(explanation);
        EXPECT_EQ(text.find('<'), std::string::npos) << text;
        EXPECT_THAT(FaultsOf(LikelyReason(explanation)), testing::IsEmpty());
        for (const ExplanationRow& row : table) EXPECT_THAT(text, testing::HasSubstr(row.what));
    }
    SetLanguage(LanguageEnglish);
    const auto hasRow = [&](const ExplanationRow& wanted) {
        const std::vector<ExplanationRow> table = ExplanationTable(Explain(job.Built(), 0));
        return std::ranges::any_of(table, [&](const ExplanationRow& row) {
            return row.what == wanted.what && row.recorded == wanted.recorded && row.live == wanted.live &&
                   row.equal == wanted.equal;
        });
    };
    EXPECT_TRUE(hasRow({true, false, "By its title", "", "Report 12", "another title"}));
    EXPECT_TRUE(hasRow({false, false, "Title", "Report 11", "Report 12", "different"}));
    EXPECT_TRUE(hasRow({false, false, "Class", "Report", "Report", "equal"}));
    EXPECT_TRUE(hasRow({false, false, "Control number", "7", "7", "equal"}));
    EXPECT_TRUE(
        hasRow({false, false, "Place and size (around it: 1)", "200, 200; 300 x 200", "200, 200; 300 x 200", "equal"}));
    simulated::Destroy(dialog);
    AddWindow({.className = "Own", .rect = {0, 0, 1280, 1024}, .thread = simulated::OwnThread});  // not in a run's way
    EXPECT_TRUE(hasRow({false, false, "Title", "Print", "", ""})) << "what was recorded, where there is nothing else";
}

TEST_F(ExplanationOfARun, OfAnIndexThatLeadsNowhereIsARangeFailure) {
    EXPECT_EQ(FailureOf([&] { Explain(job.Built(), 99); }), FailureKind::Range);
    job.Built().Events[0].WindowChainIndex = 99;
    EXPECT_EQ(FailureOf([&] { Explain(job.Built(), 0); }), FailureKind::Range);
}

// --- the search that only looks goes the same way ---

// Everything that a search could have changed.
std::string Snapshot() {
    std::string text = std::to_string(platform::TickCount()) + " " + std::to_string(platform::ForegroundWindow()) +
                       " " + std::to_string(simulated::FocusedWindow()) + " " + std::to_string(searchState.current) +
                       " " + std::to_string(searchState.metTops.size()) + " " +
                       std::to_string(searchState.CaptionAlias.pairs.size()) + statusViewStandIn.statusLabel;
    platform::ForEachTopWindow([&](WindowHandle window) {
        const platform::WindowPlacement placement = platform::PlacementOf(window);
        text += ";" + std::to_string(window) + " " + std::to_string(placement.showCmd) + " " +
                std::to_string(placement.rcNormalPosition.left) + " " +
                std::to_string(placement.rcNormalPosition.right);
        return true;
    });
    return text;
}

class RandomDesktop {
public:
    explicit RandomDesktop(unsigned seed) : random(seed), similar(Upto(1) == 0) {}

    int Upto(int most) { return std::uniform_int_distribution<int>(0, most)(random); }

    void Build() {
        Program("a.txt - Editor");
        recorded = parts;
        for (int i = Upto(2); i > 0; --i) Program(Upto(1) == 0 ? "a.txt - Editor" : "b.txt - Editor");
        if (Upto(3) == 0) AddWindow({.className = "Other", .caption = "a.txt - Editor", .rect = SomePlace()});
    }
    void Change() {
        const WindowHandle top = recorded[0];
        const WindowHandle part = recorded[static_cast<std::size_t>(Upto(2))];
        switch (Upto(9)) {
            case 0:
                return simulated::SetCaption(part, "c.txt - Editor");
            case 1:
                return simulated::MoveWindow(top, {Upto(600), Upto(500)});
            case 2:
                return simulated::MoveWindow(recorded[2], {Upto(90), Upto(90)});
            case 3:
                return simulated::Minimise(top);
            case 4:
                return simulated::Maximise(top);
            case 5:
                simulated::Cover(top);
                return;
            case 6:
                return simulated::Destroy(part);
            case 7:
                return simulated::Activate(top);
            case 8:
                // To be put in place shows a hidden window, and then it may be the one that stands in for itself.
                return simulated::SetVisible(top, similar || Upto(1) == 0);
            default:
                Button(recorded[static_cast<std::size_t>(Upto(1))]);
        }
    }
    bool SimilarAllowed() const { return similar; }
    WindowHandle Recorded() { return recorded[static_cast<std::size_t>(Upto(2))]; }

private:
    platform::Rect SomePlace() {
        const int left = Upto(500);
        const int top = Upto(400);
        return {left, top, left + 400, top + 300};
    }
    WindowHandle Button(WindowHandle parent) {
        const int at = 10 * Upto(9);
        return AddWindow(
            {.className = "Button", .caption = "OK", .rect = {at, at, at + 60, at + 30}, .parent = parent});
    }
    void Program(const std::string& caption) {
        const WindowHandle top = AddWindow({.className = "Editor", .caption = caption, .rect = SomePlace()});
        const WindowHandle panel = AddWindow({.className = "Panel", .rect = {5, 5, 395, 290}, .parent = top});
        parts = {top, panel, Button(panel)};
    }

    std::mt19937 random;
    const bool similar;
    std::vector<WindowHandle> parts;
    std::vector<WindowHandle> recorded;
};

class SearchThatOnlyLooks : public testing::TestWithParam<unsigned> {};

TEST_P(SearchThatOnlyLooks, ChangesNothingAndComesToTheSameAsTheSearch) {
    AddWindow({.className = "Last", .caption = "Last", .rect = {1200, 900, 1270, 950}});
    for (unsigned round = 0; round < 250; ++round) {
        SCOPED_TRACE("seed " + std::to_string(GetParam()) + ", round " + std::to_string(round));
        RandomDesktop desktop(GetParam() * 1000 + round);
        desktop.Build();
        const bool byFocus = desktop.Upto(1) == 0;
        const WindowHandle target = desktop.Recorded();
        simulated::SetFocus(target);
        simulated::PlaceCursor(simulated::CentreOf(target));
        JobEvent event;
        ResetWindowArrays();
        CaptureWindow(event, byFocus);
        const std::vector<WindowSignature> windows = windowArrays.windows;
        const std::vector<WindowChain> chains = windowArrays.chains;
        for (int changes = desktop.Upto(3); changes > 0; --changes) desktop.Change();

        ResetSearch();
        SearchRequest request;
        request.chainIndex = event.WindowChainIndex;
        request.useFocus = byFocus;
        request.safetyLevel = desktop.Upto(1);
        request.similarAllowed = desktop.SimilarAllowed();
        request.point = platform::CursorPosition();
        const std::string before = Snapshot();
        const Explanation told = ExplainRequest(request, windows, chains);
        ASSERT_EQ(Snapshot(), before);
        std::string reason;
        Explainer done;
        request.listener = &done;
        const int result = FindTarget(request, windows, chains, reason);
        // What lies over a window in its place can be seen only when it is there.
        const auto& last = done.Heard().candidates;
        if (last.empty() || last.back().fate != Fate::InputElsewhere) {
            ASSERT_EQ(result, told.result) << ExplanationText(told) << ExplanationText(done.Heard());
            ASSERT_EQ(reason, told.reason);
            ASSERT_EQ(result > 0 ? searchState.current : 0, told.found) << ExplanationText(told);
        }
        // The desktop of the next round is empty.
        std::vector<WindowHandle> tops;
        platform::ForEachTopWindow([&](WindowHandle window) {
            if (LiveClass(window) != "Last") tops.push_back(window);
            return true;
        });
        for (const WindowHandle window : tops) simulated::Destroy(window);
    }
}

INSTANTIATE_TEST_SUITE_P(Desktops, SearchThatOnlyLooks, testing::Values(1U, 2U));

}  // namespace
