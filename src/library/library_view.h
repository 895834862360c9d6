// What changes in the main window with the library of jobs, beside the list itself. The main window implements it; in
// the tests a stand-in does. Nothing here pumps.
#pragma once

#include <string>

namespace library_view {

// Lista_Schedule, the schedule page's choice of jobs.
void ClearScheduleJobs();
void AddScheduleJob(const std::string& name);

// The job page with or without a selected job: see mainwindow/job_page.h.
void Jobs_Edit_Enabled(bool enable);

// The Options page.
void ShowStartsWithWindows(bool ticked);
void ShowDataFolder(const std::string& folder);

}  // namespace library_view
