#include "folding/popuni_listu.h"

#include <utility>

#include "base/runtime_failure.h"
#include "base/text.h"
#include "dictionary/dictionary.h"
#include "jobs/job_file.h"

EditState editState;

namespace {

constexpr std::int32_t PurgeMark = -1;  // in word 6

void ReadForEditing(const std::string& jobName) {
    Job job;
    ReadJob(jobName, job);
    editState.title = Translate("Job Editor") + " - " + BaseName(jobName) + ".tsj";
    editState.header = job;
    editState.EditEvents = std::move(job.Events);
    editState.PristineEvents = editState.EditEvents;
    editState.stringsAtLoad = static_cast<std::int32_t>(job.Strings.size());
    editState.Strings = std::move(job.Strings);
    editState.Windows = std::move(job.Windows);
    editState.Chains = std::move(job.Chains);
}

void DescribeJob() {
    const StartProgramRecord& program = editState.header.StartProgram;
    editState.Browse_Text = Trim(Trim(program.ProgramPath) + " " + Trim(program.CommandLine));
    editState.debugLabel = editState.Strings.empty() ? "LOW_LEVEL" : "INPUT_TEXT";
}

// Moves between the first and the last event of a keystroke row.
void MarkHiddenMoves() {
    for (const KeyRow& row : editState.KeyRows) {
        for (std::int32_t i = row.FirstEvent + 1; i < row.LastEvent; ++i) {
            JobEvent& event = CheckedAt(editState.EditEvents, i, "Event");
            if (event.dwType() == platform::InputMouse && event.dwFlags() == MoveFlags) event.word[6] = PurgeMark;
        }
    }
}

// True when events were dropped. The types of all others are then as they were before the fold.
bool Purge() {
    MarkHiddenMoves();
    std::vector<JobEvent>& kept = editState.PristineEvents;
    std::size_t count = 0;
    for (std::size_t i = 0; i < editState.EditEvents.size(); ++i) {
        if (editState.EditEvents[i].word[6] != PurgeMark) kept[count++] = kept[i];
    }
    if (count == editState.EditEvents.size()) return false;
    kept.resize(count);
    editState.EditEvents = kept;
    return true;
}

void Fold() {
    do {
        ClearRows(editState);
        DescribeJob();
        FoldEvents(editState.Arrays(), editState, &editState.EditEvents);
    } while (Purge());
}

}  // namespace

void PopuniListu(const std::string& jobName, bool keep) {
    if (!keep) ReadForEditing(jobName);
    editState.jobName = jobName;
    try {
        Fold();
    } catch (const RuntimeFailure&) {
        ClearRows(editState);
        throw;
    }
    OrderRows();
}

void OrderRows() {
    editState.FoldedRowText.clear();
    for (const KeyRow& row : editState.KeyRows) editState.FoldedRowText.push_back(row.Text);
    editState.Strings = editState.FoldedRowText;
    BuildRowOrder(editState);
}
