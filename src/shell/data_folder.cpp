#include "shell/data_folder.h"

#include <algorithm>
#include <cstring>
#include <optional>
#include <vector>

#include "base/product.h"
#include "base/runtime_failure.h"
#include "base/text.h"
#include "dictionary/dictionary.h"
#include "dictionary/sentences.h"
#include "jobs/job_name.h"
#include "library/job_shortcut.h"
#include "mainwindow/job_list.h"
#include "platform/boxes.h"
#include "platform/files.h"
#include "platform/registry.h"
#include "platform/shell_folders.h"
#include "platform/text.h"
#include "settings/folders.h"
#include "settings/settings.h"
#include "shell/options_view.h"
#include "storage/input_file.h"
#include "storage/kept_file.h"

namespace {

const std::string registryKey = std::string("Software\\") + ProductName;
constexpr const char* registryValue = "DataDir";
constexpr const char* SettingsName = "settings.binary";
constexpr std::size_t LongestRoot = 3;  // "C:\"

std::string StoredDataFolder() {
    const std::string stored =
        WithoutTrailingBackslash(platform::ReadRegistry(registryKey, registryValue).value_or(""));
    return platform::FolderExists(stored) ? stored : std::string();
}

std::string PathIn(const std::string& folder, const std::string& name) {
    return folder + "\\" + name;
}

// Letter case is ignored.
bool IsSamePath(const std::string& first, const std::string& second) {
    return platform::LowerCase(first) == platform::LowerCase(second);
}

void Require(bool worked, const std::string& path) {
    if (!worked) throw RuntimeFailure(FailureKind::File, "'" + path + "': " + platform::LastFileError());
}

// --- the copies ---

// The names of what moves, in the order in which it is copied.
std::vector<std::string> FilesToMove(const std::string& folder) {
    Require(options_view::ListJobsOf(folder), folder);
    std::vector<std::string> names;
    if (platform::StateOf(PathIn(folder, SettingsName)) != platform::FileState::Missing) names.push_back(SettingsName);
    const auto jobs = platform::FilesIn(folder, JobExtension);
    Require(jobs.has_value(), folder);
    names.insert(names.end(), jobs->begin(), jobs->end());
    return names;
}

bool HoldTheSame(const std::string& first, const std::string& second) {
    constexpr std::int64_t Block = 64LL * 1024;
    InputFile one(first);
    InputFile other(second);
    if (one.Length() != other.Length()) return false;
    for (std::int64_t left = one.Length(); left > 0; left -= Block) {
        const auto size = static_cast<std::size_t>(std::min(left, Block));
        if (std::memcmp(one.Take(size), other.Take(size), size) != 0) return false;
    }
    return true;
}

// What has the name already is another job, or the copy of an earlier try.
void CopyOne(const std::string& from, const std::string& to) {
    if (platform::StateOf(to) != platform::FileState::Missing) {
        if (HoldTheSame(from, to)) return;
        Require(KeepUnderAnotherName(to).has_value(), to);
    }
    if (platform::CopyFileOver(from, to)) return;
    platform::RemoveFile(to);  // half a job is none
    Require(false, to);
}

// --- the settings ---

// A path in the old folder becomes the one in the new folder. Others stay.
void Redirect(std::string& path, const std::string& oldFolder, const std::string& newFolder) {
    const std::string name = path.substr(path.rfind('\\') + 1);
    if (IsSamePath(path, PathIn(oldFolder, name))) path = PathIn(newFolder, name);
}

void RedirectSettings(const std::string& oldFolder, const std::string& newFolder) {
    for (Hotkey& hotkey : settings.Hotkeys) Redirect(hotkey.job_path, oldFolder, newFolder);
    for (Schedule& schedule : settings.Schedules) {
        Redirect(schedule.job_path, oldFolder, newFolder);
        Redirect(schedule.log_path, oldFolder, newFolder);
    }
    for (std::string& path : settings.RecentJobs) Redirect(path, oldFolder, newFolder);
}

// `change` as a whole or not at all.
template <class Change>
void WholeOrNotAtAll(Change change) {
    const Settings before = settings;
    const std::string folder = folders.DataFolder;
    try {
        change();
    } catch (const RuntimeFailure&) {
        settings = before;
        folders.DataFolder = folder;
        throw;
    }
}

// For the next start.
void Register(const std::string& folder) {
    if (platform::WriteRegistry(registryKey, registryValue, folder)) return;
    throw RuntimeFailure(FailureKind::File, Translate("The new location cannot be stored in the registry."));
}

// The registry comes last: whatever fails before it leaves the old folder in force.
void PutInForce(const std::string& oldFolder, const std::string& newFolder) {
    WholeOrNotAtAll([&] {
        RedirectSettings(oldFolder, newFolder);
        folders.DataFolder = newFolder;
        SaveSettings();
        Register(newFolder);
    });
}

// --- after the move ---

void MoveShortcuts(const std::vector<std::string>& names, const std::string& oldFolder, const std::string& newFolder) {
    for (const std::string& name : names) {
        MoveJobShortcut(PathIn(oldFolder, name), PathIn(newFolder, name), folders.DesktopFolder);
    }
}

void TellNotRemoved(const std::vector<std::string>& paths) {
    constexpr std::size_t MostNamed = 10;
    std::string text =
        Label("Your jobs and settings have been moved, but these files could not be deleted at the old location");
    for (std::size_t i = 0; i < std::min(paths.size(), MostNamed); ++i) text += LineBreak + paths[i];
    if (paths.size() > MostNamed) text += std::string(LineBreak) + "...";
    platform::ShowBox(text, Translate("Move Files"), platform::BoxIcon::Warning);
}

void RemoveOriginals(const std::vector<std::string>& names, const std::string& folder) {
    std::vector<std::string> left;
    for (const std::string& name : names) {
        if (!platform::RemoveFile(PathIn(folder, name))) left.push_back(PathIn(folder, name));
    }
    if (!left.empty()) TellNotRemoved(left);
}

// --- the choice ---

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
        std::optional<std::string> chosen = platform::BrowseForFolder(prompt, folders.DataFolder);
        if (!chosen || !IsRefused(*chosen)) return chosen;
    }
}

bool WantsToMove(const std::string& oldFolder, const std::string& newFolder) {
    return platform::AskYesNo(Question("Would you like to move all of the jobs and settings to the new location") +
                                  LineBreak + Labelled("Old location", oldFolder) + LineBreak +
                                  Labelled("New location", newFolder),
                              Question("Move Files"));
}

// The folder as it is. The settings of this process are written there by the next save; those of an earlier time that
// may lie there are kept.
bool Adopt(const std::string& folder) {
    const bool isOther = !IsSamePath(folder, folders.DataFolder);
    try {
        Register(folder);
    } catch (const RuntimeFailure& failure) {
        platform::ShowBox(failure.what(), Translate("Cannot change folder"), platform::BoxIcon::Error);
        return false;
    }
    folders.DataFolder = folder;
    if (isOther) settings.KeepOldFile = true;
    return true;
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
    std::vector<std::string> names;
    try {
        names = FilesToMove(oldFolder);
        for (const std::string& name : names) CopyOne(PathIn(oldFolder, name), PathIn(newFolder, name));
        PutInForce(oldFolder, newFolder);
    } catch (const RuntimeFailure&) {
        platform::ShowBox(Translate("An error occured while trying to move files"), Translate("Cannot change folder"));
        return 0;
    }
    MoveShortcuts(names, oldFolder, newFolder);
    RemoveOriginals(names, oldFolder);
    return 1;
}

void ChangeDataFolder() {
    const std::optional<std::string> chosen = ChooseFolder();
    if (!chosen) return;
    const std::string old = folders.DataFolder;
    const bool listed = options_view::ListJobsOf(*chosen);
    const bool moves = listed && !IsSamePath(*chosen, old) && WantsToMove(old, *chosen);
    if (moves ? MoveFiles(old, *chosen) < 1 : !Adopt(*chosen)) return;
    options_view::ShowDataFolder(folders.DataFolder);
    FillJobList();
}
