#include <string>

#include "base/runtime_failure.h"
#include "base/text.h"
#include "dictionary/dictionary.h"
#include "dictionary/sentences.h"
#include "hotkeys/hotkey_table.h"
#include "library/job_library.h"
#include "library/job_shortcut.h"
#include "library/library_view.h"
#include "platform/boxes.h"
#include "platform/files.h"
#include "scheduler/schedule_list.h"
#include "scheduler/schedule_table.h"
#include "settings/folders.h"
#include "settings/settings.h"

namespace {

// These questions are asked in English in all languages.
bool UserIsSure(const std::string& jobPath, const std::string& name) {
    if (FindScheduleByJob(jobPath) != NoSchedule) {
        return platform::AskBeforeLoss(
            "This is scheduled job. Deleting this job will also delete all schedules containing this job. Are you sure "
            "you want to delete this job?",
            "Delete scheduled  job?", platform::BoxIcon::Error);
    }
    return platform::AskBeforeLoss("Are you sure you want to delete job '" + name + "'?", Question("Delete job"),
                                   platform::BoxIcon::Question);
}

bool DeleteFileOf(const std::string& jobPath) {
    if (platform::RemoveFile(jobPath)) return true;
    platform::ShowBox(Label("Cannot delete file") + LineBreak + jobPath, Translate("Access denied"),
                      platform::BoxIcon::Error);
    return false;
}

int DeleteSchedulesOf(const std::string& jobPath) {
    int deleted = 0;
    for (auto i = FindScheduleByJob(jobPath); i != NoSchedule; i = FindScheduleByJob(jobPath)) {
        DeleteSchedule(i);
        ++deleted;
    }
    return deleted;
}

void RefillLists(int row) {
    job_library::FillJobList();
    FillScheduleList();
    if (jobLibrary.lista_jobs.ListCount() == 0) return library_view::Jobs_Edit_Enabled(false);
    if (row < jobLibrary.lista_jobs.ListCount()) jobLibrary.lista_jobs.SelectItem(row);
}

void SaveAndRefill(int row) {
    try {
        SaveSettings();
    } catch (const RuntimeFailure&) {
        RefillLists(row);
        throw;
    }
    RefillLists(row);
}

}  // namespace

void job_library::DeleteJob() {
    const int row = jobLibrary.lista_jobs.listindex();
    if (row < 0) return;
    const std::string name = jobLibrary.lista_jobs.List(row);
    const std::string path = JobPathOfRow(row);  // before the question, which may let the list change
    if (!UserIsSure(path, name)) return;
    DropHotkeyOfJob(path);
    if (!DeleteFileOf(path)) return;
    DeleteJobShortcut(path, folders.DesktopFolder, name);
    const int deleted = DeleteSchedulesOf(path);
    SaveAndRefill(row);
    if (deleted == 0) return;
    platform::ShowBox(Translate1("%1 scheduled jobs have also been deleted.", std::to_string(deleted)),
                      Translate("Scheduled items deleted"), platform::BoxIcon::Information);
}
