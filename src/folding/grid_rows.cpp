#include "folding/grid_rows.h"

#include <algorithm>

#include "base/runtime_failure.h"
#include "folding/popuni_listu.h"

std::int32_t RowCount() {
    return static_cast<std::int32_t>(editState.RowIndex.size());
}

std::int32_t KindOfRow(std::int32_t row) {
    return CheckedAt(editState.RowKind, row, "Row");
}

EventRange EventsOfRow(std::int32_t row) {
    const std::int32_t index = CheckedAt(editState.RowIndex, row, "Row");
    if (KindOfRow(row) == KeyRowKind) {
        const KeyRow& keys = CheckedAt(editState.KeyRows, index, "Keystroke row");
        return {keys.FirstEvent, keys.LastEvent};
    }
    const MouseRow& mouse = CheckedAt(editState.MouseRows, index, "Mouse row");
    return {mouse.FirstEvent, mouse.LastEvent};
}

std::int32_t KeyRowOf(std::int32_t row) {
    return KindOfRow(row) == KeyRowKind ? CheckedAt(editState.RowIndex, row, "Row") : -1;
}

const JobEvent& EditEventAt(std::int32_t event) {
    return CheckedAt(editState.EditEvents, event, "Event");
}

std::int32_t RowAtEvent(std::int32_t event) {
    std::int32_t low = 0;
    std::int32_t high = RowCount();
    while (low < high) {
        const std::int32_t middle = low + (high - low) / 2;
        if (EventsOfRow(middle).first <= event) {
            low = middle + 1;
        } else {
            high = middle;
        }
    }
    return std::max(0, low - 1);
}
