// Where a moment stands on the time line. A wait that would leave no room for anything else is drawn shorter than it
// is.
#pragma once

#include <cstdint>
#include <vector>

#include "timeline/job_actions.h"

class TimeAxis {
public:
    // Between the two places, in the picture's lengths.
    TimeAxis(const std::vector<Action>& actions, double left, double right);

    double PlaceOf(std::int64_t ms) const;

    struct Wait {
        std::int64_t start = 0;  // ms
        std::int64_t end = 0;
        bool isShortened = false;
    };
    // What is long enough to be seen, in order.
    const std::vector<Wait>& Waits() const { return waits; }

    // Moments for the labels of the axis, in ms, in order and not too close.
    std::vector<std::int64_t> Ticks() const;

    std::int64_t End() const { return end; }

private:
    void FindWaits(const std::vector<Action>& actions);
    double Shown(std::int64_t ms) const;

    // From this moment on, so much of the time is not shown.
    struct Cut {
        std::int64_t from = 0;
        std::int64_t until = 0;
        double shown = 0;   // of this wait
        double before = 0;  // shown until `from`
    };

    double left;
    double right;
    std::int64_t end = 1;
    double shownInAll = 1;
    std::vector<Wait> waits;
    std::vector<Cut> cuts;
};
