// The commands of the main window.

#include <optional>

#include "editor/edit_job.h"
#include "jobs/job_access.h"
#include "library/job_library.h"
#include "library/job_shortcut.h"
#include "mainwindow/job_marks.h"
#include "mainwindow/job_page.h"
#include "mainwindow/job_page_view.h"
#include "mainwindow/main_window_use.h"
#include "platform/pump.h"
#include "recording/record_button.h"
#include "recording/recording_state.h"
#include "replay/run_job.h"
#include "settings/folders.h"

namespace {

struct SelectedJob {
    std::string name;
    std::string path;
};

std::optional<SelectedJob> Selected() {
    const int row = jobLibrary.lista_jobs.listindex();
    if (row < 0) return std::nullopt;
    return SelectedJob{jobLibrary.lista_jobs.List(row), job_library::JobPathOfRow(row)};
}

// Grey for as long as it lives, also when the run fails.
class GreyPage {
public:
    GreyPage() { job_page_view::PosiviSve(true); }
    ~GreyPage() { job_page_view::PosiviSve(false); }
    GreyPage(const GreyPage&) = delete;
    GreyPage& operator=(const GreyPage&) = delete;
};

}  // namespace

void record_new() {
    if (RecordingActive() || runState.ReplayRunning || !mainWindowUse.IsFree()) return;
    if (PitajSpremitiPromjene()) RecordNewJob();
}

void run_job() {
    if (!PitajSpremitiPromjene()) return;
    const auto job = Selected();
    if (!job) return;
    const GreyPage grey;
    platform::Pump();
    RunJob(job->path, 0, "", false);
}

void edit_job() {
    const auto job = Selected();
    if (!job) return;
    const auto state = TellUnlessReadable(job->path, platform::BoxIcon::Error);
    if (state == platform::FileState::Readable) editJob(job->path);
}

void schedule_job() {
    if (!PitajSpremitiPromjene()) return;
    if (const auto job = Selected()) job_page_view::OpenScheduleOf(job->name);
}

// The executable holds the options as they are in the file.
void create_exe() {
    if (jobPage.button_save_changes && !SaveChanges()) return;
    if (const auto job = Selected()) job_page_view::MakeExe(job->path);
}

void create_desktop_shortcut() {
    if (const auto job = Selected()) CreateJobShortcut(job->path, folders.DesktopFolder, job->name);
}

void show_findings() {
    if (jobLibrary.lista_jobs.listindex() >= 0) ShowFindingsOfRow(jobLibrary.lista_jobs.listindex());
}

bool SelectedJobHasFindings() {
    const int row = jobLibrary.lista_jobs.listindex();
    return row >= 0 && !jobLibrary.lista_jobs.Row(row).mark.empty();
}

void delete_job() {
    job_library::DeleteJob();
}
