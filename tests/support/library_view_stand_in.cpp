#include "support/library_view_stand_in.h"

#include "library/library_view.h"
#include "support/recorder.h"

LibraryViewStandIn libraryViewStandIn;

namespace library_view {

void ClearScheduleJobs() {
    libraryViewStandIn.Lista_Schedule.clear();
}

void AddScheduleJob(const std::string& name) {
    libraryViewStandIn.Lista_Schedule.push_back(name);
}

KEEPS(Jobs_Edit_Enabled, bool, libraryViewStandIn.jobsEditEnabled)
KEEPS(ShowStartsWithWindows, bool, libraryViewStandIn.startsWithWindows)
KEEPS(ShowDataFolder, const std::string&, libraryViewStandIn.dataFolder)

}  // namespace library_view
