#include "library/job_library.h"

#include <optional>
#include <vector>

#include "base/product.h"
#include "base/text.h"
#include "dictionary/dictionary.h"
#include "dictionary/sentences.h"
#include "jobs/job_name.h"
#include "library/library_view.h"
#include "platform/boxes.h"
#include "platform/files.h"
#include "platform/registry.h"
#include "platform/text.h"
#include "settings/folders.h"

JobLibrary jobLibrary;

namespace {

constexpr int JobIcon = 0;

// A job that another program holds just now is still a job: a backup must not thin out the list.
std::string SecondLineOf(const job_library::DurationWords& words, const JobHeaderCheck& check) {
    if (check.result == JobHeaderCheck::Held) return Translate("In use by another program");
    return job_library::SecondLine(words, check.description, check.duration);
}

void AddJob(const job_library::DurationWords& words, const std::string& name, const JobHeaderCheck& check) {
    jobLibrary.lista_jobs.AddItem(name, JobIcon, SecondLineOf(words, check));
    library_view::AddScheduleJob(name);
}

// False when the list was filled anew while a box was open: there is nothing left to do then.
bool AddJobsOf(const std::string& folder) {
    const std::uint32_t fill = jobLibrary.fills;
    const auto words = job_library::TranslatedDurationWords();
    for (const std::string& file : platform::FilesIn(folder, JobExtension).value_or(std::vector<std::string>())) {
        const JobHeaderCheck check = CheckJobHeader(folder + "\\" + file);
        if (check.result >= 0) {
            AddJob(words, BaseName(file), check);
            continue;
        }
        platform::ShowBox(check.message, Translate("Cannot load job file"), platform::BoxIcon::Error);
        if (jobLibrary.fills != fill) return false;
    }
    return true;
}

}  // namespace

namespace job_library {

void FillJobList() {
    ++jobLibrary.fills;
    jobLibrary.lista_jobs.Clear();
    library_view::ClearScheduleJobs();
    if (!AddJobsOf(folders.DataFolder)) return;
    if (jobLibrary.lista_jobs.ListCount() > 0) jobLibrary.lista_jobs.SelectItem(0);
    library_view::Jobs_Edit_Enabled(jobLibrary.lista_jobs.listindex() >= 0);
    library_view::ShowStartsWithWindows(StartsWithWindows());
    library_view::ShowDataFolder(folders.DataFolder);
}

std::string JobPathOfRow(int row) {
    return JobPathOf(folders.DataFolder, jobLibrary.lista_jobs.List(row));
}

void SelectJob(const std::string& path) {
    const std::string wanted = platform::LowerCase(path);
    for (int row = 0; row < jobLibrary.lista_jobs.ListCount(); ++row) {
        if (platform::LowerCase(JobPathOfRow(row)) == wanted) return jobLibrary.lista_jobs.SelectItem(row);
    }
}

void ShowSavedJob(const std::string& path) {
    FillJobList();
    SelectJob(path);
}

void ShowSecondLine(int row, const JobHeaderCheck& check) {
    const std::string line = SecondLineOf(TranslatedDurationWords(), check);
    if (jobLibrary.lista_jobs.Row(row).Text2 != line) jobLibrary.lista_jobs.SetSmallText(row, line);
}

DurationWords TranslatedDurationWords() {
    return {Label("Duration"), Translate("seconds")};
}

std::string SecondLine(const DurationWords& words, const std::string& description, std::int32_t durationMs) {
    if (!description.empty()) return description;
    return words.label + " " + DecimalNumber(durationMs / 100, 1) + " " + words.seconds;
}

std::string StartWithWindowsCommand() {
    return "\"" + folders.ProgramFolder + "\\tessarine.exe\" -startup";
}

bool StartsWithWindows() {
    const std::optional<std::string> command = platform::ReadRegistry(RunKey, ProductName);
    return command && platform::UpperCase(*command) == platform::UpperCase(StartWithWindowsCommand());
}

}  // namespace job_library
