// The recent jobs in the tray menu: the array run_last_job of its entry "Run job". The settings keep the five paths;
// the items stand here for whoever opens the menu.
#pragma once

#include <string>
#include <vector>

struct RecentMenu {
    std::vector<std::string> run_last_job;  // captions, at most five
    std::vector<std::string> paths;         // of the same jobs: a run changes RecentJobs while the menu is open
};
extern RecentMenu recentMenu;

// Drops the paths whose file is gone and makes one menu item for each that is left, called by the job's name. To be
// called before the menu opens: a run changes the list.
void FillRecentJobsMenu();

// Runs the job of an item. One whose file is gone is told in a box and leaves the menu. Pumps. A range failure for an
// item that does not exist.
void run_last_job(int item);
