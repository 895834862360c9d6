#include "timeline/mouse_map.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <tuple>
#include <utility>

#include "timeline/svg.h"

namespace {

constexpr double WidestMap = PictureWidth - 2 * Margin;
constexpr double HighestMap = 620;
constexpr double Edge = 30;  // of pixels round everything
constexpr std::size_t MostPoints = 20'000;
constexpr std::size_t MostDrags = 5000;
constexpr std::size_t NumberedClicks = 60;
constexpr double LetterOfName = 6.8;  // of a name, as a rule
constexpr double LineOfNames = 15;
constexpr int Shades = 6;  // from the beginning of the path to its end
constexpr std::int32_t FarthestPixel = 100'000;

struct Spot {
    double x = 0;
    double y = 0;
};

bool IsEmpty(const platform::Rect& rect) {
    return rect.right <= rect.left || rect.bottom <= rect.top;
}

// What a damaged job says of places is not to make all the others small.
bool IsOnSomeScreen(platform::Point place) {
    return std::max(std::abs(static_cast<std::int64_t>(place.x)), std::abs(static_cast<std::int64_t>(place.y))) <
           FarthestPixel;
}

class Map {
public:
    Map(const JobActions& drawnJob, double topEdge) : job(drawnJob), top(topEdge) {
        for (const platform::Point place : job.path) {
            if (IsOnSomeScreen(place)) path.push_back(place);
        }
    }

    Section Draw();

private:
    void Fit();
    void Include(const platform::Rect& place);
    void DrawWindows();
    void DrawNames();
    void DrawDrags();
    void DrawPath();
    void DrawClicks();
    void DrawEnds();
    std::vector<Spot> Simplified(double least) const;
    Spot SpotOf(platform::Point place) const {
        return {left + (place.x - screen.left) * scale, mapTop + (place.y - screen.top) * scale};
    }

    const JobActions& job;
    std::vector<platform::Point> path;
    const double top;
    double mapTop = 0;
    double left = Margin;
    double scale = 1;
    platform::Rect screen;
    std::string svg;
};

Section Map::Draw() {
    if (path.empty()) return {"", top};
    svg += Text("head", Margin, top + 14, "The mouse on the screen");
    mapTop = top + 28;
    Fit();
    const double height = (screen.bottom - screen.top) * scale;
    svg += "<clipPath id=\"map\">" + Rectangle("clip", Margin, mapTop, WidestMap, height, 8) + "</clipPath>\n";
    svg += Rectangle("panel", Margin, mapTop, WidestMap, height, 8);
    svg += "<g clip-path=\"url(#map)\">\n";
    DrawWindows();
    DrawDrags();
    DrawPath();
    DrawEnds();
    DrawClicks();
    svg += "</g>\n";
    return {std::move(svg), mapTop + height + 10};
}

// The part of the screen where the mouse was, with the windows there.
void Map::Fit() {
    screen = {path[0].x, path[0].y, path[0].x, path[0].y};
    for (const platform::Point place : path) Include({place.x, place.y, place.x, place.y});
    const platform::Rect ofMouse = screen;
    for (const Lane& lane : job.lanes) {
        const platform::Rect& window = lane.place;
        const bool isThere = window.left <= ofMouse.right && window.right >= ofMouse.left &&
                             window.top <= ofMouse.bottom && window.bottom >= ofMouse.top;
        const bool isSane = IsOnSomeScreen({window.left, window.top}) && IsOnSomeScreen({window.right, window.bottom});
        if (!IsEmpty(window) && isThere && isSane) Include(window);
    }
    const auto margin = static_cast<std::int32_t>(Edge + (screen.right - screen.left) * 0.02);
    screen = {screen.left - margin, screen.top - margin, screen.right + margin, screen.bottom + margin};
    const double width = screen.right - screen.left;
    scale = std::min({WidestMap / width, HighestMap / (screen.bottom - screen.top), 2.0});
    left = Margin + (WidestMap - width * scale) / 2;
}

void Map::Include(const platform::Rect& place) {
    screen.left = std::min(screen.left, place.left);
    screen.top = std::min(screen.top, place.top);
    screen.right = std::max(screen.right, place.right);
    screen.bottom = std::max(screen.bottom, place.bottom);
}

void Map::DrawWindows() {
    for (const Lane& lane : job.lanes) {
        if (IsEmpty(lane.place)) continue;
        const Spot from = SpotOf({lane.place.left, lane.place.top});
        const Spot to = SpotOf({lane.place.right, lane.place.bottom});
        svg += Rectangle("window", from.x, from.y, to.x - from.x, to.y - from.y, 3);
    }
    DrawNames();
}

// In the corners of the windows, or below the names that are there already.
void Map::DrawNames() {
    struct Name {
        Spot place;
        double width = 0;
    };
    std::vector<Name> drawn;
    for (const Lane& lane : job.lanes) {
        if (IsEmpty(lane.place)) continue;
        const Spot corner = SpotOf({lane.place.left, lane.place.top});
        const std::string text = Shortened(lane.name, 40);
        Name name = {{std::max(corner.x, Margin) + 8, std::max(corner.y, mapTop) + 16},
                     static_cast<double>(text.size()) * LetterOfName};
        std::ranges::sort(drawn, {}, [](const Name& each) { return each.place.y; });
        for (const Name& other : drawn) {
            const bool meets = name.place.x < other.place.x + other.width && other.place.x < name.place.x + name.width;
            if (!meets || std::abs(name.place.y - other.place.y) >= LineOfNames) continue;
            name.place.y = other.place.y + LineOfNames;
        }
        svg += Text("quiet", name.place.x, name.place.y, text);
        drawn.push_back(name);
    }
}

// Places less than `least` from the last one are left out, and so is what lies on a straight way.
std::vector<Spot> Map::Simplified(double least) const {
    std::vector<Spot> spots = {SpotOf(path.front())};
    for (const platform::Point place : path) {
        const Spot spot = SpotOf(place);
        if (std::hypot(spot.x - spots.back().x, spot.y - spots.back().y) < least) continue;
        if (spots.size() > 1) {
            const Spot& a = spots[spots.size() - 2];
            const Spot& b = spots.back();
            const double cross = (b.x - a.x) * (spot.y - b.y) - (b.y - a.y) * (spot.x - b.x);
            const double along = (b.x - a.x) * (spot.x - b.x) + (b.y - a.y) * (spot.y - b.y);
            if (along > 0 && std::abs(cross) < 0.3 * std::hypot(spot.x - a.x, spot.y - a.y)) spots.pop_back();
        }
        spots.push_back(spot);
    }
    return spots;
}

// Darker towards the end.
void Map::DrawPath() {
    std::vector<Spot> spots;
    for (double least = 1.5; spots.empty() || spots.size() > MostPoints; least *= 1.6) spots = Simplified(least);
    const std::size_t each = spots.size() / Shades + 1;
    for (std::size_t first = 0; first + 1 < spots.size(); first += each) {
        const double shade = 0.4 + 0.5 * static_cast<double>(first) / static_cast<double>(spots.size());
        svg += "<path class=\"path\" opacity=\"" + Number(shade) + "\" d=\"";
        for (std::size_t i = first; i < std::min(first + each + 1, spots.size()); ++i) {
            svg += (i == first ? "M" : "L") + Number(spots[i].x) + " " + Number(spots[i].y);
        }
        svg += "\"/>\n";
    }
}

// Round whatever was clicked there.
void Map::DrawEnds() {
    const Spot start = SpotOf(path.front());
    const Spot end = SpotOf(path.back());
    svg += "<g><title>Start</title>" + Rectangle("start", start.x - 10, start.y - 10, 20, 20, 10) + "</g>\n";
    svg += "<g><title>End</title>" + Rectangle("end", end.x - 10, end.y - 10, 20, 20, 2) + "</g>\n";
}

// Straight from each press to its release.
void Map::DrawDrags() {
    const Action* press = nullptr;
    std::string ways;
    std::size_t count = 0;
    for (const Action& action : job.actions) {
        if (action.kind == ActionKind::Press && IsOnSomeScreen(action.place)) press = &action;
        if (action.kind != ActionKind::Release || press == nullptr || !IsOnSomeScreen(action.place)) continue;
        const Spot from = SpotOf(press->place);
        const Spot to = SpotOf(action.place);
        press = nullptr;
        if (++count > MostDrags) break;
        ways += "M" + Number(from.x) + " " + Number(from.y) + "L" + Number(to.x) + " " + Number(to.y);
    }
    if (!ways.empty()) svg += "<path class=\"drag\" d=\"" + ways + "\"/>\n";
}

// One for all that lie on one spot; with the numbers of their rows, as long as these can be read.
void Map::DrawClicks() {
    std::set<std::tuple<const char*, int, int>> drawn;
    std::string numbers;
    for (const Action& action : job.actions) {
        const char* const symbol = action.kind == ActionKind::Wheel ? nullptr : SymbolOf(action.kind);
        if (symbol == nullptr || !action.hasPlace || !IsOnSomeScreen(action.place)) continue;
        const Spot spot = SpotOf(action.place);
        if (!drawn.insert({symbol, static_cast<int>(spot.x / 4), static_cast<int>(spot.y / 4)}).second) continue;
        svg +=
            std::string("<use href=\"#") + symbol + "\" x=\"" + Number(spot.x) + "\" y=\"" + Number(spot.y) + "\"/>\n";
        if (drawn.size() <= NumberedClicks)
            numbers += Text("number", spot.x, spot.y - 11, std::to_string(action.number));
    }
    if (drawn.size() <= NumberedClicks) svg += numbers;
}

}  // namespace

Section MouseMap(const JobActions& job, double top) {
    return Map(job, top).Draw();
}
