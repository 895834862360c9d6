#include "library/save_as.h"

#include <array>
#include <cstdio>
#include <exception>

#include "base/product.h"
#include "base/text.h"
#include "dictionary/dictionary.h"
#include "dictionary/sentences.h"
#include "jobs/job_file.h"
#include "jobs/job_name.h"
#include "library/job_library.h"
#include "library/job_shortcut.h"
#include "platform/boxes.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "settings/folders.h"
#include "settings/settings.h"

namespace {

bool WantsToOverwrite(const std::string& name) {
    return platform::AskBeforeLoss(Translate1("Job \"%1\" already exists", name) + ". " + Question("Overwrite"),
                                   Question("Overwrite"));
}

// An empty name and a forbidden character explain themselves.
bool IsPlainlyWrong(const std::string& path, const std::string& name) {
    return Trim(name).empty() || !IsFileNameForbidden(path).empty();
}

SaveAsOutcome RefuseName(const std::string& why) {
    std::string text = Translate("Invalid file name") + ". " + Translate("Please enter a valid file name");
    if (!why.empty()) text += std::string(".") + LineBreak + why;
    platform::ShowBox(text, ProductName, platform::BoxIcon::Error);
    return SaveAsOutcome::NameWrong;
}

Job NewJob(const Job& recorded, const std::string& description) {
    Job job = recorded;
    static_cast<JobHeader&>(job) = {};
    job.StartProgram = recorded.StartProgram;
    job.Description = description;
    job.CapsLockState = recorded.CapsLockState;
    job.Strings.clear();
    return job;
}

// In the same form in every language, so that the names stand in their order.
std::string RecoveredName() {
    const platform::LocalTime now = platform::LocalNow();
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), "Recovered %04d-%02d-%02d %02d.%02d.%02d", now.year, now.month, now.day,
                  now.hour, now.minute, now.second);
    return text.data();
}

std::string FreeName(const std::string& name) {
    std::string free = name;
    constexpr int most = 100;  // of a folder that is out of reach, every file may be there
    const auto taken = [](const std::string& each) {
        return platform::StateOf(JobPathOf(folders.DataFolder, each)) != platform::FileState::Missing;
    };
    for (int i = 2; i < most && taken(free); ++i) {
        free = name + " (" + std::to_string(i) + ")";
    }
    return free;
}

}  // namespace

SaveAsStart OpenSaveAs(bool stoppedByPauseKey) {
    std::int32_t& shortcut = settings.create_shortcut_on_desktop;
    if (shortcut != 0 && shortcut != 1) shortcut = 1;
    return {shortcut == 1, stoppedByPauseKey};
}

void ChooseShortcutOnDesktop(bool ticked) {
    settings.create_shortcut_on_desktop = ticked ? 1 : 0;
}

SaveAsOutcome SaveJobAs(const std::string& name, const std::string& description, const Job& recorded) {
    const std::string path = JobPathOf(folders.DataFolder, name);
    const bool plainlyWrong = IsPlainlyWrong(path, name);
    const std::string why = plainlyWrong ? "" : WhyJobNameIsRefused(folders.DataFolder, name);
    if (!why.empty()) return RefuseName(why);  // first of all: a look for the file would open a device
    const bool isNew = platform::StateOf(path) == platform::FileState::Missing;  // a job that is held is none
    if (!isNew && !WantsToOverwrite(name)) return SaveAsOutcome::KeptOpen;
    if (plainlyWrong) return RefuseName("");
    WriteJob(path, NewJob(recorded, description));
    job_library::ShowSavedJob(path);
    if (settings.create_shortcut_on_desktop == 1) CreateJobShortcut(path, folders.DesktopFolder, name);
    return SaveAsOutcome::Saved;
}

SaveAsLeave LeaveSaveAs(bool anythingRecorded) {
    if (!anythingRecorded) return SaveAsLeave::Close;
    const auto answer = platform::AskToSave(Translate("The recording is not saved yet. Do you want to save it?"),
                                            Translate("Save Job As"));
    if (answer == platform::BoxChoice::Yes) return SaveAsLeave::Save;
    return answer == platform::BoxChoice::No ? SaveAsLeave::Close : SaveAsLeave::Stay;
}

std::string SaveRecoveredRecording(const Job& recorded) {
    return SaveRecoveredJob(NewJob(recorded, ""));
}

std::string SaveRecoveredJob(const Job& job) {
    try {
        std::string name = FreeName(RecoveredName());
        WriteJob(JobPathOf(folders.DataFolder, name), job);
        return name;
    } catch (const std::exception&) {  // there is nobody to tell, and no other place
        return "";
    }
}
