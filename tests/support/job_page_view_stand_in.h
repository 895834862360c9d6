// The form of the job page of a test, with the parts of the main window that the library of jobs tells of changes. A
// saved job refreshes the real list.
#pragma once

#include <string>
#include <vector>

struct JobPageViewStandIn {
    std::vector<std::string> calls;  // "focus hot_ctrl", "grey", "free", "menu", "exe C:\...", "schedule name"
    int shown = 0;                   // how often the controls were told to follow the page
};
extern JobPageViewStandIn jobPageViewStandIn;
