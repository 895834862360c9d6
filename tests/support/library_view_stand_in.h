// The main window of a test, as far as the library of jobs is concerned with it. A saved job refreshes the real list.
#pragma once

#include <string>
#include <vector>

struct LibraryViewStandIn {
    std::vector<std::string> Lista_Schedule;
    bool jobsEditEnabled = false;
    bool startsWithWindows = false;
    std::string dataFolder;
};
extern LibraryViewStandIn libraryViewStandIn;
