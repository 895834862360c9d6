#include "editor/row_edits.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>
#include <vector>

#include "base/arithmetic.h"
#include "base/product.h"
#include "base/runtime_failure.h"
#include "dictionary/dictionary.h"
#include "editor/edit_view.h"
#include "editor/job_changes.h"
#include "editor/keystroke_box.h"
#include "folding/grid_rows.h"
#include "folding/popuni_listu.h"
#include "folding/row_texts.h"
#include "platform/boxes.h"
#include "platform/pump.h"
#include "widgets/typed_number.h"

EditSelection editSelection;
EventPane eventPane;

namespace {

constexpr std::int32_t WheelNotch = 120;

// Save was to be enabled, although the change was none.
bool touched = false;

void ClampSelection() {
    const std::int32_t last = std::max(0, RowCount() - 1);
    editSelection.Row = std::clamp(editSelection.Row, 0, last);
    editSelection.RowSel = std::clamp(editSelection.RowSel, 0, last);
}

std::int32_t In32Bits(std::int64_t value) {
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(value, std::numeric_limits<std::int32_t>::min(),
                                                              std::numeric_limits<std::int32_t>::max()));
}

// --- the pane ---

// The value that all rows of the selection agree on, or an empty text. One walk for each field, which ends where two
// rows differ.
template <class Value>
std::string CommonValue(std::int32_t from, std::int32_t to, Value value) {
    const std::int64_t first = value(from);
    for (std::int32_t row = from + 1; row <= to; ++row) {
        if (value(row) != first) return "";
    }
    return std::to_string(first);
}

void FillTimingFields() {
    std::int32_t from = 0;
    std::int32_t to = 0;
    GetOdkudDokud(from, to);
    eventPane.pickersEnabled = true;
    eventPane.delay_mk = CommonValue(from, to, DelayOf);
    eventPane.duration_mk = CommonValue(from, to, DurationOf);
    eventPane.delay_set = !eventPane.delay_mk.empty();
    eventPane.duration_set = !eventPane.duration_mk.empty();
}

void EmptyTimingFields() {
    eventPane.delay_mk.clear();
    eventPane.duration_mk.clear();
    eventPane.pickersEnabled = eventPane.delay_set = eventPane.duration_set = false;
}

// One row with a window: its window, how long to wait for it, and what to do without it.
void FillTargetFields(std::int32_t row) {
    const JobEvent& event = EditEventAt(EventsOfRow(row).first);
    std::int32_t chain = event.WindowChainIndex;
    eventPane.targetApplies = true;
    eventPane.wait_for_window_ms = event.WaitForWindow;
    eventPane.if_no_window = event.IfNoWindow <= ExecuteAnyway ? event.IfNoWindow : -1;
    eventPane.wait_for_window_text = WindowNameiElement(chain);
}

void GreyTargetFields() {
    eventPane.targetApplies = false;
    eventPane.wait_for_window_ms = 0;
    eventPane.if_no_window = 0;
    eventPane.wait_for_window_text.clear();
}

void FillPane() {
    if (RowCount() == 0) {
        GreyTargetFields();
        eventPane.Label6.clear();
        eventPane.Label7.clear();
        return KeystrokesEnabled(false);
    }
    std::int32_t from = 0;
    std::int32_t to = 0;
    GetOdkudDokud(from, to);
    const std::int32_t row = editSelection.Row;
    const EventRange events = EventsOfRow(row);
    if (from != to || EditEventAt(events.first).WindowChainIndex < 0) {
        GreyTargetFields();
    } else {
        FillTargetFields(row);
    }
    eventPane.Label6 = std::to_string(events.first);
    eventPane.Label7 = std::to_string(events.last);
    if (KindOfRow(row) == KeyRowKind) {
        ShowKeystrokeRow(editState.RowIndex[static_cast<std::size_t>(row)]);
    } else {
        KeystrokesEnabled(false);
    }
}

bool OneRowIsSelected() {
    return RowCount() > 0 && editSelection.Row == editSelection.RowSel;
}

// --- delay ---

// The shifts that give each row this delay. A row takes all rows behind it along, so the delay of a row is the same
// before and after the shifts of the rows above it, and one walk finds them all.
std::vector<TimeShift> ShiftsForDelays(std::int32_t from, std::int32_t to, std::int32_t value) {
    std::vector<TimeShift> shifts;
    for (std::int32_t row = from; row <= to; ++row) {
        const std::int64_t shift = value - DelayOf(row);
        if (shift != 0) shifts.push_back({EventsOfRow(row).first, shift});
    }
    return shifts;
}

// --- duration ---

// New times of a block of events, row by row. Behind the events that rows have changed so far, all have moved by one
// shift, which waits until a row comes there.
class DurationEdit {
public:
    explicit DurationEdit(std::int32_t firstEvent) : first(firstEvent) {}

    void SetDuration(const EventRange& row, std::int32_t value);

    bool Changes() const { return changed; }
    std::int64_t TailShift() const { return shift; }
    std::vector<std::int32_t> Result() const;

private:
    std::int64_t& At(std::int32_t event) { return times[static_cast<std::size_t>(event - first)]; }
    void TakeUpTo(std::int32_t event);

    const std::int32_t first;
    std::vector<std::int64_t> times;
    std::int64_t shift = 0;
    bool changed = false;
};

void DurationEdit::TakeUpTo(std::int32_t event) {
    for (auto i = first + static_cast<std::int32_t>(times.size()); i <= event; ++i) {
        times.push_back(EditEventAt(i).time() + shift);
    }
}

void DurationEdit::SetDuration(const EventRange& row, std::int32_t value) {
    if (row.first == row.last) return;
    TakeUpTo(row.last);
    const std::int64_t start = At(row.first);
    const std::int64_t old = At(row.last) - start;
    if (old == value) return;
    const auto followers = static_cast<double>(row.last - row.first);
    for (std::int32_t i = row.first + 1; i <= row.last; ++i) {
        // Events that shared one moment are spread evenly: they have no proportion to keep.
        const double ratio =
            old == 0 ? (i - row.first) / followers : static_cast<double>(At(i) - start) / static_cast<double>(old);
        // To the nearest whole number, halves to the even one.
        At(i) = static_cast<std::int64_t>(std::nearbyint(static_cast<double>(start) + value * ratio));
    }
    const std::int64_t more = value - old;
    for (auto i = static_cast<std::size_t>(row.last + 1 - first); i < times.size(); ++i) times[i] += more;
    shift += more;
    changed = true;
}

std::vector<std::int32_t> DurationEdit::Result() const {
    std::vector<std::int32_t> result;
    result.reserve(times.size());
    for (const std::int64_t time : times) result.push_back(RoundHalfEven(static_cast<double>(time)));
    return result;
}

// --- what both buttons do ---

// The number in a picker. It keeps to its range, so what it holds fits.
std::int32_t ValueOf(const std::string& text) {
    return In32Bits(TypedNumber(text).value_or(0));
}

void SetForSelection(void (*set)(std::int32_t from, std::int32_t to, std::int32_t value), const std::string& text) {
    if (RowCount() == 0) return;
    std::int32_t from = 0;
    std::int32_t to = 0;
    GetOdkudDokud(from, to);
    set(from, to, ValueOf(text));
    touched = true;
    FillTimingFields();
    edit_view::RepaintRows();
}

void ShowStep(std::int32_t event) {
    touched = false;
    if (event == NoEvent) return RowsHaveChanged(editSelection.Row, editSelection.RowSel);
    SelectRowAtEvent(event);
}

}  // namespace

void GetOdkudDokud(std::int32_t& from, std::int32_t& to) {
    from = std::min(editSelection.Row, editSelection.RowSel);
    to = std::max(editSelection.Row, editSelection.RowSel);
}

bool SaveIsEnabled() {
    return touched || !IsAsSaved();
}

void SaveWasDone() {
    touched = false;
    MarkAsSaved();
}

void SelectRows(std::int32_t row, std::int32_t rowSel) {
    TextRunEnds();
    editSelection = {row, rowSel};
    ClampSelection();
    FillPane();
    grid_mouseDown();
}

void grid_mouseDown() {
    if (RowCount() == 0) {
        EmptyTimingFields();
        KeystrokesEnabled(false);
    } else {
        FillTimingFields();
    }
    edit_view::Refresh();
}

void delete_event() {
    if (RowCount() == 0) return;
    // The text of the dictionary ends in a question mark already.
    if (!platform::AskYesNo(Translate("Are you sure you want to delete this event(s)?") + "?",
                            Translate("Delete event(s)"))) {
        return;
    }
    std::int32_t from = 0;
    std::int32_t to = 0;
    GetOdkudDokud(from, to);
    for (std::int32_t row = from; row <= to; ++row) {
        if (KindOfRow(row) == MouseRowKind || KindOfRow(row) == KeyRowKind) continue;
        return platform::ShowBox("Unknown GridType!", ProductName);
    }
    RemoveRows(from, to);
    platform::Pump();
    RowsHaveChanged(from, from);
}

void DelayTyped(const std::string& text) {
    eventPane.delay_mk = text;
    if (!text.empty()) eventPane.delay_set = true;
}

void DurationTyped(const std::string& text) {
    eventPane.duration_mk = text;
    if (!text.empty()) eventPane.duration_set = true;
}

void delay_set_Click() {
    SetForSelection(SetNewDelay, eventPane.delay_mk);
    eventPane.delay_set = false;
    edit_view::Refresh();
}

void duration_set_Click() {
    SetForSelection(SetNewDuration, eventPane.duration_mk);
    eventPane.duration_set = false;
    edit_view::Refresh();
}

void SetNewDelay(std::int32_t from, std::int32_t to, std::int32_t value) {
    ShiftTimes(ShiftsForDelays(from, to, value));
}

void SetNewDuration(std::int32_t from, std::int32_t to, std::int32_t value) {
    DurationEdit edit(EventsOfRow(from).first);
    for (std::int32_t row = from; row <= to; ++row) edit.SetDuration(EventsOfRow(row), value);
    if (edit.Changes()) SetTimes(EventsOfRow(from).first, edit.Result(), edit.TailShift());
}

void WaitForWindowChanged(std::int32_t seconds) {
    if (!OneRowIsSelected() || !eventPane.targetApplies || eventPane.wait_for_window_ms == seconds) return;
    eventPane.wait_for_window_ms = seconds;
    SetWaitForWindow(EventsOfRow(editSelection.Row).first, seconds);
    edit_view::Refresh();
}

void IfNoWindowChanged(std::int32_t place) {
    if (!OneRowIsSelected() || !eventPane.targetApplies || eventPane.if_no_window == place) return;
    if (place < StopExecuting || place > ExecuteAnyway) return;
    const EventRange events = EventsOfRow(editSelection.Row);
    eventPane.if_no_window = place;
    SetIfNoWindow(events.first, events.last, static_cast<std::uint8_t>(place));
    edit_view::Refresh();
}

std::int32_t Scrollaj(std::int32_t delta, std::int32_t topRow, bool lastRowVisible) {
    constexpr std::int32_t HeaderRow = 1;
    if (RowCount() + HeaderRow < 3) return topRow;
    if (delta == WheelNotch && topRow + HeaderRow >= 2) return topRow - 1;
    if (delta == -WheelNotch && !lastRowVisible) return topRow + 1;
    return topRow;
}

void Undo() {
    if (CanUndo()) ShowStep(UndoStep());
}

void Redo() {
    if (CanRedo()) ShowStep(RedoStep());
}

void SelectRowAtEvent(std::int32_t event) {
    const std::int32_t row = RowAtEvent(event);
    RowsHaveChanged(row, row);
}

void RowsHaveChanged(std::int32_t selectFrom, std::int32_t selectTo) {
    editSelection = {selectFrom, selectTo};
    ClampSelection();
    FillPane();
    edit_view::ShowRows();
    grid_mouseDown();
}
