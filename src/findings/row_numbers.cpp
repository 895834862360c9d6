#include "findings/row_numbers.h"

#include <algorithm>

std::int32_t RowNumbers::FirstEventOf(std::int32_t row) const {
    const FoldedRows& rows = fold.Rows();
    const auto index = static_cast<std::size_t>(rows.RowIndex[static_cast<std::size_t>(row)]);
    const bool mouse = rows.RowKind[static_cast<std::size_t>(row)] == MouseRowKind;
    const std::int32_t first = mouse ? rows.MouseRows[index].FirstEvent : rows.KeyRows[index].FirstEvent;
    return fold.PlaceOf(first);
}

std::int32_t RowNumbers::RowOf(std::int32_t event) const {
    std::int32_t first = 0;
    std::int32_t count = static_cast<std::int32_t>(fold.Rows().RowIndex.size());
    while (count > 0) {
        const std::int32_t half = count / 2;
        if (FirstEventOf(first + half) <= event) {
            first += half + 1;
            count -= half + 1;
        } else {
            count = half;
        }
    }
    return std::max(first - 1, fold.Rows().RowIndex.empty() ? -1 : 0);
}

bool RowNumbers::IsMoveRow(std::int32_t row) const {
    const FoldedRows& rows = fold.Rows();
    return rows.RowKind[static_cast<std::size_t>(row)] == MouseRowKind &&
           rows.MouseRows[static_cast<std::size_t>(rows.RowIndex[static_cast<std::size_t>(row)])].Flags == MoveFlags;
}

std::int32_t RowNumbers::NumberOf(std::int32_t event) const {
    const std::int32_t row = RowOf(event);
    if (row < 0) return 0;
    const std::vector<std::int32_t>& numbers = fold.Rows().RowNumber;
    const std::int32_t number = numbers[static_cast<std::size_t>(row)];
    return IsMoveRow(row) ? std::min(number + 1, numbers.back()) : number;
}
