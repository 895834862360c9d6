#include "editor/edit_story.h"
#include "editor/insert_recording.h"

using namespace edit_story;

namespace {

const JobBuilder::Level NotepadEdit{"Edit", "", 15};
const JobBuilder::Level Notepad{"Notepad", "Untitled"};

JobBuilder InNotepad() {
    JobBuilder job;
    job.InWindow(NotepadEdit, Notepad);
    return job;
}

std::vector<std::string> Rows() {
    return LinesOf(editState);
}

std::int32_t Words(std::int32_t keyRow) {
    return static_cast<std::int32_t>(editState.KeyRows[static_cast<std::size_t>(keyRow)].Text.size());
}

// The file says what the grid shows, and undoing everything gives what a save right after the opening would have given.
void ExpectFaithful() {
    SaveJob(true);
    EXPECT_EQ(GridLinesOfFile(), GridLines());
    while (CanUndo()) Undo();
    SaveJob(true);
    EXPECT_TRUE(SameEvents(InFile().Events, asOpened.Events));
    EXPECT_EQ(InFile().Strings, asOpened.Strings);
    EXPECT_EQ(InFile().Windows.size(), asOpened.Windows.size());
    EXPECT_EQ(InFile().Chains.size(), asOpened.Chains.size());
    while (CanRedo()) Redo();
    SaveJob(true);
    EXPECT_EQ(GridLinesOfFile(), GridLines());
}

TEST(Delete, RowsBehindTheGapKeepTheirDelays) {
    const Job job =
        InNotepad().Click(Left, 1, 1).Wait(490).Type("ab").Wait(990).Click(Right, 2, 2).Wait(90).Wheel(120).Built();
    Open(job);
    ASSERT_THAT(Rows(), SizeIs(4));
    const std::vector<std::int64_t> delays = {DelayOf(0), DelayOf(2), DelayOf(3)};
    Delete(1);
    EXPECT_EQ((std::vector<std::int64_t>{DelayOf(0), DelayOf(1), DelayOf(2)}), delays);
    EXPECT_EQ(editSelection.Row, 1) << "the row that has come into its place";
    Delete(0);
    EXPECT_EQ(Event_StartTime(0), delays[1]) << "the first row counts from the start of the job";
    Delete(1);
    EXPECT_EQ(editSelection.Row, 0) << "the last row was deleted";
    ExpectFaithful();
}

TEST(Delete, NothingGoesAlongThatOnlyLooksMarked) {
    // Word 2 is -1 on a monitor above the main one; dwExtraInfo is -1 with some tablets.
    JobEvent tablet = JobBuilder().Press(Left, 5, 5).Built().Events[0];
    tablet.word[6] = -1;
    JobBuilder builder = InNotepad();
    const Job job = builder.Click(Left, 7, -1).Type("a").Move(3, -1).Press(Right, 3, -1).Raw(tablet).Built();
    Open(job);
    const std::size_t rows = Rows().size();
    EXPECT_EQ(editState.EditEvents.size(), job.Events.size());
    Delete(1);
    EXPECT_EQ(Rows().size(), rows - 1);
    EXPECT_EQ(editState.EditEvents.size(), job.Events.size() - 2);
    ExpectFaithful();
}

TEST(Delete, RowInsideTheRangeOfAnotherStays) {
    // The button comes up while the keys are typed: a row of its own inside the range of theirs.
    const Job job = InNotepad().Press(Left, 1, 1).KeyDown('A').Release(Left, 9, 9).KeyUp('A').Key('B').Built();
    Open(job);
    ASSERT_THAT(Rows(), ElementsAre(StartsWith("left down"), StartsWith("keys"), StartsWith("left up")));
    Delete(1);
    EXPECT_THAT(Rows(), ElementsAre(StartsWith("left down"), StartsWith("left up")));
    Undo();
    Delete(2);
    EXPECT_THAT(Rows(), ElementsAre(StartsWith("left down"), StartsWith("keys")));
    ExpectFaithful();
}

// Two rows of keys in one window are one row when the click between them is gone: so the file will be read.
TEST(Delete, RowsThatMeetAreShownAsTheFileWillHaveThem) {
    const Job job = InNotepad().Type("ab").Click(Left, 1, 1).Move(5, 5).Type("cd").Built();
    Open(job);
    ASSERT_THAT(Rows(), SizeIs(4));
    Delete(1);
    EXPECT_THAT(Rows(), ElementsAre("keys 0-7 abcd")) << "the move inside of the row is dropped";
    ExpectFaithful();
}

TEST(Delete, EditedTextsStayEdited) {
    const Job job = InNotepad().Type("ab").Click(Left, 1, 1).Type("cd").Click(Left, 2, 2).Type("ef").Built();
    Open(job);
    SetKeyText(1, "xy");
    Delete(1);  // the click before it
    EXPECT_EQ(Rows()[1].substr(Rows()[1].size() - 2), "xy");
    Delete(2);  // the click behind it
    ASSERT_THAT(Rows(), ElementsAre(EndsWith("ab"), EndsWith("xy"), EndsWith("ef")));
    SaveJob(true);
    EXPECT_EQ(GridLinesOfFile(), GridLines());
    ExpectFaithful();
}

// A text of an earlier edit, and the up of a key that was still held, which has come to stand behind it.
TEST(Delete, StoredTextKeepsWhatJoinedItApart) {
    Open(InNotepad().TextRow("x").KeyUp(13).Click(Left, 1, 1).Built());
    Delete(1);
    Undo();
    EXPECT_EQ(editState.KeyRows[0].Text, "x{ENTER UP}") << "once, and no more";
    SaveJob(true);
    EXPECT_EQ(InFile().Events[1].dwType(), TextContinuation) << "it is in the text, and not sent a second time";
    ExpectFaithful();
}

TEST(Delete, TooLongATimeChangesNothing) {
    constexpr std::int32_t latest = 2'147'483'647;
    Open(InNotepad().At(5).Type("ab").At(-10).Click(Left, 1, 1).At(latest).Click(Right, 1, 1).Built());
    SetKeyText(0, "xy");
    const Job before = JobToSave({});
    const std::vector<std::string> texts = editState.Strings;
    EXPECT_THROW(Delete(1), RuntimeFailure);
    EXPECT_TRUE(SameEvents(JobToSave({}).Events, before.Events));
    EXPECT_EQ(editState.Strings, texts);
}

TEST(Delete, OfAllRowsAndOfNone) {
    const Job job = InNotepad().Type("ab").Click(Left, 1, 1).Built();
    Open(job);
    Select(0, 1);
    delete_event();
    EXPECT_THAT(Rows(), SizeIs(2)) << "the answer was No";
    EXPECT_THAT(LastBox(), EndsWith("??"));
    Delete(1, 0);
    EXPECT_THAT(Rows(), IsEmpty());
    EXPECT_FALSE(eventPane.pickersEnabled);
    delete_event();
    EXPECT_THAT(Boxes(), SizeIs(2)) << "nothing to ask about";
    ExpectFaithful();
}

TEST(Delay, MovesTheRowAndAllBehindIt) {
    const Job job = InNotepad().Click(Left, 1, 1).Wheel(120).Type("a").Wheel(-120).Click(Right, 1, 1).Built();
    Open(job);
    const std::vector<std::int32_t> before = Times();
    Select(0);
    SetDelay("510");
    for (std::size_t i = 0; i < before.size(); ++i) EXPECT_EQ(Times()[i] - before[i], 510 - before[0]);
    EXPECT_EQ(editState.PristineEvents[2].mouseData(), 120) << "a wheel notch has its time elsewhere in the two arrays";
    Select(1, 4);
    SetDelay("70");
    for (std::int32_t row = 1; row <= 4; ++row) EXPECT_EQ(DelayOf(row), 70);
    Select(2);
    SetDelay("-30");
    EXPECT_EQ(DelayOf(2), -30) << "nothing stops a negative delay";
    EXPECT_EQ(DelayOf(3), 70);
    ExpectFaithful();
}

TEST(Delay, TooLargeChangesNothing) {
    const Job job = InNotepad().At(2'000'000'000).Click(Left, 1, 1).Wait(100).Type("a").Wheel(120).Built();
    Open(job);
    const std::vector<std::int32_t> before = Times();
    Select(1);
    EXPECT_THROW(SetDelay("2000000000"), RuntimeFailure);
    EXPECT_EQ(Times(), before);
    EXPECT_FALSE(CanUndo());
    EXPECT_THROW(SetDuration("2000000000"), RuntimeFailure);
    EXPECT_EQ(Times(), before);
}

TEST(Duration, KeepsTheProportionsOfTheRow) {
    JobBuilder builder;
    const Job job = builder.At(100).Move(1, 1).At(103).Move(2, 2).At(110).Move(3, 3).At(150).Click(Left, 3, 3).Built();
    Open(job);
    Select(0);
    EXPECT_EQ(eventPane.duration_mk, "10");
    SetDuration("25");
    EXPECT_EQ(Times()[1], 108) << "100 + 7.5, to the even neighbour";
    EXPECT_EQ(Times()[2], 125);
    EXPECT_EQ(Times()[3], job.Events[3].time() + 15);
    Select(1);
    SetDuration("0");
    EXPECT_EQ(DurationOf(1), 0);
    SetDuration("40");
    EXPECT_EQ(DurationOf(1), 40);
    ExpectFaithful();
}

TEST(Duration, EventsOfOneMomentAreSpreadEvenly) {
    JobBuilder builder = InNotepad();
    const Job job = builder.At(50)
                        .KeyDown('A')
                        .At(50)
                        .KeyUp('A')
                        .At(50)
                        .KeyDown('B')
                        .At(50)
                        .KeyUp('B')
                        .At(90)
                        .Click(Left, 1, 1)
                        .Built();
    Open(job);
    Select(0);
    SetDuration("30");
    EXPECT_THAT(Times(), ElementsAre(50, 60, 70, 80, 120, 130));
    ExpectFaithful();
}

TEST(Duration, OfManyRowsIsThatOfEachInTurn) {
    const Job job = InNotepad()
                        .Click(Left, 1, 1)
                        .Press(Left, 2, 2)
                        .KeyDown('A')
                        .Release(Left, 2, 2)
                        .KeyUp('A')
                        .Key('B')
                        .Wait(30)
                        .Type("cd")
                        .Built();
    Open(job);
    const std::int32_t last = static_cast<std::int32_t>(Rows().size()) - 1;
    for (std::int32_t row = 0; row <= last; ++row) SetNewDuration(row, row, 77);
    const std::vector<std::int32_t> oneByOne = Times();
    while (CanUndo()) Undo();
    Select(0, last);
    SetDuration("77");
    EXPECT_EQ(Times(), oneByOne);
    ExpectFaithful();
}

TEST(Pane, ShowsWhatTheSelectionHasInCommon) {
    Open(InNotepad().Click(Left, 1, 1).Click(Left, 2, 2).Click(Left, 3, 3).Wait(5).Type("a").Built());
    ASSERT_THAT(Rows(), SizeIs(4));
    Select(1, 2);
    EXPECT_EQ(eventPane.delay_mk, "10");
    EXPECT_TRUE(eventPane.delay_set);
    Select(3, 1);
    EXPECT_EQ(eventPane.delay_mk, "");
    EXPECT_FALSE(eventPane.delay_set);
    EXPECT_FALSE(eventPane.targetApplies);
    DelayTyped("7");
    EXPECT_TRUE(eventPane.delay_set) << "typing makes the button usable, and changes nothing yet";
    EXPECT_FALSE(SaveIsEnabled());
    Select(0);
    EXPECT_EQ(eventPane.wait_for_window_text, "Untitled -> (Text field)");
    WaitForWindowChanged(33);
    IfNoWindowChanged(SkipAction);
    EXPECT_EQ(editState.PristineEvents[0].WaitForWindow, 33);
    EXPECT_EQ(editState.PristineEvents[1].WaitForWindow, 0) << "the time to wait is the first event's";
    EXPECT_EQ(editState.EditEvents[1].IfNoWindow, SkipAction) << "the choice is that of all";
    Undo();
    Undo();
    EXPECT_EQ(eventPane.wait_for_window_ms, 10);
    EXPECT_FALSE(SaveIsEnabled());
}

TEST(Save, WithoutAChangeKeepsEveryByteOfTheEvents) {
    const Job job = InNotepad().Type("ab").Wheel(120).Click(Left, 1, 1).TextRow("x{ENTER}").Continuation().Built();
    Open(job);
    SaveJob(false);
    const Job saved = InFile();
    EXPECT_TRUE(SameEvents(saved.Events, editState.PristineEvents));
    for (std::size_t i = 0; i < 7; ++i) EXPECT_EQ(saved.Events[i].word, job.Events[i].word) << i;
    EXPECT_THAT(saved.Strings, Contains("x{ENTER}"));
    const auto once = simulated::FileBytes(path);
    SaveJob(false);
    EXPECT_EQ(simulated::FileBytes(path), once);
}

// A key that repeats itself for some minutes; and as much text as a file can hold.
TEST(Save, RowsOfManyKeys) {
    JobBuilder builder = InNotepad();
    for (int i = 0; i < 6'000; ++i) builder.KeyDown(13);
    Open(builder.Click(Left, 1, 1).TextRow(std::string(65'535, 'x')).Built());
    ASSERT_GT(editState.KeyRows[0].Text.size(), 65'535U);
    Select(2);
    Delete(1);
    SaveJob(false);
    EXPECT_EQ(GridLinesOfFile(), GridLines()) << "the keys are stored as they were pressed";
    SetKeyText(0, editState.KeyRows[0].Text + "a");
    EXPECT_FALSE(save_button());
    EXPECT_THAT(LastBox(), HasSubstr("too long"));
    EXPECT_EQ(GridLinesOfFile().size(), 2U) << "the file is as it was";
    Undo();
    EXPECT_TRUE(save_button());
}

TEST(Save, FileThatWasChangedFromOutsideIsAskedAbout) {
    Open(InNotepad().Type("ab").Built());
    SetKeyText(0, "cd");
    Job other = InFile();
    other.SpeedPercent = 250;
    WriteJob(path, other);
    EXPECT_FALSE(save_button());
    EXPECT_TRUE(SaveIsEnabled());
    simulated::AnswerNextBox({.yes = true});
    EXPECT_TRUE(save_button());
    EXPECT_EQ(InFile().SpeedPercent, 250) << "the options are those in the file";
    EXPECT_EQ(InFile().Strings[0], "cd");
    EXPECT_FALSE(SaveIsEnabled());
    simulated::LosePath(path);
    SetKeyText(0, "ef");
    EXPECT_TRUE(save_button()) << "a file that has gone is written anew";
    simulated::MakeReadOnly("C:\\jobs");
    SetKeyText(0, "gh");
    EXPECT_FALSE(save_button());
    EXPECT_EQ(editState.KeyRows[0].Text, "gh") << LastBox();
    EXPECT_TRUE(SaveIsEnabled());
}

TEST(SaveAs, AsksUntilTheNameIsGood) {
    Open(InNotepad().Type("ab").Built());
    WriteJob("C:\\jobs\\Taken.tsj", JobBuilder().Built());
    editViewStandIn.names = {"a?b", "nul", "Taken", "Taken", "Free"};
    simulated::AnswerNextBox({});
    simulated::AnswerNextBox({});
    simulated::AnswerNextBox({.yes = false});
    simulated::AnswerNextBox({.yes = true});
    save_as_button();
    EXPECT_THAT(editViewStandIn.namesOffered, ElementsAre("My job", "a?b", "nul", "Taken"));
    EXPECT_EQ(editState.title, "Job Editor - Taken.tsj");
    EXPECT_EQ(InFile("C:\\jobs\\Taken.tsj").Events.size(), 4U);
    SetKeyText(0, "new");
    EXPECT_TRUE(save_button());
    EXPECT_EQ(InFile().Strings.size(), 0U) << "the first file is as it was";
}

TEST(Close, AsksAboutChanges) {
    Open(InNotepad().Type("ab").Built());
    EXPECT_TRUE(MayCloseEditor());
    EXPECT_THAT(Boxes(), IsEmpty());
    SetKeyText(0, "cd");
    simulated::AnswerNextBox({.yes = false, .cancel = true});
    EXPECT_FALSE(MayCloseEditor());
    simulated::AnswerNextBox({.yes = false});
    EXPECT_TRUE(MayCloseEditor());
    EXPECT_EQ(InFile().Strings.size(), 0U);
    simulated::AnswerNextBox({.yes = true});
    EXPECT_TRUE(MayCloseEditor());
    EXPECT_EQ(InFile().Strings[0], "cd");
    EXPECT_THAT(LastBox(), HasSubstr("My job"));
    const std::string other = "C:\\jobs\\Other.tsj";
    WriteJob(other, JobBuilder().Built());
    EXPECT_EQ(editJob(other), editViewStandIn.window) << "one job at a time";
    EXPECT_THAT(LastBox(), HasSubstr("close it first"));
    EditorHasClosed();
    EXPECT_EQ(editJob(other), editViewStandIn.window);
    EXPECT_EQ(editState.jobName, other);
}

TEST(Undo, WhatIsTypedIntoOneRowIsOneStep) {
    Open(InNotepad().Type("ab").Click(Left, 1, 1).Type("cd").Built());
    SetKeyText(0, "a");
    SetKeyText(0, "");
    SetKeyText(0, "x");
    SetKeyText(1, "y");
    Undo();
    EXPECT_EQ(editState.KeyRows[1].Text, "cd");
    Undo();
    EXPECT_EQ(editState.KeyRows[0].Text, "ab");
    EXPECT_FALSE(CanUndo());
    Redo();
    EXPECT_EQ(editState.KeyRows[0].Text, "x");
    SaveWasDone();
    SetKeyText(0, "z");
    Undo();
    EXPECT_EQ(editState.KeyRows[0].Text, "x") << "a save ends the step";
    EXPECT_FALSE(SaveIsEnabled());
    Undo();
    EXPECT_TRUE(SaveIsEnabled());
    EXPECT_EQ(Words(0), 2);
}

TEST(Open, JobsWithIndexesThatLeadNowhere) {
    JobEvent lost;
    lost.dwType() = INPUT_TEXT;
    lost.StringIndex() = 99;
    lost.WindowChainIndex = 12345;
    JobEvent stray;
    stray.dwType() = TextContinuation;
    JobEvent key;
    key.dwType() = platform::InputKeyboard;
    key.KeyCode() = 60000;
    key.WindowChainIndex = 77;
    WindowChain chain;
    chain.Depth = 300;
    JobBuilder builder;
    builder.Raw(stray)
        .Raw(key)
        .Raw(lost)
        .UseChain(builder.AddChain(chain))
        .Type("a")
        .Click(Left, 1, 1)
        .At(-5)
        .Move(1, 1);
    Open(builder.Built());
    EXPECT_THAT(Rows(), ElementsAre("keys 1-1 ", "keys 2-2 ", "keys 3-4 a", "left down 5-6", "moves 7-7 to 1,1"));
    GridLines();
    for (std::int32_t row = 0; row < 5; ++row) Select(row);
    Delete(1, 3);
    ExpectFaithful();
}

}  // namespace
