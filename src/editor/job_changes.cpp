#include "editor/job_changes.h"

#include <algorithm>
#include <limits>
#include <utility>
#include <variant>

#include "base/runtime_failure.h"
#include "editor/event_splices.h"
#include "folding/grid_rows.h"
#include "folding/popuni_listu.h"
#include "folding/row_texts.h"

namespace {

// --- changes as values: applied, each is turned into what takes it back ---

struct Shifts {
    std::vector<TimeShift> shifts;
};

struct Times {
    std::int32_t first = 0;
    std::vector<std::int32_t> times;
    std::int64_t tailShift = 0;
};

struct Wait {
    std::int32_t event = 0;
    std::int32_t seconds = 0;
};

struct Choices {
    std::int32_t first = 0;
    std::vector<std::uint8_t> choices;
};

struct KeyText {
    std::int32_t head = 0;  // event with which the row begins
    std::string text;
};

struct Description {
    std::string text;
};

// Of the windows and chains, what stands behind the first so many.
struct Tails {
    std::size_t windowsKept = 0;
    std::size_t chainsKept = 0;
    std::vector<WindowSignature> windows;
    std::vector<WindowChain> chains;
};

using Change = std::variant<Splices, Shifts, Times, Wait, Choices, KeyText, Description, Tails>;

struct Step {
    std::int64_t id = 0;
    std::vector<Change> changes;  // in the order in which they were made
    std::int32_t event = 0;       // by which its rows are found
    bool structure = false;       // everything is folded afresh after it

    // Before it: rows whose texts the user had changed. The step has put them into PristineEvents.
    std::vector<KeyText> editedTexts;
};

struct History {
    std::vector<Step> undo;
    std::vector<Step> redo;
    std::int64_t lastId = 0;
    std::int64_t savedId = 0;  // of the last step that is in the file; 0: as it was opened
    bool runIsOpen = false;    // what is typed next may belong to the last step
};
History history;

// Of a change of the row structure, the folded events follow afterwards.
enum class Target { Both, PristineEvents };

std::vector<std::vector<JobEvent>*> ArraysOf(Target target) {
    if (target == Target::PristineEvents) return {&editState.PristineEvents};
    return {&editState.EditEvents, &editState.PristineEvents};
}

void TakeWrapped(JobEvent& event, std::int64_t by) {
    event.time() = static_cast<std::int32_t>(static_cast<std::uint32_t>(event.time()) + static_cast<std::uint32_t>(by));
}

// False when a time has left 32 bits; all of them are then wrong by multiples of 2^32, and adding the negative puts
// them right.
bool AddToTimes(std::vector<JobEvent>& events, const std::vector<TimeShift>& shifts, int sign) {
    bool fits = true;
    std::int64_t by = 0;
    for (std::size_t k = 0; k < shifts.size(); ++k) {
        by += sign * shifts[k].by;
        const auto end = k + 1 < shifts.size() ? static_cast<std::size_t>(shifts[k + 1].first) : events.size();
        for (auto i = static_cast<std::size_t>(shifts[k].first); i < end; ++i) {
            const std::int64_t time = events[i].time() + by;
            fits = fits && time == static_cast<std::int32_t>(time);
            TakeWrapped(events[i], by);
        }
    }
    return fits;
}

void Apply(Shifts& change, Target target) {
    for (std::vector<JobEvent>* const events : ArraysOf(target)) {
        if (AddToTimes(*events, change.shifts, 1)) continue;
        AddToTimes(*events, change.shifts, -1);  // the times of both arrays agree: it is the first that fails
        throw RuntimeFailure(FailureKind::Overflow, "A time in the job would be too large.");
    }
    for (TimeShift& shift : change.shifts) shift.by = -shift.by;
}

void Apply(Times& change, Target target) {
    const auto count = static_cast<std::int32_t>(change.times.size());
    Shifts tail{{{change.first + count, change.tailShift}}};
    Apply(tail, target);
    std::vector<std::int32_t> before = change.times;
    for (std::vector<JobEvent>* const events : ArraysOf(target)) {
        for (std::size_t i = 0; i < change.times.size(); ++i) {
            JobEvent& event = CheckedAt(*events, change.first + static_cast<std::int64_t>(i), "Event");
            before[i] = std::exchange(event.time(), change.times[i]);
        }
    }
    change.times = std::move(before);
    change.tailShift = -change.tailShift;
}

void Apply(Wait& change, Target target) {
    std::int32_t before = 0;
    for (std::vector<JobEvent>* const events : ArraysOf(target)) {
        before = std::exchange(CheckedAt(*events, change.event, "Event").WaitForWindow, change.seconds);
    }
    change.seconds = before;
}

void Apply(Choices& change, Target target) {
    std::vector<std::uint8_t> before = change.choices;
    for (std::vector<JobEvent>* const events : ArraysOf(target)) {
        for (std::size_t i = 0; i < change.choices.size(); ++i) {
            JobEvent& event = CheckedAt(*events, change.first + static_cast<std::int64_t>(i), "Event");
            before[i] = std::exchange(event.IfNoWindow, change.choices[i]);
        }
    }
    change.choices = std::move(before);
}

void Apply(KeyText& change, Target) {
    const std::int64_t row = CheckedAt(editState.EditEvents, change.head, "Event").StringIndex() - 1LL;
    CheckedAt(editState.Strings, row, "Text row") = change.text;
    std::swap(CheckedAt(editState.KeyRows, row, "Keystroke row").Text, change.text);
}

void Apply(Description& change, Target) {
    std::swap(editState.header.Description, change.text);
}

template <class Record>
void ReplaceTail(std::vector<Record>& array, std::size_t kept, std::vector<Record>& tail) {
    const auto end = array.begin() + static_cast<std::ptrdiff_t>(std::min(kept, array.size()));
    std::vector<Record> before(std::make_move_iterator(end), std::make_move_iterator(array.end()));
    array.erase(end, array.end());
    array.insert(array.end(), std::make_move_iterator(tail.begin()), std::make_move_iterator(tail.end()));
    tail = std::move(before);
}

void Apply(Tails& change, Target) {
    ReplaceTail(editState.Windows, change.windowsKept, change.windows);
    ReplaceTail(editState.Chains, change.chainsKept, change.chains);
}

void Apply(Splices& change, Target) {
    Apply(editState.PristineEvents, editState.Strings, change);
}

void Apply(Change& change, Target target) {
    std::visit([target](auto& each) { Apply(each, target); }, change);
}

// --- rows that have become texts ---

bool IsStoredText(const JobEvent& event) {
    return event.dwType() == INPUT_TEXT || event.dwType() == TextContinuation;
}

// The event is folded into this keystroke row.
bool IsOfKeyRow(const JobEvent& event, std::int32_t keyRow) {
    return IsStoredText(event) && event.StringIndex() == keyRow + 1;
}

bool IsEdited(std::size_t keyRow) {
    return editState.KeyRows[keyRow].Text != editState.FoldedRowText[keyRow];
}

// Raw keys can come to stand behind a text in one row, when the click between them is deleted. Stored as they are, the
// text of the whole row would be typed, and then these keys again.
bool IsStoredInPart(std::size_t keyRow) {
    const KeyRow& row = editState.KeyRows[keyRow];
    if (CheckedAt(editState.PristineEvents, row.FirstEvent, "Event").dwType() != INPUT_TEXT) return false;
    for (std::int32_t i = row.FirstEvent; i <= row.LastEvent; ++i) {
        const bool isOfRow = IsOfKeyRow(CheckedAt(editState.EditEvents, i, "Event"), static_cast<std::int32_t>(keyRow));
        if (isOfRow && !IsStoredText(editState.PristineEvents[static_cast<std::size_t>(i)])) return true;
    }
    return false;
}

// Calls `each` with the index of every event that a save stores otherwise than PristineEvents has it.
template <class Each>
void ForEventsToStore(Each each) {
    for (std::size_t keyRow = 0; keyRow < editState.KeyRows.size(); ++keyRow) {
        if (!IsEdited(keyRow) && !IsStoredInPart(keyRow)) continue;
        const KeyRow& row = editState.KeyRows[keyRow];
        for (std::int32_t i = row.FirstEvent; i <= row.LastEvent; ++i) {
            const auto index = static_cast<std::size_t>(i);
            if (!IsOfKeyRow(editState.EditEvents[index], static_cast<std::int32_t>(keyRow))) continue;
            // The head always: what it types is another text, even where it is stored already.
            if (i == row.FirstEvent || !IsStoredText(editState.PristineEvents[index])) each(index);
        }
    }
}

std::string StoredTextOf(const JobEvent& head) {
    const std::int64_t index = head.StringIndex() - 1LL;
    return index >= 0 && index < static_cast<std::int64_t>(editState.Strings.size())
               ? editState.Strings[static_cast<std::size_t>(index)]
               : std::string();
}

// Adds one event to the last splice, or to a new one when it does not follow it.
Splice& SpliceFor(Splices& splices, std::size_t index) {
    const bool follows =
        !splices.empty() && static_cast<std::size_t>(splices.back().first) + splices.back().out.size() == index;
    if (!follows) splices.push_back({static_cast<std::int32_t>(index), {}, {}, {}, {}});
    return splices.back();
}

void TakeOut(Splices& splices, std::size_t index) {
    const JobEvent& event = editState.PristineEvents[index];
    Splice& splice = SpliceFor(splices, index);
    splice.out.push_back(event);
    if (event.dwType() == INPUT_TEXT) splice.outTexts.push_back(StoredTextOf(event));
}

// With the times of PristineEvents, which are ahead of the folded events when a change of the row structure has begun.
Splices EditedRowsAsTexts() {
    Splices splices;
    ForEventsToStore([&splices](std::size_t index) {
        TakeOut(splices, index);
        JobEvent stored = editState.EditEvents[index];
        stored.time() = editState.PristineEvents[index].time();
        splices.back().in.push_back(stored);
        if (stored.dwType() != INPUT_TEXT) return;
        splices.back().inTexts.push_back(editState.KeyRows[static_cast<std::size_t>(stored.StringIndex() - 1)].Text);
    });
    return splices;
}

// Strings as PristineEvents have them, for a fold: without what the user has typed, and without the tokens of raw keys
// that have joined a stored text, which the fold adds.
void TakeBackTexts() {
    for (std::size_t keyRow = 0; keyRow < editState.KeyRows.size(); ++keyRow) {
        const auto length = static_cast<std::size_t>(editState.KeyRows[keyRow].StoredLength);
        if (editState.Strings[keyRow].size() != length || IsEdited(keyRow)) {
            editState.Strings[keyRow].assign(editState.FoldedRowText[keyRow], 0, length);
        }
    }
}

std::vector<KeyText> EditedTexts() {
    std::vector<KeyText> texts;
    for (std::size_t keyRow = 0; keyRow < editState.KeyRows.size(); ++keyRow) {
        const KeyRow& row = editState.KeyRows[keyRow];
        if (IsEdited(keyRow)) texts.push_back({row.FirstEvent, row.Text});
    }
    return texts;
}

// --- the row structure ---

// What is stored as a text has the number of its row in PristineEvents, too: the texts are now those of the rows.
void RenumberStoredTexts() {
    for (std::size_t i = 0; i < editState.PristineEvents.size(); ++i) {
        JobEvent& event = editState.PristineEvents[i];
        if (IsStoredText(event)) event.StringIndex() = editState.EditEvents[i].StringIndex();
    }
}

void FoldAfresh() {
    editState.EditEvents = editState.PristineEvents;
    PopuniListu(editState.jobName, true);
    RenumberStoredTexts();
}

void AddDroppedMoves(Step& step) {
    for (std::vector<EventRun>& pass : editState.DroppedMoves) {
        Splices splices;
        for (EventRun& run : pass) splices.push_back({run.first, {}, std::move(run.events), {}, {}});
        // They are out already: in is what takes that back. Its places count in the array without them.
        std::int32_t gone = 0;
        for (Splice& splice : splices) {
            splice.first -= gone;
            gone += static_cast<std::int32_t>(splice.in.size());
        }
        step.changes.emplace_back(std::move(splices));
    }
    editState.DroppedMoves.clear();
}

void Push(Step step) {
    step.id = ++history.lastId;
    history.undo.push_back(std::move(step));
    history.redo.clear();
}

void Make(Step& step, Change change, Target target) {
    Apply(change, target);
    step.changes.push_back(std::move(change));
}

// What both changes of the row structure begin with. `shift` goes first of all: it can fail.
Step BeginStructure(const TimeShift& shift, std::int32_t event) {
    Step step;
    step.structure = true;
    step.event = event;
    if (shift.by != 0) Make(step, Shifts{{shift}}, Target::PristineEvents);
    step.editedTexts = EditedTexts();
    TakeBackTexts();
    Make(step, EditedRowsAsTexts(), Target::PristineEvents);
    return step;
}

void EndStructure(Step step) {
    history.runIsOpen = false;
    FoldAfresh();
    AddDroppedMoves(step);
    Push(std::move(step));
}

// --- which events rows stand for ---

// The range of a keystroke row can hold the release of a button, which is a row of its own; a run of moves can hold a
// wheel notch. What no row stands for goes with the row around it.
bool IsOfRow(std::int32_t gridRow, const JobEvent& event) {
    const std::int32_t keyRow = KeyRowOf(gridRow);
    if (IsStoredText(event)) return keyRow >= 0 && event.StringIndex() == keyRow + 1;
    return event.dwType() != platform::InputMouse || keyRow < 0;
}

// Calls `each` with the index of every event of these rows, in order.
template <class Each>
void ForEventsOfRows(std::int32_t from, std::int32_t to, Each each) {
    const std::int32_t first = Event_I_Begin(from);
    std::int32_t last = first;
    for (std::int32_t row = from; row <= to; ++row) last = std::max(last, EventsOfRow(row).last);
    std::vector<bool> goes(static_cast<std::size_t>(last - first) + 1);
    for (std::int32_t row = from; row <= to; ++row) {
        for (std::int32_t i = Event_I_Begin(row); i <= EventsOfRow(row).last; ++i) {
            if (IsOfRow(row, CheckedAt(editState.EditEvents, i, "Event")))
                goes[static_cast<std::size_t>(i - first)] = true;
        }
    }
    for (std::size_t i = 0; i < goes.size(); ++i) {
        if (goes[i]) each(static_cast<std::size_t>(first) + i);
    }
}

Splices EventsOfRows(std::int32_t from, std::int32_t to) {
    Splices splices;
    ForEventsOfRows(from, to, [&splices](std::size_t index) { TakeOut(splices, index); });
    return splices;
}

// The row behind the gap keeps its delay, counted from the row before the gap.
TimeShift GapOf(std::int32_t from, std::int32_t to) {
    if (to + 1 == static_cast<std::int32_t>(editState.RowIndex.size())) return {};
    const std::int64_t previousEnd = from == 0 ? 0 : Event_EndTime(from - 1);
    return {Event_I_Begin(to + 1), previousEnd - Event_EndTime(to)};
}

// --- changes of values ---

bool Continues(const Change& last, const Change& next) {
    if (last.index() != next.index()) return false;
    if (const auto* const text = std::get_if<KeyText>(&last)) return text->head == std::get<KeyText>(next).head;
    if (const auto* const wait = std::get_if<Wait>(&last)) return wait->event == std::get<Wait>(next).event;
    return std::holds_alternative<Description>(last);
}

bool ContinuesLastStep(const Change& change) {
    return history.runIsOpen && !history.undo.empty() && history.undo.back().changes.size() == 1 &&
           Continues(history.undo.back().changes.front(), change);
}

// What is typed into one field is one step, and goes back to what stood there at first.
void MakeStep(Change change, std::int32_t event, bool typed) {
    const bool continues = typed && ContinuesLastStep(change);
    Apply(change, Target::Both);
    history.runIsOpen = typed;
    if (continues) return;
    Step step;
    step.event = event;
    step.changes.push_back(std::move(change));
    Push(std::move(step));
}

void ApplyAll(Step& step, bool forward) {
    const Target target = step.structure ? Target::PristineEvents : Target::Both;
    if (step.structure) TakeBackTexts();
    if (!forward) std::reverse(step.changes.begin(), step.changes.end());
    for (Change& change : step.changes) Apply(change, target);
    if (!forward) std::reverse(step.changes.begin(), step.changes.end());
    if (!step.structure) return;
    FoldAfresh();
    if (forward) return;
    for (KeyText text : step.editedTexts) Apply(text, Target::Both);
}

std::int32_t Move(std::vector<Step>& from, std::vector<Step>& to, bool forward) {
    history.runIsOpen = false;
    if (from.empty()) return NoEvent;
    to.reserve(to.size() + 1);
    ApplyAll(from.back(), forward);
    to.push_back(std::move(from.back()));
    from.pop_back();
    return to.back().event;
}

std::int64_t LastStepId() {
    return history.undo.empty() ? 0 : history.undo.back().id;
}

// Nobody reads the string of a row that is stored as raw keys. It must not keep the job from being saved, as that of a
// key which was held for minutes would.
std::string StringToSave(const KeyRow& row, const JobEvent& head) {
    return head.dwType() == INPUT_TEXT ? row.Text : row.Text.substr(0, LongestString);
}

}  // namespace

void RemoveRows(std::int32_t from, std::int32_t to) {
    const std::int32_t first = Event_I_Begin(from);
    const TimeShift gap = GapOf(from, to);
    Step step = BeginStructure(gap, first);
    Make(step, EventsOfRows(from, to), Target::PristineEvents);
    EndStructure(std::move(step));
}

void InsertPiece(std::int32_t at, RecordedPiece piece, std::int64_t tailShift) {
    Step step = BeginStructure({at, tailShift}, at);
    const auto behind = [](auto& all, std::size_t kept) {
        if (all.size() > kept)
            all.erase(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(kept));
        else
            all.clear();
    };
    Tails tails{editState.Windows.size(), editState.Chains.size(), std::move(piece.windows), std::move(piece.chains)};
    behind(tails.windows, tails.windowsKept);
    behind(tails.chains, tails.chainsKept);
    Make(step, std::move(tails), Target::PristineEvents);
    Make(step, Splices{{at, {}, std::move(piece.events), {}, {}}}, Target::PristineEvents);
    EndStructure(std::move(step));
}

void ShiftTimes(const std::vector<TimeShift>& shifts) {
    if (!shifts.empty()) MakeStep(Shifts{shifts}, shifts.front().first, false);
}

void SetTimes(std::int32_t first, std::vector<std::int32_t> times, std::int64_t tailShift) {
    MakeStep(Times{first, std::move(times), tailShift}, first, false);
}

void SetWaitForWindow(std::int32_t event, std::int32_t seconds) {
    MakeStep(Wait{event, seconds}, event, true);
}

void SetIfNoWindow(std::int32_t first, std::int32_t last, std::uint8_t choice) {
    MakeStep(Choices{first, std::vector<std::uint8_t>(static_cast<std::size_t>(last - first) + 1, choice)}, first,
             false);
}

void SetKeyText(std::int32_t keyRow, const std::string& text) {
    const KeyRow& row = CheckedAt(editState.KeyRows, keyRow, "Keystroke row");
    if (row.Text != text) MakeStep(KeyText{row.FirstEvent, text}, row.FirstEvent, true);
}

void SetDescription(const std::string& text) {
    if (editState.header.Description != text) MakeStep(Description{text}, NoEvent, true);
}

void TextRunEnds() {
    history.runIsOpen = false;
}

bool CanUndo() {
    return !history.undo.empty();
}

bool CanRedo() {
    return !history.redo.empty();
}

std::int32_t UndoStep() {
    return Move(history.undo, history.redo, false);
}

std::int32_t RedoStep() {
    return Move(history.redo, history.undo, true);
}

bool IsAsSaved() {
    return LastStepId() == history.savedId;
}

void MarkAsSaved() {
    history.savedId = LastStepId();
    history.runIsOpen = false;
}

void BeginHistory() {
    history = {};
    editState.DroppedMoves.clear();  // no step takes them back
    RenumberStoredTexts();
}

void ForgetHistory() {
    history = {};
}

Job JobToSave(const JobHeader& header) {
    Job job;
    static_cast<JobHeader&>(job) = header;
    job.Events = editState.PristineEvents;
    ForEventsToStore([&job](std::size_t index) { job.Events[index] = editState.EditEvents[index]; });
    job.Strings.reserve(editState.KeyRows.size());
    for (const KeyRow& row : editState.KeyRows) {
        job.Strings.push_back(StringToSave(row, CheckedAt(job.Events, row.FirstEvent, "Event")));
    }
    job.Windows = editState.Windows;
    job.Chains = editState.Chains;
    return job;
}

std::vector<JobEvent> EventsToSaveOf(std::int32_t fromRow, std::int32_t toRow) {
    const Job job = JobToSave({});
    std::vector<JobEvent> events;
    ForEventsOfRows(fromRow, toRow, [&](std::size_t index) { events.push_back(job.Events[index]); });
    if (!events.empty()) AddToTimes(events, {{0, -static_cast<std::int64_t>(events.front().time())}}, 1);
    return events;
}
