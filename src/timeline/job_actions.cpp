#include "timeline/job_actions.h"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>

#include "folding/editor_fold.h"
#include "jobs/event_targets.h"

namespace {

constexpr std::size_t NoLane = static_cast<std::size_t>(-1);

ActionKind KindOf(const MouseRow& row) {
    const bool whole = row.LastEvent > row.FirstEvent;
    switch (row.Flags) {
        case MoveFlags:
            return ActionKind::Moves;
        case DoubleClickFlags:
            return ActionKind::DoubleClick;
        case MouseFlagBase + platform::MouseWheel:
            return ActionKind::Wheel;
        case MouseFlagBase + platform::MouseLeftDown:
            return whole ? ActionKind::LeftClick : ActionKind::Press;
        case MouseFlagBase + platform::MouseRightDown:
            return whole ? ActionKind::RightClick : ActionKind::Press;
        case MouseFlagBase + platform::MouseMiddleDown:
        case MouseFlagBase + platform::MouseXDown:
            return whole ? ActionKind::OtherClick : ActionKind::Press;
        default:
            return ActionKind::Release;
    }
}

std::string NameOf(const WindowSignature& window) {
    if (IsDesktop(window)) return "Desktop";
    if (window.ClassName == "#32768") return "(menu)";
    return window.Caption.empty() ? "(" + window.ClassName + ")" : window.Caption;
}

class Reader {
public:
    explicit Reader(const Job& readJob) : job(readJob), fold(readJob) {}

    JobActions Read();

private:
    void Add(Action action, std::int32_t first, std::int32_t last, std::int32_t chain);
    const JobEvent& EventOf(std::int32_t event) const {
        return job.Events[static_cast<std::size_t>(fold.PlaceOf(event))];
    }
    void AddKeys(const KeyRow& row, std::int32_t number);
    void AddMouse(const MouseRow& row, std::int32_t number);
    std::size_t LaneOf(std::int32_t chain);
    std::size_t NewLane(const WindowSignature* window);
    void GiveLanesToMoves();
    void ReadPath();

    const Job& job;
    const EditorFold fold;
    JobActions read;
    std::map<std::pair<std::string, std::string>, std::size_t> laneByWindow;
    std::vector<std::size_t> laneByChain;
    std::optional<std::size_t> laneWithoutWindow;
    std::int64_t time = 0;
};

JobActions Reader::Read() {
    const FoldedRows& rows = fold.Rows();
    laneByChain.assign(job.Chains.size(), NoLane);
    read.actions.reserve(rows.RowIndex.size());
    for (std::size_t i = 0; i < rows.RowIndex.size(); ++i) {
        const auto index = static_cast<std::size_t>(rows.RowIndex[i]);
        if (rows.RowKind[i] == KeyRowKind) {
            AddKeys(rows.KeyRows[index], rows.RowNumber[i]);
        } else {
            AddMouse(rows.MouseRows[index], rows.RowNumber[i]);
        }
    }
    read.rows = rows.RowNumber.empty() ? 0 : rows.RowNumber.back();
    GiveLanesToMoves();
    ReadPath();
    read.windows = laneByWindow.size();
    return std::move(read);
}

void Reader::AddKeys(const KeyRow& row, std::int32_t number) {
    Action action;
    action.kind = row.Text.starts_with("{WHEEL") ? ActionKind::Wheel : ActionKind::Typing;
    action.number = number;
    action.text = row.Text;
    Add(std::move(action), row.FirstEvent, row.LastEvent, row.WindowChainIndex);
}

void Reader::AddMouse(const MouseRow& row, std::int32_t number) {
    Action action;
    action.kind = KindOf(row);
    action.number = number;
    action.place = {row.X, row.Y};
    action.hasPlace = !IsWithoutPlaceAndTime(EventOf(row.FirstEvent));
    Add(std::move(action), row.FirstEvent, row.LastEvent, row.WindowChainIndex);
}

// Times go on, whatever the job says: rows overlap, and Scroll Lock clicks have none.
void Reader::Add(Action action, std::int32_t first, std::int32_t last, std::int32_t chain) {
    action.start = std::max<std::int64_t>(time, EventOf(first).time());
    action.end = std::max<std::int64_t>(action.start, EventOf(last).time());
    // A release that comes after other rows lets a row of keys reach over them; they begin inside it.
    time = action.start;
    const bool aimed = action.kind != ActionKind::Moves && action.kind != ActionKind::Release;
    action.lane = aimed ? LaneOf(chain) : NoLane;
    read.actions.push_back(std::move(action));
}

std::size_t Reader::LaneOf(std::int32_t chain) {
    const WindowSignature* const top = FindOutermostWindow({job.Events, job.Strings, job.Windows, job.Chains}, chain);
    if (top == nullptr) {
        if (!laneWithoutWindow) laneWithoutWindow = NewLane(nullptr);
        return *laneWithoutWindow;
    }
    std::size_t& known = laneByChain[static_cast<std::size_t>(chain)];
    if (known != NoLane) return known;
    const auto [found, isNew] = laneByWindow.try_emplace({top->ClassName, top->Caption}, 0);
    if (isNew) found->second = NewLane(top);
    return known = found->second;
}

std::size_t Reader::NewLane(const WindowSignature* window) {
    if (read.lanes.size() == JobActions::MostLanes) {
        read.lanes.back() = {"(other windows)"};
        return read.lanes.size() - 1;
    }
    Lane& lane = read.lanes.emplace_back();
    lane.name = window == nullptr ? "(no window)" : NameOf(*window);
    const bool stands = window != nullptr && window->Placement.showCmd == platform::ShowNormal && !IsDesktop(*window);
    if (stands) lane.place = window->Placement.rcNormalPosition;
    return read.lanes.size() - 1;
}

// The mouse moves towards what it does next; a release goes with the press in front of it.
void Reader::GiveLanesToMoves() {
    std::size_t lane = NoLane;
    for (Action& action : read.actions) {
        if (action.kind == ActionKind::Release) action.lane = lane;
        if (action.lane != NoLane) lane = action.lane;
    }
    for (auto action = read.actions.rbegin(); action != read.actions.rend(); ++action) {
        if (action->lane == NoLane) action->lane = lane;
        lane = action->lane;
    }
    for (Action& action : read.actions) {
        if (action.lane == NoLane) action.lane = LaneOf(NoWindowMarker);
        ++read.lanes[action.lane].actions;
    }
}

void Reader::ReadPath() {
    for (const JobEvent& event : job.Events) {
        const bool wheel = event.dwFlags() == MouseFlagBase + platform::MouseWheel;
        if (event.dwType() != platform::InputMouse || wheel || IsWithoutPlaceAndTime(event)) continue;
        const platform::Point place{event.dx(), event.dy()};
        if (read.path.empty() || read.path.back() != place) read.path.push_back(place);
    }
}

}  // namespace

JobActions ActionsOf(const Job& job) {
    return Reader(job).Read();
}
