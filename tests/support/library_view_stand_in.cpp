#include "support/library_view_stand_in.h"

#include "library/library_view.h"

LibraryViewStandIn libraryViewStandIn;

namespace library_view {

void ClearScheduleJobs() {
    libraryViewStandIn.Lista_Schedule.clear();
}

void AddScheduleJob(const std::string& name) {
    libraryViewStandIn.Lista_Schedule.push_back(name);
}

void Jobs_Edit_Enabled(bool enable) {
    libraryViewStandIn.jobsEditEnabled = enable;
}

void ShowStartsWithWindows(bool ticked) {
    libraryViewStandIn.startsWithWindows = ticked;
}

void ShowDataFolder(const std::string& folder) {
    libraryViewStandIn.dataFolder = folder;
}

}  // namespace library_view
