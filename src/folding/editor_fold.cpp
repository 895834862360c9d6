#include "folding/editor_fold.h"

#include <numeric>

EditorFold::EditorFold(const Job& job, bool isWhole) {
    if (isWhole) {
        FoldEvents({job.Events, job.Strings, job.Windows, job.Chains}, rows, nullptr);
    } else {
        FoldCopy(job);
    }
    while (DropHiddenMoves(job)) FoldCopy(job);
    BuildRowOrder(rows);
}

void EditorFold::FoldCopy(const Job& job) {
    ClearRows(rows);
    if (isAll) {
        events = job.Events;
    } else {
        events.clear();
        events.reserve(places.size());
        for (const std::int32_t place : places) events.push_back(job.Events[static_cast<std::size_t>(place)]);
    }
    PassOverUnknownEvents(events);
    FoldEvents({events, job.Strings, job.Windows, job.Chains}, rows, &events);
}

// True when there were some.
bool EditorFold::DropHiddenMoves(const Job& job) {
    const std::vector<std::size_t> hidden = HiddenMoves(rows, events.empty() ? job.Events : events);
    if (hidden.empty()) return false;
    if (isAll) {
        places.resize(job.Events.size());
        std::iota(places.begin(), places.end(), 0);
        isAll = false;
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
