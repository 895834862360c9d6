#include "shell/startup.h"

#include "base/product.h"
#include "base/runtime_failure.h"
#include "base/text.h"
#include "hotkeys/hotkey_table.h"
#include "mainwindow/form_visible.h"
#include "mainwindow/job_list.h"
#include "mainwindow/recent_menu.h"
#include "platform/boxes.h"
#include "platform/clock.h"
#include "platform/instances.h"
#include "platform/registry.h"
#include "platform/shell_folders.h"
#include "platform/window_services.h"
#include "scheduler/date_text.h"
#include "scheduler/schedule_list.h"
#include "settings/folders.h"
#include "settings/settings.h"
#include "shell/command_line.h"
#include "shell/copy_data.h"
#include "shell/data_folder.h"
#include "shell/shell_view.h"
#include "update/version_check.h"

namespace {

constexpr const char* ShellFoldersKey = "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders";

// A step of the start that fails is told, and the start goes on without it.
template <class Step>
void TellFailure(Step step) {
    try {
        step();
    } catch (const RuntimeFailure& failure) {
        platform::ShowBox(failure.what(), ProductName, platform::BoxIcon::Error);
    }
}

void HandOver(platform::WindowHandle first) {
    const std::string commandLine = platform::CommandLineText();
    if (Trim(commandLine).empty()) {
        platform::SendPlainMessage(first, ShowYourselfMessage);
        platform::BringToForeground(first);
    } else {
        platform::SendCopyData(first, CopyDataOfCommand(commandLine));
    }
}

// A running instance of another version has another caption, and this one goes on beside it.
bool HandedOver() {
    if (!platform::AnotherInstanceRuns()) return false;
    const platform::WindowHandle first = platform::FindTopWindow(MainWindowClass, MainCaption());
    if (first < 1) return false;
    HandOver(first);
    return true;
}

void FindFolders() {
    folders.PersonalFolder = platform::ReadRegistry(ShellFoldersKey, "Personal").value_or("");
    folders.ProgramFolder = platform::ExecutableFolder();
    ResolveDataFolder();
    folders.DesktopFolder = platform::DesktopDirectory();
    EnsureDataFolder();
    folders.PersonalFolder = WithoutTrailingBackslash(folders.PersonalFolder);
    folders.DataFolder = WithoutTrailingBackslash(folders.DataFolder);
    folders.ProgramFolder = WithoutTrailingBackslash(folders.ProgramFolder);
}

void PrepareStartUpRuns(bool withComputer) {
    if (withComputer) {
        PrepareStartUpSchedules();
    } else {
        MarkStartUpRunsOver();
    }
}

void ActOnCommandLine(bool withComputer) {
    if (withComputer) {
        FormVisible(false, false);
        folders.StartedAt = StampText(platform::LocalNow());
    } else {
        HandleCommandParameter(platform::CommandLineText(), false);
    }
}

}  // namespace

std::string MainCaption() {
    return std::string(ProductName) + " " + ProductVersion;
}

bool Main() {
    if (HandedOver()) return false;
    FindFolders();
    TellFailure(LoadSettings);
    if (settings.Check_updates == 1) CheckVersionQuietly();
    shell_view::CreateMainWindow();
    LoadMainWindow();
    // A command line that asked for nothing has left the window as it was created.
    if (!formVisibility.visible) FormVisible(true, false);
    if (MainWindowVisible()) shell_view::StaviFocus();
    return true;
}

void LoadMainWindow() {
    const bool withComputer = IsComputerStart(platform::CommandLineText());
    shell_view::PrepareMainWindow();
    FillJobList();
    FillScheduleList();
    shell_view::InstallProcedures();
    RegisterAllHotkeys();
    SelectFirstJob();
    PrepareStartUpRuns(withComputer);
    if (!settings.SettingsLoaded) ApplyFirstRunValues();
    shell_view::RestoreWindowPosition();
    shell_view::ShowOptions();
    TellFailure([&] { ActOnCommandLine(withComputer); });
    FillRecentJobsMenu();
    shell_view::PodesiRjecnik();
}

void OnShowYourself() {
    FormVisible(true, false);
    shell_view::BringToNormal();
    shell_view::StaviFocus();
}
