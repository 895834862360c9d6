#include "editor/insert_recording.h"

#include <string>
#include <utility>

#include "base/product.h"
#include "dictionary/dictionary.h"
#include "editor/edit_view.h"
#include "editor/job_changes.h"
#include "editor/row_edits.h"
#include "folding/grid_rows.h"
#include "folding/popuni_listu.h"
#include "folding/row_texts.h"
#include "platform/boxes.h"
#include "platform/clock.h"
#include "recording/recording_session.h"

namespace {

std::int32_t insertAt = 0;  // event index of the first new event

std::int32_t EventCount() {
    return static_cast<std::int32_t>(editState.EditEvents.size());
}

std::int64_t TimeAt(std::int32_t event) {
    return EditEventAt(event).time();
}

// Sets where the piece goes, and returns the time at which it begins.
std::int64_t PlaceAtEnd(std::int32_t row) {
    insertAt = EventCount();
    // The last row's duration counts twice, being in the time of the last event already: the piece begins that much
    // later, which gives what the last row has set off the time to finish.
    return TimeAt(EventCount() - 1) + GetEventDuration(row);
}

std::int64_t PlaceAtRow(std::int32_t row, bool above) {
    const std::int32_t place = above ? EventsOfRow(row).first : EventsOfRow(row).last + 1;
    if ((row == RowCount() - 1 && !above) || place >= EventCount()) return PlaceAtEnd(row);
    insertAt = place;
    return TimeAt(place);
}

// The tail keeps its distance from what is before it, counted from the end of the piece; before the first event the
// time is 0. Behind the last one there is no tail.
std::int64_t ShiftOfTail(const std::vector<JobEvent>& piece) {
    return piece.back().time() - (insertAt == 0 ? 0 : TimeAt(insertAt - 1));
}

bool IsRowToInsertAt(std::int32_t rowIndex) {
    const std::int32_t kind = KindOfRow(rowIndex);
    if (kind == MouseRowKind || kind == KeyRowKind) return true;
    platform::ShowBox("Unknown GridIndex!", ProductName);
    return false;
}

}  // namespace

void start_recording_above() {
    if (RowCount() == 0) return InsertRecording(0, true, false);
    InsertRecording(editSelection.Row, false, true);
}

void start_recording_below() {
    if (RowCount() == 0) return InsertRecording(0, true, false);
    InsertRecording(editSelection.Row, false, false);
}

void InsertRecording(std::int32_t rowIndex, bool empty, bool above) {
    if (!platform::AskOkCancel(Translate("Click OK when you are ready to start recording"),
                               Translate("Insert commands"), platform::BoxIcon::Information)) {
        return;
    }
    if (rowIndex < 0 || rowIndex >= RowCount()) {
        if (RowCount() > 0) {
            return platform::ShowBox("Krivi index selekcije!: " + std::to_string(rowIndex), ProductName);
        }
        empty = true;
    } else if (!IsRowToInsertAt(rowIndex)) {
        return;
    }
    insertAt = 0;
    const std::int64_t base = empty ? 0 : PlaceAtRow(rowIndex, above);
    StartInsertRecording(platform::TickCount() - base, editState.Windows, editState.Chains);
}

void ZavrsiUmetanjeSnimanjem() {
    edit_view::BringBack();
    Job piece = RecordedJob();
    if (piece.Events.empty()) return;
    const std::int64_t shift = ShiftOfTail(piece.Events);
    InsertPiece(insertAt, {std::move(piece.Events), std::move(piece.Windows), std::move(piece.Chains)}, shift);
    SelectRowAtEvent(insertAt);
}
