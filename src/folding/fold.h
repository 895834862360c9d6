// Folding turns the flat list of a job's events into the rows that a person reads: a button action, a run of moves, a
// run of keys in one window. Rows are a view; each knows the range of events that it stands for, and the ranges may
// overlap. The editor and the action list of a run fold by the one pass declared here. It looks at each event once,
// and its cost grows linearly with the job. It pumps only where it shows a box: for an event of an unknown type, and
// for a stored text with a word that is neither DOWN nor UP. Indexes come from files, so each is checked: for a run a
// bad one is a range failure; the editor opens the job all the same, since that is where it can be mended.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "jobs/job_records.h"

inline constexpr std::int32_t MoveFlags = MouseFlagBase + platform::MouseMove;

struct MouseRow {
    std::int32_t FirstEvent = 0;
    std::int32_t LastEvent = 0;
    std::int32_t Flags = 0;  // dwFlags of the action; MoveFlags for a run of moves
    std::int32_t X = 0;      // of the event, or of the last move of a run; screen pixels
    std::int32_t Y = 0;
    std::int32_t WindowChainIndex = NoWindowMarker;  // of the first event
};

struct KeyRow {
    std::int32_t FirstEvent = 0;
    std::int32_t LastEvent = 0;
    std::int32_t LeafWindow = 0;  // with Depth: of the head event's chain; both 0 for a head without a window
    std::int32_t Depth = 0;
    std::int32_t WindowChainIndex = NoWindowMarker;  // of the first event
    std::int32_t StoredLength = 0;  // what the head has stored of Text; the tokens of keys that have joined it follow
    std::string Text;               // keystroke notation in full {X DOWN}{X UP} form
};

enum RowKindValue : std::int32_t { MouseRowKind = 1, KeyRowKind = 2 };

// The arrays of a job that a fold reads.
struct JobArrays {
    const std::vector<JobEvent>& Events;
    const std::vector<std::string>& Strings;
    const std::vector<WindowSignature>& Windows;
    const std::vector<WindowChain>& Chains;
};

// Events that follow each other in an array, from `first` on.
struct EventRun {
    std::int32_t first = 0;
    std::vector<JobEvent> events;
};

struct FoldedRows {
    std::vector<MouseRow> MouseRows;  // both in the order of their first events
    std::vector<KeyRow> KeyRows;

    // Both kinds of row in one order, by grid row: index into MouseRows or KeyRows, kind, and running number. A run of
    // moves takes no number: it has the number of the row above.
    std::vector<std::int32_t> RowIndex;
    std::vector<std::int32_t> RowKind;
    std::vector<std::int32_t> RowNumber;
};

// Folds the events into MouseRows and KeyRows, which start empty. `edited` is null for a run, or the events of the job
// in the editor, which are changed as they fold: those of a keystroke row become of type 2 (the head) and 4, with the
// row's number from 1 as their StringIndex. An index that leads nowhere then stands for a window without a name, a text
// without keys, a key without a token. An event of an unknown type shows a box and is passed over.
void FoldEvents(const JobArrays& job, FoldedRows& rows, std::vector<JobEvent>* edited);

// A mouse event that becomes a key of a keystroke row. A wheel that turns in finer steps stays a mouse event.
inline bool IsWheelNotch(const JobEvent& event) {
    constexpr std::int32_t notch = 120;
    return event.dwFlags() == MouseFlagBase + platform::MouseWheel &&
           (event.mouseData() == notch || event.mouseData() == -notch);
}

// A fold shows a box for an event of an unknown kind. This makes such events ones that it passes over without a word,
// in no row; they keep their times, and their kind as the code of a key.
void PassOverUnknownEvents(std::span<JobEvent> events);

// For a merge of the rows by their first events: whether, with so many of each kind done, a keystroke row follows.
bool KeyRowComesNext(const FoldedRows& rows, std::size_t keyRowsDone, std::size_t mouseRowsDone);

// Merges the rows of both kinds by their first events into RowIndex, RowKind and RowNumber.
void BuildRowOrder(FoldedRows& rows);

// Moves between the first and the last event of a keystroke row, by their indexes, in order. The editor cannot show
// them: it drops them and folds again, until there are none. The ranges of keystroke rows are in order and apart.
std::vector<std::size_t> HiddenMoves(const FoldedRows& rows, const std::vector<JobEvent>& events);

void ClearRows(FoldedRows& rows);

// The top-level window of a chain; nullptr when the indexes lead nowhere.
const WindowSignature* FindOutermostWindow(const JobArrays& job, std::int32_t chainIndex);

// The same, and a range failure.
const WindowSignature& OutermostWindow(const JobArrays& job, std::int32_t chainIndex);

// The desktop is itself a window, of a name that nobody knows.
bool IsDesktop(const WindowSignature& window);
