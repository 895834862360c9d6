#include "editor/event_splices.h"

#include <algorithm>
#include <utility>

namespace {

std::ptrdiff_t Count(const std::vector<JobEvent>& events) {
    return static_cast<std::ptrdiff_t>(events.size());
}

std::ptrdiff_t Growth(const Splices& splices) {
    std::ptrdiff_t growth = 0;
    for (const Splice& splice : splices) growth += Count(splice.in) - Count(splice.out);
    return growth;
}

// The events that no splice touches, behind each of them, move down to where they end up when nothing comes in.
void CloseGaps(std::vector<JobEvent>& events, const Splices& splices) {
    if (splices.empty()) return;
    auto to = events.begin() + splices.front().first;
    for (std::size_t i = 0; i < splices.size(); ++i) {
        const auto from = events.begin() + splices[i].first + Count(splices[i].out);
        const auto end = i + 1 < splices.size() ? events.begin() + splices[i + 1].first : events.end();
        to = std::move(from, end, to);
    }
    events.erase(to, events.end());
}

// From the last to the first: what stands behind each place moves up, and the events come in.
void OpenGaps(std::vector<JobEvent>& events, const Splices& splices, std::ptrdiff_t coming) {
    auto end = events.end() - events.begin();
    events.resize(events.size() + static_cast<std::size_t>(coming));
    std::ptrdiff_t to = Count(events);
    std::ptrdiff_t gone = 0;
    for (const Splice& splice : splices) gone += Count(splice.out);
    for (auto splice = splices.rbegin(); splice != splices.rend(); ++splice) {
        gone -= Count(splice->out);
        const std::ptrdiff_t place = splice->first - gone;
        std::move_backward(events.begin() + place, events.begin() + end, events.begin() + to);
        to -= end - place;
        end = place;
        std::copy_backward(splice->in.begin(), splice->in.end(), events.begin() + to);
        to -= Count(splice->in);
    }
}

// Stored texts are found by their place in `strings`; the fold that follows gives them their final numbers.
void PlaceTexts(Splice& splice, std::vector<std::string>& strings) {
    auto text = splice.inTexts.begin();
    for (JobEvent& event : splice.in) {
        if (event.dwType() != INPUT_TEXT || text == splice.inTexts.end()) continue;
        strings.push_back(*text++);
        event.StringIndex() = static_cast<std::int32_t>(strings.size());
    }
}

void TurnAround(Splices& splices) {
    std::ptrdiff_t growth = 0;
    for (Splice& splice : splices) {
        splice.first += static_cast<std::int32_t>(growth);
        growth += Count(splice.in) - Count(splice.out);
        std::swap(splice.in, splice.out);
        std::swap(splice.inTexts, splice.outTexts);
    }
}

}  // namespace

void Apply(std::vector<JobEvent>& events, std::vector<std::string>& strings, Splices& splices) {
    std::ptrdiff_t coming = 0;
    for (const Splice& splice : splices) coming += Count(splice.in);
    if (const std::ptrdiff_t growth = Growth(splices); growth > 0) {
        events.reserve(events.size() + static_cast<std::size_t>(growth));
    }
    for (Splice& splice : splices) PlaceTexts(splice, strings);
    CloseGaps(events, splices);
    if (coming > 0) OpenGaps(events, splices, coming);
    TurnAround(splices);
}
