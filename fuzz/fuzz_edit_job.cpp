// Any job that can be read, in the editor: it opens, whatever its indexes and times say, and takes whatever is done to
// its rows; only a time that is too large is refused. Its arrays keep together, what is saved opens with the same rows,
// and all of it can be taken back and done again.
//
// The input is the number of edits, the edits (4 bytes each), and then the events (8 bytes each): bytes of the file
// itself would be spent on its header, and ReadJob has a target of its own.
#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "base/runtime_failure.h"
#include "editor/edit_job.h"
#include "editor/job_changes.h"
#include "editor/row_edits.h"
#include "editor/save_job.h"
#include "folding/popuni_listu.h"
#include "folding/row_texts.h"
#include "fuzz/require.h"
#include "jobs/sample_job.h"
#include "platform/simulated/files.h"

namespace {

constexpr std::size_t EditBytes = 4;
constexpr std::size_t EventBytes = 8;
constexpr std::size_t MostEdits = 24;
constexpr std::size_t MostEvents = 64;

// --- the job ---

template <std::size_t Count>
std::int32_t OneOf(const std::int32_t (&values)[Count], std::uint8_t choice) {
    return values[choice % Count];
}

// Edges that 32 bits have, or a small difference.
std::int32_t ValueOf(std::uint8_t value) {
    static constexpr std::int32_t edges[] = {INT32_MIN, INT32_MAX, -1'000'000'000, 1'000'000'000};
    return value < std::size(edges) ? edges[value] : (value - 128) * 7;
}

// Chains that lead somewhere, and chains that do not.
void AddWindows(Job& job) {
    job.Windows = {{{}, "Untitled", "Notepad", 0}, {{}, "", "Edit", 15}, {{}, "Program Manager", "Progman", 0}};
    const std::pair<std::int32_t, std::int32_t> chains[] = {{1, 1}, {2, 0}, {99, 1}, {-7, 2}, {1, 300}, {1, -5}};
    for (const auto& [window, depth] : chains) job.Chains.push_back({window, {window, 0, 2}, depth});
    job.Strings = {"", "abc", "{L_CTRL DOWN}a{l_ctrl up}", "a{b", "{ALT}{ENTER OFTEN}"};
}

void TakeMouse(JobEvent& event, const std::uint8_t* bytes) {
    using namespace platform;
    static constexpr std::int32_t actions[] = {MouseMove,      MouseMove,    MouseLeftDown, MouseLeftUp,
                                               MouseRightDown, MouseRightUp, MouseXDown,    MouseXUp,
                                               MouseWheel,     MouseWheel,   MouseMiddleUp, 221 - MouseFlagBase};
    static constexpr std::int32_t data[] = {0, 0, 120, -120, 40, 65537};
    event.dwFlags() = MouseFlagBase + OneOf(actions, bytes[1]);
    event.dx() = bytes[2] % 2;
    event.dy() = -1;
    event.mouseData() = OneOf(data, bytes[3]);
}

void TakeKey(JobEvent& event, const std::uint8_t* bytes) {
    static constexpr std::int32_t keys[] = {'A', 13, 160, 162, 164, 300, 301, -5, 60'000};
    event.KeyCode() = OneOf(keys, bytes[2]);
    event.KeyState() = bytes[3] % 6;
}

JobEvent EventOf(const std::uint8_t* bytes) {
    static constexpr std::int32_t types[] = {0, 0, 0, 1, 1, 1, 2, 4, 3, -1};
    static constexpr std::int32_t chains[] = {0, 0, 1, 2, 3, 4, 5, -1, NoWindowMarker, 1000};
    JobEvent event;
    event.dwType() = OneOf(types, bytes[0]);
    if (event.dwType() == platform::InputMouse) TakeMouse(event, bytes);
    if (event.dwType() == platform::InputKeyboard) TakeKey(event, bytes);
    if (event.dwType() > platform::InputKeyboard) event.StringIndex() = bytes[2] % 8;
    event.time() = ValueOf(bytes[4]) + (bytes[4] < 4 ? 0 : bytes[5] * 100);
    event.WindowChainIndex = OneOf(chains, bytes[6]);
    event.IfNoWindow = bytes[7] % 5;
    return event;
}

// False when nobody could have saved it: its duration is too long.
bool PutJob(const std::uint8_t* bytes, std::size_t size) {
    Job job;
    AddWindows(job);
    const std::size_t count = std::min(size / EventBytes, MostEvents);
    for (std::size_t i = 0; i < count; ++i) job.Events.push_back(EventOf(bytes + i * EventBytes));
    try {
        WriteJob(jobPath, job);
        return true;
    } catch (const RuntimeFailure& failure) {
        Require(failure.Kind() == FailureKind::Overflow, "any other job can be written");
        return false;
    }
}

// --- the edits ---

struct Edit {
    std::uint8_t action = 0;
    std::uint8_t row = 0;  // of 256 in all
    std::uint8_t more = 0;
    std::uint8_t value = 0;
};

std::int32_t RowCount() {
    return static_cast<std::int32_t>(editState.RowIndex.size());
}

void Insert(const Edit& edit) {
    RecordedPiece piece{{}, editState.Windows, editState.Chains};
    const std::size_t count = std::min<std::size_t>(edit.more % 8, editState.EditEvents.size());
    for (std::size_t i = 0; i < count; ++i) {
        piece.events.push_back(editState.PristineEvents[(edit.value + i) % editState.PristineEvents.size()]);
        if (piece.events.back().dwType() != platform::InputMouse)
            piece.events.back().dwType() = platform::InputKeyboard;
    }
    piece.windows.emplace_back();
    piece.chains.emplace_back();
    if (count == 0) return;
    const std::int32_t row = edit.row * RowCount() / 256;
    InsertPiece(RowCount() == 0 ? 0 : Event_I_Begin(row), std::move(piece), ValueOf(edit.value));
    RowsHaveChanged(row, row);
}

void ChangeRows(const Edit& edit, std::int32_t from, std::int32_t to) {
    const std::string value = std::to_string(ValueOf(edit.value));
    SelectRows(from, to);
    switch (edit.action % 8) {
        case 0:
            RemoveRows(from, to);
            return RowsHaveChanged(from, from);
        case 1:
            DelayTyped(value);
            return delay_set_Click();
        case 2:
            DurationTyped(value);
            return duration_set_Click();
        case 3:
            return WaitForWindowChanged(edit.value);
        case 4:
            return IfNoWindowChanged(edit.value % 4);
        default:
            if (editState.RowKind[static_cast<std::size_t>(from)] != KeyRowKind) return;
            SetKeyText(editState.RowIndex[static_cast<std::size_t>(from)], edit.value % 2 == 0 ? "a{ENTER}" : "");
    }
}

void Apply(const Edit& edit) {
    const std::int32_t from = edit.row * RowCount() / 256;
    switch (edit.action / 8 % 8) {
        case 0:
            return Undo();
        case 1:
            return Redo();
        case 2:
            return SetDescription(std::string(edit.value, 'x'));
        case 3:
            return Insert(edit);
        default:
            if (RowCount() > 0) ChangeRows(edit, from, std::min(RowCount() - 1, from + edit.more % 8));
    }
}

// Whether it was done. A refusal leaves everything as it was.
bool Done(const Edit& edit) {
    try {
        Apply(edit);
        return true;
    } catch (const RuntimeFailure& failure) {
        Require(failure.Kind() == FailureKind::Overflow, "only a time that is too large is refused");
        return false;
    }
}

void CheckArrays() {
    const EditState& state = editState;
    const std::size_t rows = state.MouseRows.size() + state.KeyRows.size();
    Require(state.RowIndex.size() == rows && state.RowKind.size() == rows && state.RowNumber.size() == rows,
            "an entry for each row");
    Require(state.Strings.size() == state.KeyRows.size() && state.FoldedRowText.size() == state.KeyRows.size(),
            "a text for each keystroke row");
    Require(state.EditEvents.size() == state.PristineEvents.size(), "both arrays have the same events");
    for (std::size_t i = 0; i < state.EditEvents.size(); ++i) {
        Require(state.EditEvents[i].time() == state.PristineEvents[i].time(), "times agree");
        Require(state.EditEvents[i].WindowChainIndex == state.PristineEvents[i].WindowChainIndex, "windows agree");
    }
}

struct Row {
    GridColumns columns;
    std::int32_t first = 0;
    bool operator==(const Row&) const = default;
};

std::vector<Row> Rows() {
    std::vector<Row> rows;
    for (std::int32_t row = 0; row < RowCount(); ++row) rows.push_back({RowColumns(row), Event_I_Begin(row)});
    return rows;
}

bool Saves() {
    try {
        SaveJob(false);
        return true;
    } catch (const RuntimeFailure& failure) {
        Require(failure.Kind() == FailureKind::Overflow, "only the duration may be unfit to be written");
        return false;
    }
}

void OpenIt() {
    editJob(jobPath);
    CheckArrays();
}

bool SameEvent(const JobEvent& a, const JobEvent& b) {
    return a.word == b.word && a.WindowChainIndex == b.WindowChainIndex && a.WaitForWindow == b.WaitForWindow &&
           a.IfNoWindow == b.IfNoWindow;
}

// Windows and chains are only added behind those that are there.
bool SameJob(const Job& a, const Job& b) {
    return std::ranges::equal(a.Events, b.Events, SameEvent) && a.Strings == b.Strings &&
           a.Description == b.Description && a.Windows.size() == b.Windows.size() && a.Chains.size() == b.Chains.size();
}

void CheckUndo(const Job& atOpening) {
    const Job edited = JobToSave(editState.header);
    int steps = 0;
    for (; CanUndo(); ++steps) Undo();
    CheckArrays();
    Require(SameJob(JobToSave(editState.header), atOpening), "all taken back is the job as it was opened");
    for (; steps > 0; --steps) Redo();
    CheckArrays();
    Require(SameJob(JobToSave(editState.header), edited), "all done again is the job as it was edited");
}

void CheckFile() {
    const std::vector<Row> rows = Rows();
    if (!Saves()) return;
    EditorHasClosed();
    OpenIt();
    Require(Rows() == rows, "what was saved opens with the same rows");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const std::size_t edits = std::min<std::size_t>({data[0], MostEdits, (size - 1) / EditBytes});
    const std::size_t front = 1 + edits * EditBytes;
    simulated::PutFile(jobPath, "");  // a longer one would leave its tail
    if (!PutJob(data + front, size - front)) return 0;
    OpenIt();
    const Job atOpening = JobToSave(editState.header);
    for (std::size_t i = 0; i < edits; ++i) {
        const std::uint8_t* const edit = data + 1 + i * EditBytes;
        if (Done({edit[0], edit[1], edit[2], edit[3]})) CheckArrays();
    }
    CheckUndo(atOpening);
    CheckFile();
    EditorHasClosed();
    return 0;
}
