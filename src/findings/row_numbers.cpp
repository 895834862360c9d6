#include "findings/row_numbers.h"

#include <algorithm>
#include <numeric>

RowNumbers::RowNumbers(const Job& job, bool isWhole) {
    if (isWhole) {
        FoldEvents({job.Events, job.Strings, job.Windows, job.Chains}, rows, nullptr);
    } else {
        FoldCopy(job);
    }
    while (DropHiddenMoves(job)) FoldCopy(job);
    BuildRowOrder(rows);
}

void RowNumbers::FoldCopy(const Job& job) {
    ClearRows(rows);
    CopyEvents(job);
    FoldEvents({events, job.Strings, job.Windows, job.Chains}, rows, &events);
}

void RowNumbers::CopyEvents(const Job& job) {
    events.clear();
    if (places.empty()) events = job.Events;
    events.reserve(places.size());
    for (const std::int32_t place : places) events.push_back(job.Events[static_cast<std::size_t>(place)]);
    PassOverUnknownEvents(events);
}

// True when there were some.
bool RowNumbers::DropHiddenMoves(const Job& job) {
    const std::vector<std::size_t> hidden = HiddenMoves(rows, events.empty() ? job.Events : events);
    if (hidden.empty()) return false;
    if (places.empty()) {
        places.resize(job.Events.size());
        std::iota(places.begin(), places.end(), 0);
    }
    std::size_t left = hidden.front();
    auto next = hidden.begin();
    for (std::size_t i = left; i < places.size(); ++i) {
        if (next != hidden.end() && i == *next) {
            ++next;
        } else {
            places[left++] = places[i];
        }
    }
    places.resize(left);
    return true;
}

std::int32_t RowNumbers::FirstEventOf(std::int32_t row) const {
    const auto index = static_cast<std::size_t>(rows.RowIndex[static_cast<std::size_t>(row)]);
    const bool mouse = rows.RowKind[static_cast<std::size_t>(row)] == MouseRowKind;
    const std::int32_t first = mouse ? rows.MouseRows[index].FirstEvent : rows.KeyRows[index].FirstEvent;
    return places.empty() ? first : places[static_cast<std::size_t>(first)];
}

std::int32_t RowNumbers::RowOf(std::int32_t event) const {
    std::int32_t first = 0;
    std::int32_t count = static_cast<std::int32_t>(rows.RowIndex.size());
    while (count > 0) {
        const std::int32_t half = count / 2;
        if (FirstEventOf(first + half) <= event) {
            first += half + 1;
            count -= half + 1;
        } else {
            count = half;
        }
    }
    return std::max(first - 1, rows.RowIndex.empty() ? -1 : 0);
}

bool RowNumbers::IsMoveRow(std::int32_t row) const {
    return rows.RowKind[static_cast<std::size_t>(row)] == MouseRowKind &&
           rows.MouseRows[static_cast<std::size_t>(rows.RowIndex[static_cast<std::size_t>(row)])].Flags == MoveFlags;
}

std::int32_t RowNumbers::NumberOf(std::int32_t event) const {
    const std::int32_t row = RowOf(event);
    if (row < 0) return 0;
    const std::int32_t number = rows.RowNumber[static_cast<std::size_t>(row)];
    return IsMoveRow(row) ? std::min(number + 1, rows.RowNumber.back()) : number;
}
