#include "editor/save_job.h"

#include <string>
#include <utility>

#include "base/product.h"
#include "base/runtime_failure.h"
#include "base/text.h"
#include "dictionary/dictionary.h"
#include "dictionary/sentences.h"
#include "editor/edit_job.h"
#include "editor/edit_view.h"
#include "editor/job_changes.h"
#include "editor/row_edits.h"
#include "folding/popuni_listu.h"
#include "jobs/job_file.h"
#include "jobs/job_name.h"
#include "library/job_library.h"
#include "library/save_as.h"
#include "platform/boxes.h"
#include "platform/files.h"
#include "settings/folders.h"

namespace {

platform::FileStamp fileAsLastSeen;

std::string TitleOf(const std::string& jobPath) {
    return Translate("Job Editor") + " - " + BaseName(jobPath) + JobExtension;
}

// What the job page says of the job stands in its file alone. A file that has gone, or been spoiled, since the job was
// opened has nothing to say: the options are then those that it had.
JobHeader OptionsInFile(const JobHeader& asOpened) {
    Job inFile;
    try {
        ReadJob(editState.jobName, inFile);
    } catch (const RuntimeFailure&) {
        if (platform::StateOf(editState.jobName) == platform::FileState::Held) throw;
        return asOpened;
    }
    return inFile;
}

JobHeader HeaderToSave(bool keepOptions) {
    JobHeader header = keepOptions ? editState.header : OptionsInFile(editState.header);
    header.StartProgram = editState.header.StartProgram;
    header.Description = Trim(editState.header.Description);
    return header;
}

bool WasChangedFromOutside() {
    const platform::FileStamp now = platform::StampOf(editState.jobName);
    return now != fileAsLastSeen && now != platform::FileStamp{};
}

bool MayOverwriteChanges() {
    return !WasChangedFromOutside() ||
           platform::AskBeforeLoss(
               Translate1("The file '%1' has been changed since it was opened here.", editState.jobName) + LineBreak +
                   Question("Overwrite"),
               Translate("Job Editor"), platform::BoxIcon::Warning);
}

bool SaveOrTell(bool keepOptions) {
    try {
        SaveJob(keepOptions);
        return true;
    } catch (const RuntimeFailure& failure) {
        platform::ShowBox(failure.what(), Translate("Job Editor"), platform::BoxIcon::Error);
        return false;
    }
}

// The list of jobs shows descriptions and durations.
void ShowInList() {
    job_library::FillJobList();
    job_library::SelectJob(editState.jobName);
    edit_view::Refresh();
}

// A device of Windows answers to its name: it must not be asked whether it is there.
bool IsGoodName(const std::string& name) {
    const std::string why = WhyJobNameIsRefused(folders.DataFolder, name);
    if (why.empty()) return true;
    const std::string wrong = Translate("Invalid file name");
    platform::ShowBox(wrong + ". " + Translate("Please enter a valid file name") + "." + LineBreak + why, wrong,
                      platform::BoxIcon::Error);
    return false;
}

bool MayOverwrite(const std::string& path, const std::string& name) {
    return platform::StateOf(path) == platform::FileState::Missing ||
           platform::AskBeforeLoss(Translate("Overwrite") + " '" + name + "'?", Translate("Overwrite job"));
}

// The job goes on as the new one only when that has been written.
void SaveUnder(const std::string& path) {
    const std::string before = std::exchange(editState.jobName, path);
    editState.title = TitleOf(path);
    if (SaveOrTell(true)) return ShowInList();
    editState.jobName = before;
    editState.title = TitleOf(before);
}

}  // namespace

void RememberFile() {
    fileAsLastSeen = platform::StampOf(editState.jobName);
}

void SaveJob(bool keepOptions) {
    WriteJob(editState.jobName, JobToSave(HeaderToSave(keepOptions)));
    RememberFile();
    SaveWasDone();
}

void RescueEditedJob() {
    if (EditorIsOpen() && SaveIsEnabled()) SaveRecoveredJob(JobToSave(HeaderToSave(true)));
}

bool save_button() {
    if (!MayOverwriteChanges() || !SaveOrTell(false)) return false;
    ShowInList();
    return true;
}

void save_as_button() {
    std::string name = BaseName(editState.jobName);
    while (edit_view::AskJobName(name) && !Trim(name).empty()) {
        const std::string path = JobPathOf(folders.DataFolder, name);
        if (IsGoodName(name) && MayOverwrite(path, name)) return SaveUnder(path);
    }
}
