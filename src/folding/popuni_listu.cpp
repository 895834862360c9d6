#include "folding/popuni_listu.h"

#include <utility>

#include "base/runtime_failure.h"
#include "base/text.h"
#include "dictionary/dictionary.h"
#include "jobs/job_file.h"

EditState editState;

namespace {

EditState ForEditing(Job job, const std::string& jobName) {
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

EditState ReadForEditing(const std::string& jobName) {
    Job job;
    ReadJob(jobName, job);
    return ForEditing(std::move(job), jobName);
}

void DescribeJob(EditState& state) {
    const StartProgramRecord& program = state.header.StartProgram;
    state.Browse_Text = Trim(Trim(program.ProgramPath) + " " + Trim(program.CommandLine));
    state.debugLabel = state.Strings.empty() ? "LOW_LEVEL" : "INPUT_TEXT";
}

void Drop(std::vector<EventRun>& dropped, std::size_t index, const JobEvent& event) {
    if (dropped.empty() || static_cast<std::size_t>(dropped.back().first) + dropped.back().events.size() != index) {
        dropped.push_back({static_cast<std::int32_t>(index), {}});
    }
    dropped.back().events.push_back(event);
}

// True when events were dropped. The types of all others are then as they were before the fold.
bool Purge(EditState& state) {
    const std::vector<std::size_t> hidden = HiddenMoves(state, state.EditEvents);
    if (hidden.empty()) return false;
    std::vector<EventRun>& dropped = state.DroppedMoves.emplace_back();
    std::vector<JobEvent>& events = state.PristineEvents;
    auto next = hidden.begin();
    std::size_t count = *next;
    for (std::size_t i = count; i < events.size(); ++i) {
        if (next != hidden.end() && i == *next) {
            Drop(dropped, i, events[i]);
            ++next;
        } else {
            events[count++] = events[i];
        }
    }
    events.resize(count);
    state.EditEvents = events;
    return true;
}

void Fold(EditState& state) {
    state.DroppedMoves.clear();
    do {
        ClearRows(state);
        DescribeJob(state);
        FoldEvents(state.Arrays(), state, &state.EditEvents);
    } while (Purge(state));
}

// Folded aside: a box in the fold pumps, and another job may be opened inside it. Whichever ends last stands, whole.
void FoldAside(EditState folded, std::string jobName) {
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

}  // namespace

void PopuniListu(std::string jobName, bool keep) {
    // Taken and not copied: on a long job the copy would cost more than the fold.
    EditState state = keep ? std::exchange(editState, {}) : ReadForEditing(jobName);
    FoldAside(std::move(state), std::move(jobName));
}

void OpenAsRows(Job job, std::string jobName) {
    EditState state = ForEditing(std::move(job), jobName);
    FoldAside(std::move(state), std::move(jobName));
}

void OrderRows() {
    editState.FoldedRowText.clear();
    for (const KeyRow& row : editState.KeyRows) editState.FoldedRowText.push_back(row.Text);
    editState.Strings = editState.FoldedRowText;
    BuildRowOrder(editState);
}
