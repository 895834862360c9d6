// What the library of jobs asks of the pages: those that show its jobs, and the way from one to the other.
#include "library/library_view.h"

#include "main/main_form.h"
#include "mainwindow/job_page.h"
#include "mainwindow/job_page_view.h"
#include "pages/options_page.h"
#include "pages/schedule_page_form.h"
#include "scheduler/schedule_page.h"

namespace library_view {

void ClearScheduleJobs() {
    ClearJobsToSchedule();
}

void AddScheduleJob(const std::string& name) {
    AddJobToSchedule(name);
}

// The lists are filled now.
void Jobs_Edit_Enabled(bool enable) {
    ::Jobs_Edit_Enabled(enable);
    schedule_page_view::Show();
}

// The Options page asks for both itself.
void ShowStartsWithWindows(bool) {
    optionsPage.Refresh();
}

void ShowDataFolder(const std::string&) {
    optionsPage.Refresh();
}

}  // namespace library_view

namespace job_page_view {

void OpenScheduleOf(const std::string& jobName) {
    mainForm.ShowPage(schedulePageForm);
    ScheduleJob(jobName);
}

}  // namespace job_page_view
