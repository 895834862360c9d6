#include "editor/edit_story.h"

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

TEST(Delete, SelectsTheRowThatHasComeIntoThePlace) {
    Open(InNotepad().Click(Left, 1, 1).Type("ab").Click(Right, 2, 2).Built());
    Delete(1);
    EXPECT_EQ(editSelection.Row, 1);
    Delete(1);
    EXPECT_EQ(editSelection.Row, 0) << "the last row was deleted";
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

TEST(Pane, TypingMakesTheButtonUsableAndChangesNothingYet) {
    Open(InNotepad().Click(Left, 1, 1).Click(Left, 2, 2).Wait(5).Type("a").Built());
    EXPECT_EQ(eventPane.wait_for_window_text, "Untitled -> (Text field)");
    Select(0, 2);
    EXPECT_FALSE(eventPane.delay_set) << "they have no delay in common";
    DelayTyped("7");
    EXPECT_TRUE(eventPane.delay_set);
    EXPECT_FALSE(SaveIsEnabled());
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
