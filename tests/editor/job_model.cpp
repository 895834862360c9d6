#include "editor/job_model.h"

#include <cmath>
#include <limits>
#include <utility>

#include "folding/fold.h"
#include "folding/puni_listu.h"

namespace {

bool IsText(const JobEvent& event) {
    return event.dwType() == INPUT_TEXT || event.dwType() == TextContinuation;
}

bool IsNotch(const JobEvent& event) {
    return event.dwType() == platform::InputMouse && event.dwFlags() == MouseFlagBase + platform::MouseWheel &&
           (event.mouseData() == 120 || event.mouseData() == -120);
}

bool IsMove(const JobEvent& event) {
    return event.dwType() == platform::InputMouse && event.dwFlags() == MoveFlags;
}

std::size_t At(std::int32_t index) {
    return static_cast<std::size_t>(index);
}

}  // namespace

JobModel::JobModel(const Job& file) : description(file.Description), windows(file.Windows), chains(file.Chains) {
    for (const JobEvent& event : file.Events) {
        events.push_back({event, event.time(), {}});
        if (event.dwType() == INPUT_TEXT) events.back().text = file.Strings[At(event.StringIndex() - 1)];
    }
    DropHiddenMoves();
}

Job JobModel::AsJob() const {
    Job job;
    job.Windows = windows;
    job.Chains = chains;
    for (const Event& each : events) {
        job.Events.push_back(each.event);
        job.Events.back().time() = static_cast<std::int32_t>(each.time);
        if (each.event.dwType() != INPUT_TEXT) continue;
        job.Strings.push_back(each.text);
        job.Events.back().StringIndex() = static_cast<std::int32_t>(job.Strings.size());
    }
    return job;
}

std::vector<ModelRow> JobModel::Fold() const {
    std::vector<ModelRow> rows;
    for (const ActionRow& row : FoldForReplay(AsJob())) {
        const bool isKeys = row.kind == KeystrokeActionRow;
        rows.push_back({row.firstEvent, row.lastEvent, isKeys, row.flags, row.text});
        if (isKeys) rows.back().text = events[At(row.firstEvent)].typed.value_or(row.text);
    }
    return rows;
}

std::int64_t JobModel::TimeAt(std::int32_t event) const {
    return events[At(event)].time;
}

const JobEvent& JobModel::FirstEventOf(std::int32_t row) const {
    return events[At(Rows()[At(row)].first)].event;
}

std::int64_t JobModel::DelayOf(std::int32_t row) const {
    const std::vector<ModelRow> rows = Rows();
    return TimeAt(rows[At(row)].first) - (row == 0 ? 0 : TimeAt(rows[At(row - 1)].last));
}

std::int64_t JobModel::DurationOf(std::int32_t row) const {
    const ModelRow found = Rows()[At(row)];
    return TimeAt(found.last) - TimeAt(found.first);
}

// The range of a row can hold events of others: a release of a button among keys.
bool JobModel::Belongs(const ModelRow& row, std::int32_t event) const {
    if (event < row.first || event > row.last) return false;
    const JobEvent& each = events[At(event)].event;
    const bool isMouse = each.dwType() == platform::InputMouse && !IsNotch(each);
    return isMouse != row.isKeys;
}

// Some keys fold into no row: a down without a window, an up that has one.
bool JobModel::IsPartOfText(const ModelRow& row, std::int32_t event) const {
    if (!row.isKeys || !Belongs(row, event)) return false;
    const JobEvent& each = events[At(event)].event;
    if (each.dwType() != platform::InputKeyboard) return true;
    return (each.KeyState() < platform::KeyUp) == (each.WindowChainIndex >= 0);
}

// A row that the user has edited; and one that begins with a stored text and goes on with raw keys.
bool JobModel::IsStoredAsText(const ModelRow& row) const {
    if (!row.isKeys) return false;
    const Event& head = events[At(row.first)];
    if (head.typed) return true;
    if (head.event.dwType() != INPUT_TEXT) return false;
    for (std::int32_t i = row.first; i <= row.last; ++i) {
        if (IsPartOfText(row, i) && !IsText(events[At(i)].event)) return true;
    }
    return false;
}

void JobModel::StoreAsText(const ModelRow& row) {
    for (std::int32_t i = row.first; i <= row.last; ++i) {
        if (!IsPartOfText(row, i)) continue;
        Event& each = events[At(i)];
        each.event.dwType() = i == row.first ? INPUT_TEXT : TextContinuation;
        each.text = i == row.first ? row.text : "";
        each.typed.reset();
    }
    folded.reset();
}

void JobModel::StoreTexts() {
    const JobModel before = *this;
    for (const ModelRow& row : Rows()) {
        if (before.IsStoredAsText(row)) StoreAsText(row);
    }
}

// Until a pass finds none: moves between the first and the last event of a keystroke row.
void JobModel::DropHiddenMoves() {
    for (bool found = true; found;) {
        std::vector<bool> hidden(events.size());
        for (const ModelRow& row : Rows()) {
            for (std::int32_t i = row.first + 1; row.isKeys && i < row.last; ++i) {
                hidden[At(i)] = IsMove(events[At(i)].event);
            }
        }
        std::vector<Event> left;
        for (std::size_t i = 0; i < events.size(); ++i) {
            if (!hidden[i]) left.push_back(events[i]);
        }
        found = left.size() < events.size();
        events = std::move(left);
        folded.reset();
    }
}

std::vector<JobEvent> JobModel::Folded() const {
    JobModel all = *this;
    for (const ModelRow& row : Rows()) {
        if (row.isKeys) all.StoreAsText(row);
    }
    return all.Saved().Events;
}

Job JobModel::Saved() const {
    JobModel stored = *this;
    stored.StoreTexts();
    Job job = stored.AsJob();
    job.Strings.clear();
    for (const ModelRow& row : Rows()) {
        if (!row.isKeys) continue;
        job.Strings.push_back(row.text);
        for (std::int32_t i = row.first; i <= row.last; ++i) {
            JobEvent& event = job.Events[At(i)];
            if (IsText(event)) event.StringIndex() = static_cast<std::int32_t>(job.Strings.size());
        }
    }
    return job;
}

std::optional<bool> JobModel::IfTimesFit(bool isStep) const {
    for (const Event& each : events) {
        if (each.time < std::numeric_limits<std::int32_t>::min()) return std::nullopt;
        if (each.time > std::numeric_limits<std::int32_t>::max()) return std::nullopt;
    }
    return isStep;
}

std::optional<bool> JobModel::Remove(std::int32_t from, std::int32_t to) {
    const std::vector<ModelRow> rows = Rows();
    const std::vector<Event> before = events;
    if (to + 1 < static_cast<std::int32_t>(rows.size())) {
        const std::int64_t previousEnd = from == 0 ? 0 : TimeAt(rows[At(from - 1)].last);
        const std::int32_t next = rows[At(to + 1)].first;
        const std::int64_t shift = TimeAt(next) - previousEnd - DelayOf(to + 1);
        for (std::int32_t i = next; i < EventCount(); ++i) events[At(i)].time -= shift;
    }
    if (!IfTimesFit(true)) return std::nullopt;
    StoreTexts();
    std::vector<Event> left;
    for (std::int32_t i = 0; i < EventCount(); ++i) {
        bool goes = false;
        for (std::int32_t row = from; row <= to; ++row) goes = goes || Belongs(rows[At(row)], i);
        if (!goes) left.push_back(events[At(i)]);
    }
    events = std::move(left);
    folded.reset();
    DropHiddenMoves();
    return true;
}

std::optional<bool> JobModel::SetDelays(std::int32_t from, std::int32_t to, std::int32_t value) {
    bool isStep = false;
    const std::vector<ModelRow> rows = Rows();
    for (std::int32_t row = from; row <= to; ++row) {
        const std::int64_t previousEnd = row == 0 ? 0 : TimeAt(rows[At(row - 1)].last);
        const std::int64_t shift = value - (TimeAt(rows[At(row)].first) - previousEnd);
        isStep = isStep || shift != 0;
        for (std::int32_t i = rows[At(row)].first; i < EventCount(); ++i) events[At(i)].time += shift;
    }
    return IfTimesFit(isStep);
}

std::optional<bool> JobModel::SetDurations(std::int32_t from, std::int32_t to, std::int32_t value) {
    bool isStep = false;
    const std::vector<ModelRow> rows = Rows();
    for (std::int32_t row = from; row <= to; ++row) {
        const auto [first, last] = std::pair(rows[At(row)].first, rows[At(row)].last);
        const std::int64_t start = TimeAt(first);
        const std::int64_t old = TimeAt(last) - start;
        if (first == last || old == value) continue;
        isStep = true;
        for (std::int32_t i = first + 1; i <= last; ++i) {
            const double share = old == 0 ? static_cast<double>(i - first) / static_cast<double>(last - first)
                                          : static_cast<double>(TimeAt(i) - start) / static_cast<double>(old);
            events[At(i)].time = std::llrint(static_cast<double>(start) + value * share);
        }
        for (std::int32_t i = last + 1; i < EventCount(); ++i) events[At(i)].time += value - old;
    }
    return IfTimesFit(isStep);
}

bool JobModel::SetWait(std::int32_t row, std::int32_t seconds) {
    JobEvent& event = events[At(Rows()[At(row)].first)].event;
    return event.WindowChainIndex >= 0 && std::exchange(event.WaitForWindow, seconds) != seconds;
}

bool JobModel::SetIfNoWindow(std::int32_t row, std::uint8_t choice) {
    const ModelRow found = Rows()[At(row)];
    const JobEvent& head = events[At(found.first)].event;
    if (head.WindowChainIndex < 0 || head.IfNoWindow == choice) return false;
    for (std::int32_t i = found.first; i <= found.last; ++i) events[At(i)].event.IfNoWindow = choice;
    return true;
}

// A text that is typed back to what it was counts as not edited.
bool JobModel::SetText(std::int32_t row, const std::string& text) {
    const ModelRow found = Rows()[At(row)];
    if (found.text == text) return false;
    std::optional<std::string>& typed = events[At(found.first)].typed;
    typed.reset();
    folded.reset();
    if (Rows()[At(row)].text != text) typed = text;
    folded.reset();
    return true;
}

JobModel::Place JobModel::PlaceBeside(std::int32_t row, bool above) const {
    const std::vector<ModelRow> rows = Rows();
    if (rows.empty()) return {};
    const std::int32_t at = above ? rows[At(row)].first : rows[At(row)].last + 1;
    const bool isLast = row + 1 == static_cast<std::int32_t>(rows.size());
    // A row inside of the range of another can end with it.
    if ((isLast && !above) || at == EventCount()) return {EventCount(), events.back().time + DurationOf(row), true};
    return {at, TimeAt(at), false};
}

std::optional<bool> JobModel::Insert(const Place& place, const Job& piece) {
    const std::int64_t before = place.at == 0 || Rows().empty() ? 0 : TimeAt(place.at - 1);
    StoreTexts();
    std::vector<Event> joined(events.begin(), events.begin() + place.at);
    for (const JobEvent& event : piece.Events) joined.push_back({event, event.time(), {}});
    for (std::int32_t i = place.at; i < EventCount(); ++i) {
        joined.push_back(events[At(i)]);
        joined.back().time += piece.Events.back().time() - before;
    }
    events = std::move(joined);
    folded.reset();
    windows = piece.Windows;
    chains = piece.Chains;
    if (!IfTimesFit(true)) return std::nullopt;
    DropHiddenMoves();
    return true;
}
