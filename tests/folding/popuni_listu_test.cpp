#include "folding/popuni_listu.h"

#include "folding/puni_listu.h"
#include "folding/random_job.h"
#include "folding/row_lines.h"
#include "jobs/job_file.h"
#include "support/job_builder.h"
#include "support/open_in_editor.h"
#include "support/story.h"

namespace {

const std::string path = "C:\\jobs\\My job.tsj";

void Save(const Job& job) {
    simulated::PutFolder("C:\\jobs");
    WriteJob(path, job);
}

Job PristineJob(const Job& original) {
    Job job = original;
    job.Events = editState.PristineEvents;
    return job;
}

JobBuilder InNotepad() {
    JobBuilder job;
    job.InWindow({"Edit", "", 15}, {"Notepad", "Untitled"});
    return job;
}

std::vector<std::int32_t> Types(const std::vector<JobEvent>& events) {
    std::vector<std::int32_t> types(events.size());
    std::ranges::transform(events, types.begin(), [](const JobEvent& event) { return event.dwType(); });
    return types;
}

std::vector<std::string> WithoutWindows(std::vector<ActionRow> rows) {
    for (ActionRow& row : rows) row.windowName.clear();
    return LinesOf(rows);
}

// In the form in which an action list tells the same.
std::vector<std::string> EditorLines() {
    std::vector<std::string> lines = LinesOf(editState);
    for (std::string& line : lines) {
        if (line.starts_with("moves")) line.resize(line.find(" to "));
    }
    return lines;
}

TEST(PopuniListu, AnotherJobReplacesAllOfTheOneBefore) {
    Save(InNotepad().Type("a").Click(Left, 1, 1).Built());
    PopuniListu(path, false);
    Save(JobBuilder().Built());
    PopuniListu(path, false);
    EXPECT_THAT(LinesOf(editState), IsEmpty());
    EXPECT_THAT(editState.PristineEvents, IsEmpty());
    EXPECT_THAT(editState.FoldedRowText, IsEmpty());
}

TEST(PopuniListu, FailureLeavesTheJobBefore) {
    OpenInEditor(InNotepad().Type("a").Built());
    EXPECT_THROW(PopuniListu("C:\\jobs\\missing.tsj", false), RuntimeFailure);
    EXPECT_EQ(editState.jobName, path);
    EXPECT_THAT(LinesOf(editState), ElementsAre("keys 0-1 a"));
}

// The second program instance asks for another job while the box for an event of an unknown type is open.
TEST(PopuniListu, JobOpenedInsideABoxOfTheFoldLeavesNoMixture) {
    JobEvent unknown;
    unknown.dwType() = 77;
    Save(JobBuilder().Click(Left, 1, 1).Wheel(-120).Built());
    const std::string other = "C:\\jobs\\Other.tsj";
    JobBuilder job = InNotepad();
    WriteJob(other, job.Type("a").Raw(unknown).Type("b").Built());
    bool opened = false;
    simulated::AnswerNextBox({.whileOpen = [&] {
        PopuniListu(path, false);
        opened = true;
    }});
    PopuniListu(other, false);
    EXPECT_TRUE(opened);
    EXPECT_EQ(editState.jobName, other);
    EXPECT_EQ(editState.title, "Job Editor - Other.tsj");
    EXPECT_THAT(LinesOf(editState), ElementsAre("keys 0-4 ab"));
    EXPECT_THAT(Types(editState.PristineEvents), ElementsAre(1, 1, 77, 1, 1));
}

TEST(PopuniListu, PurgeCanMakeClickOfDrag) {
    OpenInEditor(InNotepad().KeyDown(162).Press(Left, 1, 1).Move(2, 2).Release(Left, 1, 1).KeyUp(162).Built());
    EXPECT_THAT(LinesOf(editState), ElementsAre("keys 0-3 {L_CTRL DOWN}{L_CTRL UP}", "left down 1-2"));
}

TEST(PopuniListu, ChangedRowReopensFromItsText) {
    JobBuilder job = InNotepad();
    job.Type("x");
    job.Built().Strings = {"x"};  // a file has a text for every row, changed or not
    job.TextRow("{CTRL DOWN}s{CTRL UP}").Continuation().Continuation();
    Save(job.Built());
    PopuniListu(path, false);
    EXPECT_THAT(LinesOf(editState), ElementsAre("keys 0-1 x", "keys 2-4 {CTRL DOWN}s{CTRL UP}"));
    EXPECT_THAT(editState.FoldedRowText, ElementsAre("x", "{CTRL DOWN}s{CTRL UP}"));
    EXPECT_EQ(editState.debugLabel, "INPUT_TEXT");
    EXPECT_EQ(editState.stringsAtLoad, 2);
}

// Lists of events that nobody would record.
TEST(PopuniListu, RunSeesTheRowsOfTheEditorAndASecondFoldChangesNothing) {
    for (unsigned seed = 0; seed < 200; ++seed) {
        const Job job = RandomJob(seed, 80);
        OpenInEditor(job);
        ASSERT_EQ(EditorLines(), WithoutWindows(FoldForReplay(PristineJob(job)))) << "seed " << seed;
        const std::vector<std::string> lines = LinesOf(editState);
        const std::vector<std::string> texts = editState.FoldedRowText;
        PopuniListu(path, true);
        ASSERT_EQ(LinesOf(editState), lines) << "seed " << seed;
        ASSERT_EQ(editState.FoldedRowText, texts) << "seed " << seed;
    }
}

}  // namespace
