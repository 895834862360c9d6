#include "timeline/time_axis.h"

#include <algorithm>

namespace {

constexpr std::int64_t LeastWaitMs = 1000;
constexpr double LeastWaitWidth = 14;
constexpr double LeastTickWidth = 70;
constexpr double LongestShare = 0.1;  // of what is shown besides
constexpr double UsualWaitMs = 2000;

}  // namespace

TimeAxis::TimeAxis(const std::vector<Action>& actions, double leftEnd, double rightEnd)
    : left(leftEnd), right(rightEnd) {
    for (const Action& action : actions) end = std::max(end, action.end);
    FindWaits(actions);
    double rest = static_cast<double>(end);
    for (const Wait& wait : waits) rest -= std::max(0.0, static_cast<double>(wait.end - wait.start) - UsualWaitMs);
    const double longest = std::max(UsualWaitMs, rest * LongestShare);
    double removed = 0;
    for (Wait& wait : waits) {
        const auto length = static_cast<double>(wait.end - wait.start);
        wait.isShortened = length > longest * 1.5;
        if (!wait.isShortened) continue;
        cuts.push_back({wait.start, wait.end, longest, static_cast<double>(wait.start) - removed});
        removed += length - longest;
    }
    shownInAll = static_cast<double>(end) - removed;
    const double perMs = (right - left) / shownInAll;
    std::erase_if(waits, [&](const Wait& wait) {
        return !wait.isShortened && static_cast<double>(wait.end - wait.start) * perMs < LeastWaitWidth;
    });
}

void TimeAxis::FindWaits(const std::vector<Action>& actions) {
    std::int64_t done = 0;
    for (const Action& action : actions) {
        if (action.start - done >= LeastWaitMs) waits.push_back({done, action.start});
        done = std::max(done, action.end);
    }
}

double TimeAxis::Shown(std::int64_t ms) const {
    const auto behind = std::ranges::upper_bound(cuts, ms, {}, &Cut::from);
    if (behind == cuts.begin()) return static_cast<double>(ms);
    const Cut& cut = *(behind - 1);
    if (ms >= cut.until) return cut.before + cut.shown + static_cast<double>(ms - cut.until);
    const double part = static_cast<double>(ms - cut.from) / static_cast<double>(cut.until - cut.from);
    return cut.before + cut.shown * part;
}

double TimeAxis::PlaceOf(std::int64_t ms) const {
    return left + (right - left) * Shown(std::clamp<std::int64_t>(ms, 0, end)) / shownInAll;
}

std::vector<std::int64_t> TimeAxis::Ticks() const {
    constexpr std::int64_t steps[] = {100,     200,     500,       1000,      2000,     5000,
                                      10'000,  15'000,  30'000,    60'000,    120'000,  300'000,
                                      600'000, 900'000, 1'800'000, 3'600'000, 7'200'000};
    const double perMs = (right - left) / shownInAll;
    const auto fits = std::ranges::find_if(
        steps, [perMs](std::int64_t step) { return static_cast<double>(step) * perMs >= LeastTickWidth; });
    const std::int64_t step = fits == std::end(steps) ? end / 10 + 1 : *fits;
    std::vector<std::int64_t> ticks;
    double last = left - LeastTickWidth;
    for (std::int64_t ms = 0; ms <= end;) {
        const auto cut =
            std::ranges::find_if(cuts, [ms](const Cut& each) { return ms > each.from && ms < each.until; });
        if (cut != cuts.end()) {  // on behind it, however long it is
            ms = (cut->until + step - 1) / step * step;
            continue;
        }
        if (PlaceOf(ms) - last >= LeastTickWidth * 0.8) {
            ticks.push_back(ms);
            last = PlaceOf(ms);
        }
        ms += step;
    }
    return ticks;
}
