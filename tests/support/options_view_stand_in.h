// The data folder's controls of a test.
#pragma once

#include <string>

struct OptionsViewStandIn {
    bool refusesFolders = false;
    std::string shownFolder;
};
extern OptionsViewStandIn optionsViewStandIn;
