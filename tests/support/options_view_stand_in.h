// The data folder's controls of a test.
#pragma once

#include <string>

struct OptionsViewStandIn {
    bool refusesFolders = false;
    std::string listedFolder;
    std::string shownFolder;
};
extern OptionsViewStandIn optionsViewStandIn;
