// What logic asks of the schedule page and the Options page, which have no controls yet.
#include "library/library_view.h"
#include "mainwindow/job_page.h"
#include "platform/files.h"
#include "scheduler/schedule_list.h"
#include "scheduler/schedule_page_view.h"
#include "scheduler/schedule_start_view.h"
#include "scheduler/schedule_warning_view.h"
#include "shell/options_view.h"

namespace options_view {

// There is no list to refuse a folder: what counts is whether it can be read.
bool ListJobsOf(const std::string& folder) {
    return platform::FilesIn(folder, ".tsj").has_value();
}

void ShowDataFolder(const std::string&) {}

}  // namespace options_view

namespace library_view {

void ClearScheduleJobs() {}
void AddScheduleJob(const std::string&) {}

void Jobs_Edit_Enabled(bool enable) {
    ::Jobs_Edit_Enabled(enable);
}

void ShowStartsWithWindows(bool) {}
void ShowDataFolder(const std::string&) {}

}  // namespace library_view

// Nobody could see, change or cancel a schedule. So the list of them is never filled, none of them runs, and nothing
// below is ever asked to show something.
namespace schedule_page_view {

bool Exists() {
    return SchedulePageExists;
}

void Show() {}
void FocusOn(Focus) {}
void OpenMenu_Schedule() {}

}  // namespace schedule_page_view

namespace schedule_start_view {

void Show(int) {}
void SetStatus(const std::string&) {}
void SetName(const std::string&) {}
void SetAlpha(int) {}
void Unload() {}

}  // namespace schedule_start_view

namespace schedule_warning_view {

void ShowModal() {}
void Refresh() {}
void Unload() {}

}  // namespace schedule_warning_view
