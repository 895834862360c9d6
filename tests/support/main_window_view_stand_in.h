// The main window of a test, as far as a run is concerned with it.
#pragma once

#include <string>
#include <vector>

struct MainWindowViewStandIn {
    bool visible = true;
    bool minimised = false;
    bool enabled = true;
    bool exitButtonEnabled = true;
    std::vector<std::string> calls;  // "Minimise" and "Restore", in order
};
extern MainWindowViewStandIn mainWindowViewStandIn;
