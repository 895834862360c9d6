// Changes of the open job, each of which can be taken back. The truth of the open job is PristineEvents, what a save
// writes, with the texts of keystroke rows that the user has changed beside it; EditEvents and the rows are folded from
// it. A change keeps what it took away and what it put in, so the history grows with the changes and not with the job.
//
// After a change of the row structure the rows are exactly those that a save, and an opening after it, would show: what
// the user has changed of a keystroke row is put into PristineEvents first, and everything is folded afresh.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "jobs/job_records.h"

// A piece for the job. Its windows and chains stand behind those of the job, and are shared with it.
struct RecordedPiece {
    std::vector<JobEvent> events;
    std::vector<WindowSignature> windows;  // all of the job and the piece
    std::vector<WindowChain> chains;
};

// --- the changes; each is one step of the history ---

// Takes the grid rows from..to out. Where rows overlap, the events of the others stay. The rows behind them keep their
// delay, counted from the row before the gap. An overflow failure, when 32 bits cannot hold a time, changes nothing.
// Pumps where a fold shows a box, as all changes of the row structure do.
void RemoveRows(std::int32_t from, std::int32_t to);

// Puts the piece in before the event `at`, and moves the times of all events behind it by `tailShift` ms.
void InsertPiece(std::int32_t at, RecordedPiece piece, std::int64_t tailShift);

// From `first` on, the times of all events move by `by` ms.
struct TimeShift {
    std::int32_t first = 0;
    std::int64_t by = 0;
};

// Moves the times of events, by one shift or by several that add up on the way to the end, in the order of their
// events. An overflow failure, when 32 bits cannot hold a time, changes nothing.
void ShiftTimes(const std::vector<TimeShift>& shifts);

// New times for the events from `first` on, one for each entry, and `tailShift` for all events behind them. Fails
// alike.
void SetTimes(std::int32_t first, std::vector<std::int32_t> times, std::int64_t tailShift);

void SetWaitForWindow(std::int32_t event, std::int32_t seconds);
void SetIfNoWindow(std::int32_t first, std::int32_t last, std::uint8_t choice);

// The text of a keystroke row; what is typed into one row is one step until TextRunEnds.
void SetKeyText(std::int32_t keyRow, const std::string& text);

// The description of the job; the same.
void SetDescription(const std::string& text);

// What is typed next is a step of its own: another row was selected, something was saved.
void TextRunEnds();

// --- the history ---

bool CanUndo();
bool CanRedo();

// Take the last step back, or do it again. Afterwards the rows that it is about can be found by an event of theirs: its
// index in EditEvents, or NoEvent for a step that is about none. Nothing happens without a step. Pump as the change
// did.
inline constexpr std::int32_t NoEvent = -1;
std::int32_t UndoStep();
std::int32_t RedoStep();

// Whether the job is as it was opened or last saved.
bool IsAsSaved();
void MarkAsSaved();

// A job has been opened.
void BeginHistory();

// It has been closed.
void ForgetHistory();

// The job as a save writes it: the options of `header`, the rows that were edited as texts.
Job JobToSave(const JobHeader& header);

// The events of these rows alone, as a save writes them, with times that begin at 0. The texts are those of JobToSave.
std::vector<JobEvent> EventsToSaveOf(std::int32_t fromRow, std::int32_t toRow);
