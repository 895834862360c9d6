#include "shell/data_folder.h"

#include <optional>
#include <vector>

#include "base/product.h"
#include "base/runtime_failure.h"
#include "base/text.h"
#include "dictionary/dictionary.h"
#include "dictionary/sentences.h"
#include "mainwindow/job_list.h"
#include "platform/boxes.h"
#include "platform/files.h"
#include "platform/registry.h"
#include "platform/shell_folders.h"
#include "platform/text.h"
#include "settings/folders.h"
#include "shell/options_view.h"

namespace {

const std::string registryKey = std::string("Software\\") + ProductName;
constexpr const char* registryValue = "DataDir";
constexpr std::size_t LongestRoot = 3;  // "C:\"

std::string StoredDataFolder() {
    const std::string stored =
        WithoutTrailingBackslash(platform::ReadRegistry(registryKey, registryValue).value_or(""));
    return platform::FolderExists(stored) ? stored : std::string();
}

void Require(bool worked, const std::string& path) {
    if (!worked) throw RuntimeFailure(FailureKind::File, "'" + path + "': " + platform::LastFileError());
}

// The names of what moves, in the order in which it is copied.
std::vector<std::string> FilesToMove(const std::string& folder) {
    Require(options_view::ListJobsOf(folder), folder);
    std::vector<std::string> names;
    if (platform::FileExists(folder + "\\settings.binary")) names.push_back("settings.binary");
    const auto jobs = platform::FilesIn(folder, ".tsj");
    Require(jobs.has_value(), folder);
    names.insert(names.end(), jobs->begin(), jobs->end());
    return names;
}

// Nothing is removed before everything has been copied.
void CopyThenRemove(const std::string& oldFolder, const std::string& newFolder) {
    const std::vector<std::string> names = FilesToMove(oldFolder);
    for (const std::string& name : names) {
        Require(platform::CopyFileOver(oldFolder + "\\" + name, newFolder + "\\" + name), name);
    }
    for (const std::string& name : names) Require(platform::RemoveFile(oldFolder + "\\" + name), name);
}

bool IsRefused(const std::string& folder) {
    if (folder.size() <= LongestRoot) {
        platform::ShowBox(Translate("Selecting root folder is not allowed. Please select another folder") + ".",
                          Translate("Invalid folder selection"), platform::BoxIcon::Error);
        return true;
    }
    if (!IsFolderWritable(folder)) {
        platform::ShowBox(Translate1("Writing data to folder '%1' failed. Please select another folder", folder),
                          Translate("Access denied"), platform::BoxIcon::Error);
        return true;
    }
    return false;
}

// Asks until the user chooses a folder that will do, or cancels.
std::optional<std::string> ChooseFolder() {
    const std::string prompt = Translate("Select new folder where your jobs and settings will be stored") + ".";
    for (;;) {
        const std::optional<std::string> chosen = platform::BrowseForFolder(prompt, folders.DataFolder);
        if (!chosen || !IsRefused(*chosen)) return chosen;
    }
}

bool IsSameFolder(const std::string& first, const std::string& second) {
    return platform::LowerCase(first) == platform::LowerCase(second);
}

bool WantsToMove(const std::string& oldFolder, const std::string& newFolder) {
    return platform::AskYesNo(Question("Would you like to move all of the jobs and settings to the new location") +
                                  LineBreak + Labelled("Old location", oldFolder) + LineBreak +
                                  Labelled("New location", newFolder),
                              Question("Move Files"));
}

}  // namespace

void ResolveDataFolder() {
    folders.DataFolder = StoredDataFolder();
    if (!folders.DataFolder.empty()) return;
    folders.DataFolder = WithoutTrailingBackslash(folders.PersonalFolder) + "\\" + ProductName;
    platform::WriteRegistry(registryKey, registryValue, folders.DataFolder);
}

void EnsureDataFolder() {
    if (!platform::FolderExists(folders.DataFolder)) platform::MakeFolder(folders.DataFolder);
}

bool IsFolderWritable(const std::string& folder) {
    const std::string probe = folder + "\\test.dat";
    platform::File file = platform::File::Create(probe);
    if (!file.IsOpen()) return false;
    const bool closed = file.Close();
    return platform::RemoveFile(probe) && closed;
}

int MoveFiles(const std::string& oldFolder, const std::string& newFolder) {
    try {
        CopyThenRemove(oldFolder, newFolder);
        return 1;
    } catch (const RuntimeFailure&) {
        platform::ShowBox(Translate("An error occured while trying to move files"), Translate("Cannot change folder"));
        return 0;
    }
}

void ChangeDataFolder() {
    const std::optional<std::string> chosen = ChooseFolder();
    if (!chosen) return;
    const bool listed = options_view::ListJobsOf(*chosen);
    if (listed && !IsSameFolder(*chosen, folders.DataFolder) && WantsToMove(folders.DataFolder, *chosen)) {
        if (MoveFiles(folders.DataFolder, *chosen) < 1) return;
    }
    folders.DataFolder = *chosen;
    options_view::ShowDataFolder(folders.DataFolder);
    platform::WriteRegistry(registryKey, registryValue, folders.DataFolder);
    FillJobList();
}
