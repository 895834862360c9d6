#include "support/job_page_view_stand_in.h"

#include "library/library_view.h"
#include "mainwindow/job_page.h"
#include "mainwindow/job_page_view.h"
#include "support/recorder.h"

JobPageViewStandIn jobPageViewStandIn;

namespace job_page_view {

void Show() {
    ++jobPageViewStandIn.shown;
}

constexpr const char* Controls[] = {"hot_ctrl", "hot_slovo", "lista_jobs"};
TELLS(jobPageViewStandIn.calls, FocusOn, HotkeyFocus, std::string("focus ") + Controls[static_cast<int>(value)])
TELLS(jobPageViewStandIn.calls, PosiviSve, bool, value ? "grey" : "free")
NOTES(jobPageViewStandIn.calls, OpenMenuJobs)
TELLS(jobPageViewStandIn.calls, MakeExe, const std::string&, "exe " + value)
TELLS(jobPageViewStandIn.calls, OpenScheduleOf, const std::string&, "schedule " + value)

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
