#include "folding/popuni_listu.h"

#include <algorithm>
#include <utility>

#include "base/runtime_failure.h"
#include "base/text.h"
#include "dictionary/dictionary.h"
#include "jobs/job_file.h"

EditState editState;

namespace {

constexpr std::int32_t PurgeMark = -1;  // in word 6

EditState ReadForEditing(const std::string& jobName) {
    Job job;
    ReadJob(jobName, job);
    EditState state;
    state.title = Translate("Job Editor") + " - " + BaseName(jobName) + ".tsj";
    state.header = job;
    state.EditEvents = std::move(job.Events);
    state.PristineEvents = state.EditEvents;
    state.stringsAtLoad = static_cast<std::int32_t>(job.Strings.size());
    state.Strings = std::move(job.Strings);
    state.Windows = std::move(job.Windows);
    state.Chains = std::move(job.Chains);
    return state;
}

void DescribeJob(EditState& state) {
    const StartProgramRecord& program = state.header.StartProgram;
    state.Browse_Text = Trim(Trim(program.ProgramPath) + " " + Trim(program.CommandLine));
    state.debugLabel = state.Strings.empty() ? "LOW_LEVEL" : "INPUT_TEXT";
}

// Moves between the first and the last event of a keystroke row.
void MarkHiddenMoves(EditState& state) {
    for (const KeyRow& row : state.KeyRows) {
        for (std::int32_t i = row.FirstEvent + 1; i < row.LastEvent; ++i) {
            JobEvent& event = CheckedAt(state.EditEvents, i, "Event");
            if (event.dwType() == platform::InputMouse && event.dwFlags() == MoveFlags) event.word[6] = PurgeMark;
        }
    }
}

bool IsMarked(const JobEvent& event) {
    return event.word[6] == PurgeMark;
}

// True when events were dropped. The types of all others are then as they were before the fold.
bool Purge(EditState& state) {
    MarkHiddenMoves(state);
    const auto firstMarked = std::find_if(state.EditEvents.begin(), state.EditEvents.end(), IsMarked);
    if (firstMarked == state.EditEvents.end()) return false;
    std::vector<JobEvent>& kept = state.PristineEvents;
    auto count = static_cast<std::size_t>(firstMarked - state.EditEvents.begin());
    for (std::size_t i = count; i < state.EditEvents.size(); ++i) {
        if (!IsMarked(state.EditEvents[i])) kept[count++] = kept[i];
    }
    kept.resize(count);
    state.EditEvents = kept;
    return true;
}

void Fold(EditState& state) {
    do {
        ClearRows(state);
        DescribeJob(state);
        FoldEvents(state.Arrays(), state, &state.EditEvents);
    } while (Purge(state));
}

}  // namespace

// Folded aside: a box in the fold pumps, and another job may be opened inside it. Whichever ends last stands, whole.
void PopuniListu(std::string jobName, bool keep) {
    // Taken and not copied: on a long job the copy would cost more than the fold.
    EditState folded = keep ? std::exchange(editState, {}) : ReadForEditing(jobName);
    folded.jobName = std::move(jobName);
    try {
        Fold(folded);
    } catch (...) {
        ClearRows(folded);
        editState = std::move(folded);
        throw;
    }
    editState = std::move(folded);
    OrderRows();
}

void OrderRows() {
    editState.FoldedRowText.clear();
    for (const KeyRow& row : editState.KeyRows) editState.FoldedRowText.push_back(row.Text);
    editState.Strings = editState.FoldedRowText;
    BuildRowOrder(editState);
}
