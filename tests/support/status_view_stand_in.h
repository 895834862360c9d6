// The status windows of a test: what a run shows stands here to be read, and what the windows of a real desktop would
// bring along (where they stand, how wide they are) can be set.
#pragma once

#include <string>
#include <vector>

#include "platform/types.h"

struct StatusViewStandIn {
    struct Window {
        bool visible = false;
        platform::Rect rectangle;
    };

    Window executing{false, {0, 150, 400, 450}};
    std::string statusLabel;
    bool dodging = false;
    bool closeButtonVisible = false;
    std::vector<std::string> list;
    int selectedLine = -1;
    int topIndex = 0;
    bool barVisible = false;
    int barValue = 0;
    int barMaximum = 100;
    bool noMemoryForBar = false;

    Window executing2{false, {0, 0, 300, 140}};
    std::string jobName;
    std::string secondLabel;

    int pixelsPerInch = 96;

    std::vector<int> barHistory;  // all places of the bar, without the repeats
};
extern StatusViewStandIn statusViewStandIn;
