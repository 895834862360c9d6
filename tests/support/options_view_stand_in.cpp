#include "support/options_view_stand_in.h"

#include "shell/options_view.h"

OptionsViewStandIn optionsViewStandIn;

bool options_view::ListJobsOf(const std::string&) {
    return !optionsViewStandIn.refusesFolders;
}

void options_view::ShowDataFolder(const std::string& folder) {
    optionsViewStandIn.shownFolder = folder;
}
