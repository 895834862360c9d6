// A job and what the job editor has made of it.
#include "comparison/compare_jobs.h"

#include "editor/edit_story.h"
#include "folding/grid_rows.h"
#include "folding/random_job.h"

using namespace edit_story;

namespace {

constexpr unsigned Jobs = 60;
constexpr int Gestures = 24;

// No two rows alike, and none that join when one between them goes: each has a window of its own.
Job DistinctRows(int rows) {
    JobBuilder job;
    for (int row = 0; row < rows; ++row) {
        job.InWindow({"Edit", "", 15}, {"Notepad", "Window " + std::to_string(row)}).Wait(100 + row);
        if (row % 5 == 0) {
            job.Type("ab");
        } else if (row % 5 == 2) {
            job.TextRow("text " + std::to_string(row)).Continuation();
        } else {
            job.Click(row % 5 == 1 ? Left : Right, 10 * row, 20);
        }
    }
    return job.Built();
}

Job Now() {
    return JobToSave(editState.header);
}

std::string Told(const RowDifference& row) {
    const char* const names[] = {"removed", "added", "changed"};
    return std::string(names[static_cast<int>(row.change)]) + " " + std::to_string(row.rowA) + "/" +
           std::to_string(row.rowB) + " " + std::to_string(row.aspects);
}

std::vector<std::string> Differences(const Job& a, const Job& b) {
    std::vector<std::string> told;
    const JobComparison comparison(a, b);
    for (const OptionDifference& each : comparison.Options()) {
        told.push_back(each.name + ": " + each.valueA + " > " + each.valueB);
    }
    for (const RowDifference& row : comparison.Rows()) told.push_back(Told(row));
    return told;
}

// What it says, without number, delay, times and place: those of a row can follow from other rows.
std::string Said(const GridColumns& columns) {
    return columns[1] + "|" + columns[2] + "|" + columns[6] + "|" + columns[7];
}

std::vector<std::string> SaidBy(JobComparison& comparison, bool b, std::size_t count) {
    std::vector<std::string> rows;
    for (std::size_t row = 0; row < count; ++row) {
        const auto index = static_cast<std::int32_t>(row);
        rows.push_back(Said(b ? comparison.ColumnsOfB(index) : comparison.ColumnsOfA(index)));
    }
    return rows;
}

// The rows of A with the differences applied, and those of B.
void ExpectThatTheDifferencesLeadFromAToB(const Job& a, const Job& b) {
    JobComparison comparison(a, b);
    const std::size_t countA = static_cast<std::size_t>(JobRows(a).Count());
    const std::size_t countB = static_cast<std::size_t>(JobRows(b).Count());
    const std::vector<std::string> rowsA = SaidBy(comparison, false, countA);
    const std::vector<std::string> rowsB = SaidBy(comparison, true, countB);
    std::vector<std::string> applied;
    std::size_t nextA = 0;
    for (const RowDifference& row : comparison.Rows()) {
        const std::size_t until = row.rowA >= 0 ? static_cast<std::size_t>(row.rowA) : nextA;
        while (nextA < until || (row.rowA < 0 && applied.size() < static_cast<std::size_t>(row.rowB))) {
            applied.push_back(rowsA.at(nextA++));
        }
        if (row.rowA >= 0) ++nextA;
        if (row.rowB >= 0) applied.push_back(rowsB.at(static_cast<std::size_t>(row.rowB)));
    }
    while (nextA < rowsA.size()) applied.push_back(rowsA[nextA++]);
    EXPECT_EQ(applied, rowsB) << testing::PrintToString(Differences(a, b)) << testing::PrintToString(rowsA);
}

TEST(CompareJobs, AJobIsTheSameAsItself) {
    for (unsigned seed = 1; seed <= Jobs; ++seed) {
        const Job job = RandomJob(seed, Gestures);
        EXPECT_THAT(Differences(job, job), IsEmpty()) << "seed " << seed;
    }
}

TEST(CompareJobs, NeighboursThatHaveChangedStayPairs) {
    const Job before = DistinctRows(6);
    Job after = before;
    for (JobEvent& event : after.Events) {
        if (event.dwType() == platform::InputMouse) event.dx() += 3;
    }
    const std::string content = std::to_string(ContentAspect);
    EXPECT_THAT(Differences(before, after),
                ElementsAre("changed 1/1 " + content, "changed 3/3 " + content, "changed 4/4 " + content));
}

// Each edit is done in the editor, with rows between it and the next.
TEST(CompareJobs, NamesExactlyTheRowsThatTheEditorHasChanged) {
    std::mt19937 random(3);
    const auto below = [&](int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random); };
    for (int round = 0; round < 200; ++round) {
        const int rows = 20 + below(20);
        Open(DistinctRows(rows));
        const Job before = Now();
        std::vector<std::string> expected;
        int removed = 0;
        for (int row = below(3); row < rows - 2; row += 2 + below(4)) {
            const int now = row - removed;
            const std::string both = std::to_string(row) + "/" + std::to_string(now);
            const bool keys = editState.RowKind[static_cast<std::size_t>(now)] == KeyRowKind;
            switch (below(5)) {
                case 0:
                    Delete(now);
                    ++removed;
                    expected.push_back("removed " + std::to_string(row) + "/-1 0");
                    break;
                case 1:
                    SetNewDelay(now, now, 5000 + row);
                    expected.push_back("changed " + both + " 1");
                    break;
                case 2:
                    if (!keys) break;
                    SetKeyText(editState.RowIndex[static_cast<std::size_t>(now)], "changed{ENTER}");
                    expected.push_back("changed " + both + " 4");
                    break;
                case 3:
                    Select(now);
                    WaitForWindowChanged(33);
                    expected.push_back("changed " + both + " 16");
                    break;
                default:
                    SetNewDuration(now, now, 700);
                    expected.push_back("changed " + both + " 8");
            }
        }
        EXPECT_EQ(Differences(before, Now()), expected) << "round " << round;
        EditorHasClosed();
    }
}

TEST(CompareJobs, APieceThatWasRecordedInIsAdded) {
    Open(DistinctRows(12));
    const Job before = Now();
    const Job piece = JobBuilder().At(Event_StartTime(6)).Click(Left, 1, 2).Built();
    InsertPiece(EventsOfRow(6).first, {piece.Events, editState.Windows, editState.Chains},
                Event_StartTime(6) + JobBuilder::Step - Event_EndTime(5));
    EXPECT_THAT(Differences(before, Now()), ElementsAre("added -1/6 0"));
}

TEST(CompareJobs, AMovedWindowWithItsClicksIsTheSameRow) {
    const auto clickIn = [](std::int32_t left) {
        return JobBuilder()
            .InWindow({"Notepad", "Untitled", 0, {44, 0, 1, {}, {}, {left, 0, left + 500, 400}}})
            .Click(Left, left + 20, 30)
            .Built();
    };
    EXPECT_THAT(Differences(clickIn(0), clickIn(100)), IsEmpty());
}

TEST(CompareJobs, TellsOptionsByTheirNames) {
    Job a = DistinctRows(3);
    Job b = a;
    b.SpeedPercent = 250;
    b.Description = "faster";
    b.DurationMs = 7;
    EXPECT_THAT(Differences(a, b), ElementsAre("Description:  > faster", "SpeedPercent: 100 > 250"));
}

TEST(CompareJobs, LeadsFromAnyJobToAnyOther) {
    for (unsigned seed = 1; seed <= Jobs; ++seed) {
        SCOPED_TRACE(seed);
        Job edited = RandomJob(seed, Gestures);
        std::mt19937 random(seed);
        for (int i = 0; i < 5 && !edited.Events.empty(); ++i) {
            edited.Events.erase(edited.Events.begin() + static_cast<std::ptrdiff_t>(random() % edited.Events.size()));
        }
        ExpectThatTheDifferencesLeadFromAToB(RandomJob(seed, Gestures), edited);
        ExpectThatTheDifferencesLeadFromAToB(RandomJob(seed, Gestures), RandomJob(seed + 1, Gestures));
    }
}

}  // namespace
