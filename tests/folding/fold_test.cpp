#include "folding/fold.h"

#include "folding/puni_listu.h"
#include "folding/row_lines.h"
#include "jobs/job_file.h"
#include "support/job_builder.h"
#include "support/story.h"

namespace {

constexpr int Enter = 13;
constexpr int F5 = 116;
constexpr int LeftShift = 160;
constexpr int LeftCtrl = 162;
constexpr int LeftAlt = 164;
constexpr int RightAlt = 165;

const JobBuilder::Level notepad{"Notepad", "Untitled"};
const JobBuilder::Level edit{"Edit", "", 15};

JobBuilder InNotepad() {
    JobBuilder job;
    job.InWindow(edit, notepad);
    return job;
}

using Lines = std::vector<std::string>;

struct Sequence {
    const char* name;
    JobBuilder job;
    Lines rows;
};

void ExpectRows(std::vector<Sequence> sequences) {
    for (Sequence& sequence : sequences) EXPECT_EQ(FoldedLines(sequence.job.Built()), sequence.rows) << sequence.name;
}

TEST(Fold, MouseEventsBecomeRows) {
    ExpectRows({
        {"nothing", InNotepad(), {}},
        {"a run of moves, and a click where it ended",
         InNotepad().Move(1, 1).Move(2, 2).Move(3, 3).Move(4, 4).Move(5, 5).Click(Left, 5, 5),
         {"moves 0-4 to 5,5", "left down 5-6"}},
        {"a drag",
         InNotepad().Press(Left, 1, 1).Move(2, 2).Move(3, 3).Release(Left, 3, 3),
         {"left down 0-0", "moves 1-2 to 3,3", "left up 3-3"}},
        {"a press and a release in two places",
         InNotepad().Press(Left, 1, 1).Release(Left, 1, 2),
         {"left down 0-0", "left up 1-1"}},
        {"clicks of each button, and a double click",
         InNotepad().Click(Right, 1, 1).Click(Middle, 1, 1).Click(XButton2, 1, 1).DoubleClick(1, 1),
         {"right down 0-1", "middle down 2-3", "x down 4-5", "double click 6-6"}},
        {"buttons that don't belong together",
         InNotepad().Press(Left, 1, 1).Release(Right, 1, 1).Press(XButton1, 1, 1).Release(XButton2, 1, 1),
         {"left down 0-0", "right up 1-1", "x down 2-2", "x up 3-3"}},
        {"a release first, and a press last",
         InNotepad().Release(Left, 1, 1).Press(Left, 1, 1),
         {"left up 0-0", "left down 1-1"}},
        {"moves at the end", InNotepad().Click(Left, 1, 1).Move(2, 2), {"left down 0-1", "moves 2-2 to 2,2"}},
    });
}

TEST(Fold, KeysOfOneWindowShareRow) {
    ExpectRows({
        {"characters show on their down, named keys on both",
         InNotepad().Type("ab").Key(Enter),
         {"keys 0-5 ab{ENTER DOWN}{ENTER UP}"}},
        {"two windows in turn",
         InNotepad().Type("a").InWindow({"Calc", "Calculator"}).Type("12").InWindow(edit, notepad).Type("b"),
         {"keys 0-1 a", "keys 2-5 12", "keys 6-7 b"}},
        {"a click in between",
         InNotepad().Type("a").Click(Left, 1, 1).Type("b"),
         {"keys 0-1 a", "left down 2-3", "keys 4-5 b"}},
        {"a left or right release ends nothing",
         InNotepad().Type("a").Release(Left, 1, 1).Type("b").Release(Right, 1, 1).Type("c"),
         {"keys 0-7 abc", "left up 2-2", "right up 5-5"}},
        {"a middle or X release does",
         InNotepad().Type("a").Release(Middle, 1, 1).Type("b").Release(XButton1, 1, 1).Type("c"),
         {"keys 0-1 a", "middle up 2-2", "keys 3-4 b", "x up 5-5", "keys 6-7 c"}},
        {"moves in between",
         InNotepad().Type("a").Move(1, 1).Move(2, 2).Type("b"),
         {"keys 0-5 ab", "moves 2-3 to 2,2"}},
        {"an up after a click still goes to the row of its down",
         InNotepad().KeyDown(LeftCtrl).Click(Left, 1, 1).KeyUp(LeftCtrl),
         {"keys 0-3 {L_CTRL DOWN}{L_CTRL UP}", "left down 1-2"}},
        {"extended keys, and an up as first key",
         InNotepad().KeyUp(Enter).ExtendedKeyDown(Enter).ExtendedKeyUp(Enter),
         {"keys 1-2 {ENTER DOWN}{ENTER UP}"}},
        {"a down without a window", JobBuilder().Type("a"), {}},
    });
}

TEST(Fold, SameWindowIsToldByWhatAPersonSees) {
    const JobBuilder::Level moved{"Edit", "", 15, {44, 0, 1, {}, {}, {1, 2, 3, 4}}};
    ExpectRows({
        {"moved", InNotepad().Type("a").InWindow(moved, notepad).Type("b"), {"keys 0-3 ab"}},
        {"another caption above it",
         InNotepad().Type("a").InWindow(edit, {"Notepad", "Other"}).Type("b"),
         {"keys 0-1 a", "keys 2-3 b"}},
        {"another class",
         InNotepad().Type("a").InWindow({"RichEdit", "", 15}, notepad).Type("b"),
         {"keys 0-1 a", "keys 2-3 b"}},
        {"another control",
         InNotepad().Type("a").InWindow({"Edit", "", 16}, notepad).Type("b"),
         {"keys 0-1 a", "keys 2-3 b"}},
        {"one level more",
         InNotepad().Type("a").InWindowPath({edit, notepad, notepad}).Type("b"),
         {"keys 0-1 a", "keys 2-3 b"}},
    });
}

TEST(Fold, LevelsBeyondSixtyFourAreNotCompared) {
    const auto differingAt = [](std::size_t level) {
        std::vector<JobBuilder::Level> path(100, {"Pane", ""});
        JobBuilder job;
        job.InWindowPath(path).Type("a");
        path[level].Caption = "other";
        job.InWindowPath(path).Type("b");
        return FoldedLines(job.Built()).size();
    };
    EXPECT_EQ(differingAt(63), 2U);
    EXPECT_EQ(differingAt(64), 1U);
}

TEST(Fold, WheelNotchesShareRowAndKeepFromKeys) {
    ExpectRows({
        {"notches of one window",
         InNotepad().Wheel(120).Wheel(-120).Wheel(-120),
         {"keys 0-2 {WHEEL UP}{WHEEL DOWN}{WHEEL DOWN}"}},
        {"of two windows",
         InNotepad().Wheel(120).InWindow(notepad).Wheel(120),
         {"keys 0-0 {WHEEL UP}", "keys 1-1 {WHEEL UP}"}},
        {"keys and notches in turn",
         InNotepad().Type("a").Wheel(120).Type("b"),
         {"keys 0-1 a", "keys 2-2 {WHEEL UP}", "keys 3-4 b"}},
        {"moves in between hide the difference",
         InNotepad().Type("a").Move(1, 1).Wheel(120).Move(2, 2).KeyDown(Enter),
         {"keys 0-3 a{WHEEL UP}", "moves 2-4 to 2,2", "keys 5-5 {ENTER DOWN}"}},
        {"other turns are mouse events, and end a row",
         InNotepad().Wheel(120).Wheel(60).Wheel(-240).Wheel(120),
         {"keys 0-0 {WHEEL UP}", "wheel 1-1", "wheel 2-2", "keys 3-3 {WHEEL UP}"}},
        {"an up of a key held before",
         InNotepad().KeyDown(LeftCtrl).Wheel(-120).KeyUp(LeftCtrl).Wheel(-120),
         {"keys 0-0 {L_CTRL DOWN}", "keys 1-2 {WHEEL DOWN}{L_CTRL UP}", "keys 3-3 {WHEEL DOWN}"}},
    });
}

TEST(Fold, AutoRepeatOfHeldModifierIsLeftOut) {
    ExpectRows({
        {"modifiers",
         InNotepad().KeyDown(LeftShift).KeyDown(LeftShift).Type("a").KeyDown(LeftShift).KeyUp(LeftShift),
         {"keys 0-5 {L_SHIFT DOWN}a{L_SHIFT UP}"}},
        {"pressed anew",
         InNotepad().Key(LeftCtrl).KeyDown(LeftCtrl).KeyDown(LeftCtrl),
         {"keys 0-3 {L_CTRL DOWN}{L_CTRL UP}{L_CTRL DOWN}"}},
        {"a new row knows nothing of the row before",
         InNotepad().KeyDown(LeftCtrl).Click(Left, 1, 1).KeyDown(LeftCtrl),
         {"keys 0-0 {L_CTRL DOWN}", "left down 1-2", "keys 3-3 {L_CTRL DOWN}"}},
        // Both ALT keys share a name, and the name means the left one.
        {"right ALT",
         InNotepad().KeyDown(RightAlt).KeyDown(RightAlt).KeyDown(LeftAlt),
         {"keys 0-2 {ALT DOWN}{ALT DOWN}"}},
        {"any other key", InNotepad().KeyDown(F5).KeyDown(F5).KeyUp(F5), {"keys 0-2 {F5 DOWN}{F5 DOWN}{F5 UP}"}},
        {"nor does a stored text",
         InNotepad().KeyDown(LeftCtrl).KeyDown(LeftCtrl).TextRow("x").KeyDown(LeftCtrl),
         {"keys 0-1 {L_CTRL DOWN}", "keys 2-2 x", "keys 3-3 {L_CTRL DOWN}"}},
    });
}

TEST(Fold, StoredTextIsRowWithItsContinuations) {
    JobBuilder job = InNotepad();
    job.Type("a").Move(1, 1).TextRow("hello").Continuation().Move(2, 2).Continuation().Click(Left, 2, 2);
    EXPECT_THAT(FoldedLines(job.Built()),
                ElementsAre("keys 0-1 a", "moves 2-2 to 1,1", "keys 3-6 hello", "moves 5-6 to 2,2", "left down 7-8"));

    const FoldedJob folded = Folded(job.Built());
    const auto& row = folded.KeyRows.at(1);
    EXPECT_EQ(row.LeafWindow, folded.job.Chains[0].LeafWindow);
    EXPECT_EQ(row.Depth, 1);
    // The first text of the file now belongs to the second row.
    for (const std::size_t event : {3U, 4U, 6U}) EXPECT_EQ(folded.job.Events[event].StringIndex(), 2) << event;
}

// Else the row of a dialog, once edited, would take in what was typed before and behind it into one window.
TEST(Fold, StoredTextTakesInUpsAlone) {
    ExpectRows({
        {"keys of the window before",
         InNotepad().Type("a").InWindow(notepad).TextRow("x").InWindow(edit, notepad).Type("b"),
         {"keys 0-1 a", "keys 2-2 x", "keys 3-4 b"}},
        {"keys and notches of its own window",
         InNotepad().TextRow("x").Wheel(120).TextRow("y").KeyDown(Enter),
         {"keys 0-0 x", "keys 1-1 {WHEEL UP}", "keys 2-2 y", "keys 3-3 {ENTER DOWN}"}},
        {"a key that is still held", InNotepad().TextRow("x").KeyUp(Enter), {"keys 0-1 x{ENTER UP}"}},
        {"the row behind it",
         InNotepad().TextRow("x").InNoWindow().Wheel(120).InWindow(edit, notepad).Wheel(120),
         {"keys 0-0 x", "keys 1-2 {WHEEL UP}{WHEEL UP}"}},
    });
}

TEST(Fold, NumbersCountAllRowsButRunsOfMoves) {
    const FoldedJob folded =
        Folded(InNotepad().Move(1, 1).Click(Left, 1, 1).Move(2, 2).Type("a").Click(Left, 2, 2).Built());
    EXPECT_THAT(folded.RowNumber, ElementsAre(0, 1, 1, 2, 3));
    EXPECT_THAT(folded.RowKind, ElementsAre(1, 1, 1, 2, 1));
    EXPECT_THAT(folded.RowIndex, ElementsAre(0, 1, 2, 0, 3));
}

TEST(Fold, UnknownTypeShowsBoxAndIsPassedOver) {
    JobBuilder job = InNotepad();
    for (const std::int32_t type : {3, -1}) {
        JobEvent event;
        event.dwType() = type;
        job.Type("a").Raw(event);
    }
    EXPECT_THAT(FoldedLines(job.Built()), ElementsAre("keys 0-4 aa"));
    EXPECT_THAT(Boxes(), ElementsAre(EndsWith("|Unknown dwType:3"), EndsWith("|Unknown dwType:-1")));
}

TEST(Fold, IndexThatLeadsNowhereStopsARunAndNotTheEditor) {
    WindowChain badWindow;
    badWindow.Path[0] = 7;
    WindowChain badDepth;
    badDepth.Depth = 256;
    JobEvent firstText;  // StringIndex 0
    firstText.dwType() = INPUT_TEXT;
    JobEvent lowestText = firstText;
    lowestText.StringIndex() = INT32_MIN;
    JobBuilder windows = InNotepad();
    const std::int32_t badChain = windows.AddChain(badWindow);

    std::pair<const char*, JobBuilder> damages[] = {
        {"chain past the end", InNotepad().UseChain(1).Type("a")},
        {"window past the end", windows.UseChain(badChain).Type("aa")},
        {"text 0", InNotepad().Raw(firstText)},
        {"lowest text", InNotepad().Raw(lowestText)},
        {"continuation of nothing", InNotepad().Continuation()},
        {"key code past the wheel", InNotepad().KeyDown(301)},
        {"negative key code", InNotepad().KeyDown(-5)},
    };
    for (auto& damage : damages) {
        EXPECT_EQ(FailureOf([&] { FoldForReplay(damage.second.Built()); }), FailureKind::Range) << damage.first;
        EXPECT_EQ(FailureOf([&] { FoldedLines(damage.second.Built()); }), std::nullopt) << damage.first;
    }

    Job job = InNotepad().Built();
    job.Chains.push_back(badDepth);
    EXPECT_THROW(OutermostWindow({job.Events, job.Strings, job.Windows, job.Chains}, 1), RuntimeFailure);
    EXPECT_EQ(FindOutermostWindow({job.Events, job.Strings, job.Windows, job.Chains}, 1), nullptr);
}

JobBuilder Session() {
    JobBuilder job;
    job.InWindow({"Edit", "", 15}, {"Notepad", "Untitled"})
        .Move(1, 1)
        .Click(Left, 1, 1)
        .Type("a")
        .Move(2, 2)
        .KeyDown(13)
        .KeyUp(13)
        .Wheel(120)
        .InWindow({"SysListView32", "FolderView", 1}, {"Progman", "Program Manager"})
        .DoubleClick(5, 5)
        .InNoWindow()
        .Click(Right, 6, 6)
        .InWindow({"#32768", ""})
        .Wheel(40);
    return job;
}

TEST(FoldForReplay, RowsHaveTextInFullFormAndNameOfTopWindow) {
    EXPECT_THAT(
        LinesOf(FoldForReplay(Session().Built())),
        ElementsAre("moves 0-0", "left down 1-2 @ Untitled", "keys 3-7 a{ENTER DOWN}{ENTER UP} @ Untitled", "moves 5-5",
                    "keys 8-8 {WHEEL UP} @ Untitled", "double click 9-9 @ Desktop", "right down 10-11", "wheel 12-12"));
}

TEST(FoldForReplay, ReadsTheFile) {
    const std::string path = "C:\\jobs\\session.tsj";
    simulated::PutFolder("C:\\jobs");
    WriteJob(path, Session().Built());
    EXPECT_EQ(LinesOf(FoldForReplay(path)), LinesOf(FoldForReplay(Session().Built())));
    EXPECT_THROW(FoldForReplay("C:\\jobs\\missing.tsj"), RuntimeFailure);
}

}  // namespace
