#include "support/job_page_view_stand_in.h"

#include "library/library_view.h"
#include "mainwindow/job_page.h"
#include "mainwindow/job_page_view.h"

JobPageViewStandIn jobPageViewStandIn;

namespace {

void Note(const std::string& call) {
    jobPageViewStandIn.calls.push_back(call);
}

}  // namespace

namespace job_page_view {

void Show() {
    ++jobPageViewStandIn.shown;
}

void FocusOn(HotkeyFocus control) {
    const char* const names[] = {"hot_ctrl", "hot_slovo", "lista_jobs"};
    Note(std::string("focus ") + names[static_cast<std::size_t>(control)]);
}

void PosiviSve(bool grey) {
    Note(grey ? "grey" : "free");
}

void OpenMenuJobs() {
    Note("menu");
}

void MakeExe(const std::string& jobPath) {
    Note("exe " + jobPath);
}

void OpenScheduleOf(const std::string& jobName) {
    Note("schedule " + jobName);
}

}  // namespace job_page_view

namespace library_view {

void ClearScheduleJobs() {}
void AddScheduleJob(const std::string&) {}
void ShowStartsWithWindows(bool) {}
void ShowDataFolder(const std::string&) {}

void Jobs_Edit_Enabled(bool enable) {
    ::Jobs_Edit_Enabled(enable);
}

}  // namespace library_view
