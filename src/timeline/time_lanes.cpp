#include "timeline/time_lanes.h"

#include <algorithm>
#include <map>
#include <utility>

#include "keystrokes/notation.h"
#include "timeline/svg.h"
#include "timeline/time_axis.h"

namespace {

constexpr double LabelWidth = 210;
constexpr double LaneHeight = 44;
constexpr double LowLaneHeight = 32;
constexpr std::size_t FewLanes = 8;
constexpr double AxisHeight = 26;
constexpr double PlotLeft = Margin + LabelWidth;
constexpr double PlotRight = PictureWidth - Margin - 14;
constexpr double BarHeight = 18;
constexpr double LeastBar = 3;
constexpr double LeastDistance = 2.5;   // of two marks of one kind
constexpr double CharacterWidth = 6.6;  // of the small text, as a rule
constexpr std::size_t LeastLetters = 7;
constexpr std::size_t RowsWithTips = 2000;
constexpr std::int32_t FewRows = 400;  // beyond, marks are small, and each kind has a height of its own in the lane

// Above the middle of the lane, or below it.
double HeightOfMark(ActionKind kind) {
    switch (kind) {
        case ActionKind::RightClick:
        case ActionKind::OtherClick:
            return -4;
        case ActionKind::Wheel:
            return 2;
        default:
            return -11;
    }
}

class Lanes {
public:
    Lanes(const JobActions& drawnJob, double topEdge)
        : job(drawnJob),
          axis(drawnJob.actions, PlotLeft, PlotRight),
          top(topEdge),
          height(drawnJob.lanes.size() <= FewLanes ? LaneHeight : LowLaneHeight),
          isDense(drawnJob.rows > FewRows) {}

    Section Draw();

private:
    void DrawGround();
    void DrawWaits();
    void DrawBars();
    void DrawMarks();
    void DrawBar(const char* cssClass, const Action& action, double from, double to);
    void DrawText(const Action& action, double from, double to);
    std::string TipOf(const Action& action) const;
    double LaneTop(std::size_t lane) const { return top + AxisHeight + height * static_cast<double>(lane); }
    double Bottom() const { return LaneTop(job.lanes.size()); }
    bool MayDraw(const char* what, std::size_t lane, double place, double distance);

    const JobActions& job;
    const TimeAxis axis;
    const double top;
    const double height;
    const bool isDense;
    std::string svg;
    std::map<std::pair<const char*, std::size_t>, double> lastPlace;  // where the last mark of a kind ends in a lane
};

Section Lanes::Draw() {
    DrawGround();
    DrawWaits();
    DrawBars();
    DrawMarks();
    return {std::move(svg), Bottom() + 14};
}

void Lanes::DrawGround() {
    svg += Rectangle("panel", Margin, top, PictureWidth - 2 * Margin, Bottom() - top + 8, 8);
    for (std::size_t lane = 0; lane < job.lanes.size(); ++lane) {
        if (lane % 2 == 0) {
            svg += Rectangle("stripe", Margin + 1, LaneTop(lane), PictureWidth - 2 * Margin - 2, height);
        }
    }
    for (const std::int64_t tick : axis.Ticks()) {
        const std::string x = Number(axis.PlaceOf(tick));
        svg += "<path class=\"grid\" d=\"M" + x + " " + Number(top + AxisHeight) + "V" + Number(Bottom()) + "\"/>\n";
        svg += Text("axis", axis.PlaceOf(tick), top + 17, TimeText(static_cast<double>(tick)));
    }
    for (std::size_t lane = 0; lane < job.lanes.size(); ++lane) {
        const std::string& name = job.lanes[lane].name;
        svg += "<g><title>" + Escaped(name) + "</title>" +
               Text("lane", Margin + 12, LaneTop(lane) + height / 2 + 4, Shortened(name, 28)) + "</g>\n";
    }
}

void Lanes::DrawWaits() {
    double labelled = PlotLeft;
    for (const TimeAxis::Wait& wait : axis.Waits()) {
        const double from = axis.PlaceOf(wait.start);
        const double to = axis.PlaceOf(wait.end);
        const double middle = (from + to) / 2;
        if (to - from > 3)
            svg += Rectangle("wait", from + 1, top + AxisHeight, to - from - 2, Bottom() - top - AxisHeight);
        if (wait.isShortened && to - from > 8) {  // an axis that is broken
            const std::string y = Number(top + AxisHeight - 6);
            svg += "<path class=\"break\" d=\"M" + Number(middle - 5) + " " + y + "l4 12m2 -12l4 12\"/>\n";
        }
        const std::string text = TimeText(static_cast<double>(wait.end - wait.start));
        const double half = static_cast<double>(text.size()) * CharacterWidth / 2;
        if (middle - half < labelled || (to - from < 2 * half && !wait.isShortened)) continue;
        svg += Text("waittext", middle, Bottom() - 5, text);
        labelled = middle + half + 4;
    }
}

// A mark less than so far from the last of its kind is part of that.
bool Lanes::MayDraw(const char* what, std::size_t lane, double place, double distance) {
    const auto [last, isFirst] = lastPlace.try_emplace({what, lane}, place);
    if (!isFirst && place - last->second < distance) return false;
    last->second = place;
    return true;
}

std::string Lanes::TipOf(const Action& action) const {
    if (static_cast<std::size_t>(job.rows) > RowsWithTips) return {};
    const std::string keys =
        action.kind == ActionKind::Typing ? ": " + ReduceKeystrokes(action.text, BadWords::PassedOver) : "";
    const std::string row = action.kind == ActionKind::Moves ? "Moves" : "Row " + std::to_string(action.number);
    return "<title>" + Escaped(row + ", " + TimeText(static_cast<double>(action.start)) + Shortened(keys, 200)) +
           "</title>";
}

void Lanes::DrawBar(const char* cssClass, const Action& action, double from, double to) {
    const bool typing = action.kind == ActionKind::Typing;
    const bool moves = action.kind == ActionKind::Moves;
    const double barHeight = moves ? 4 : typing && !isDense ? BarHeight : 6;
    double middle = LaneTop(action.lane) + height / 2;
    if (moves) middle += height / 2 - 5;
    if (isDense && !moves) middle += typing ? 8 : HeightOfMark(action.kind);
    const std::string tip = TipOf(action);
    const std::string bar = Rectangle(cssClass, from, middle - barHeight / 2, to - from, barHeight,
                                      std::min({3.0, barHeight / 2, (to - from) / 3}));
    svg += tip.empty() ? bar : "<g>" + tip + bar + "</g>\n";
}

void Lanes::DrawText(const Action& action, double from, double to) {
    if (to - from < 30) return;
    const auto room = static_cast<std::size_t>((to - from - 8) / CharacterWidth);
    const std::string keys = ReduceKeystrokes(action.text.substr(0, 16 * room + 64), BadWords::PassedOver);
    if (keys.size() > room && room < LeastLetters) return;  // hardly more than the mark that there is more
    svg += Text("keys", from + 5, LaneTop(action.lane) + height / 2 + 4, Shortened(keys, room));
}

// Bars of one kind in one lane that would lie closer than a pixel are one bar.
void Lanes::DrawBars() {
    struct Bar {
        double from = 0;
        double to = 0;
        const Action* action = nullptr;
        std::size_t joined = 0;
    };
    std::map<std::pair<std::size_t, const char*>, Bar> open;
    const auto close = [&](const char* cssClass, const Bar& bar) {
        DrawBar(cssClass, *bar.action, bar.from, bar.to);
        const bool readable = bar.action->kind == ActionKind::Typing && bar.joined == 0 && !isDense;
        if (readable) DrawText(*bar.action, bar.from, bar.to);
    };
    std::map<std::size_t, std::int64_t> pressedAt;
    for (const Action& action : job.actions) {
        const char* cssClass = nullptr;
        std::int64_t start = action.start;
        if (action.kind == ActionKind::Typing) cssClass = "typing";
        if (action.kind == ActionKind::Moves) cssClass = "moves";
        if (action.kind == ActionKind::Wheel) cssClass = "wheel";
        if (action.kind == ActionKind::Press) pressedAt[action.lane] = action.start;
        if (action.kind == ActionKind::Release && pressedAt.contains(action.lane)) {
            cssClass = "held";
            start = pressedAt.extract(action.lane).mapped();
        }
        if (cssClass == nullptr) continue;
        const double from = axis.PlaceOf(start);
        const double to = std::max(axis.PlaceOf(action.end), from + LeastBar);
        const auto [bar, isFirst] = open.try_emplace({action.lane, cssClass}, Bar{from, to, &action});
        if (isFirst) continue;
        if (from < bar->second.to + 1) {
            bar->second.to = std::max(bar->second.to, to);
            ++bar->second.joined;
        } else {
            close(cssClass, bar->second);
            bar->second = {from, to, &action};
        }
    }
    for (const auto& [key, bar] : open) close(key.second, bar);
}

void Lanes::DrawMarks() {
    for (const Action& action : job.actions) {
        const char* const symbol = SymbolOf(action.kind);
        const double x = axis.PlaceOf(action.start);
        if (symbol == nullptr || !MayDraw(symbol, action.lane, x, LeastDistance)) continue;
        const double y = LaneTop(action.lane) + height / 2;
        svg += std::string("<use href=\"#") + symbol + "\" transform=\"translate(" + Number(x) + " ";
        svg += isDense ? Number(y + HeightOfMark(action.kind)) + ")scale(.5)\"" : Number(y) + ")\"";
        const std::string tip = TipOf(action);
        svg += tip.empty() ? "/>\n" : ">" + tip + "</use>\n";
    }
}

}  // namespace

Section TimeLanes(const JobActions& job, double top) {
    return Lanes(job, top).Draw();
}

std::string Symbols() {
    return R"(<defs>
<circle id="left" class="left" r="5.5"/>
<circle id="right" class="right" r="4.6"/>
<path id="other" class="other" d="M0-6.5L6.5 0L0 6.5L-6.5 0z"/>
<g id="double"><circle class="ring" r="8.5"/><circle class="double" r="5"/></g>
<path id="wheel" class="wheel" d="M0-10l5 6h-10zM0 10l5-6h-10z"/>
</defs>
)";
}

const char* SymbolOf(ActionKind kind) {
    switch (kind) {
        case ActionKind::LeftClick:
        case ActionKind::Press:
            return "left";
        case ActionKind::RightClick:
            return "right";
        case ActionKind::OtherClick:
            return "other";
        case ActionKind::DoubleClick:
            return "double";
        case ActionKind::Wheel:
            return "wheel";
        default:
            return nullptr;
    }
}
