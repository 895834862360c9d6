#include "shell/startup.h"

#include "base/product.h"
#include "base/runtime_failure.h"
#include "base/text.h"
#include "dictionary/dictionary.h"
#include "hotkeys/hotkey_table.h"
#include "identity/window_identity.h"
#include "mainwindow/form_visible.h"
#include "mainwindow/job_list.h"
#include "mainwindow/main_window_use.h"
#include "mainwindow/recent_menu.h"
#include "platform/boxes.h"
#include "platform/clock.h"
#include "platform/instances.h"
#include "platform/registry.h"
#include "platform/shell_folders.h"
#include "platform/window_services.h"
#include "scheduler/date_text.h"
#include "scheduler/schedule_dispatch.h"
#include "scheduler/schedule_list.h"
#include "scheduler/start_up_runs.h"
#include "settings/folders.h"
#include "settings/settings.h"
#include "shell/command_line.h"
#include "shell/copy_data.h"
#include "shell/data_folder.h"
#include "shell/handed_over.h"
#include "shell/language_selection.h"
#include "shell/shell_view.h"
#include "sounds/sounds.h"
#include "storage/temporary_name.h"
#include "update/version_check.h"

namespace {

constexpr std::int64_t LongestSilenceMs = 10'000;
constexpr std::int64_t KnockPauseMs = 20;
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

// The window of the first instance that takes messages now: while it starts, its door. 0 for a moment when it has just
// begun.
platform::WindowHandle FirstInstance() {
    const platform::WindowHandle door = platform::FindTopWindow(platform::DoorClass, MainCaption());
    return door > 0 ? door : platform::FindTopWindow(MainWindowClass, MainCaption());
}

// Only the process that the user has just started can give the foreground on.
bool Send(platform::WindowHandle first) {
    platform::LetComeForward(first);
    const std::string commandLine = platform::CommandLineText();
    if (!Trim(commandLine).empty()) return platform::SendCopyData(first, CopyDataOfCommand(commandLine));
    if (!platform::SendPlainMessage(first, ShowYourselfMessage)) return false;
    platform::BringToForeground(first);
    return true;
}

void TellNoAnswer() {
    platform::ShowBox(Translate("Tessarine is running already, but does not answer. Please try again in a moment."),
                      ProductName, platform::BoxIcon::Warning);
}

// Two starts at the same moment end in one program: the second knocks until the first has taken what it brings. If the
// first ends instead, this one takes its place; but a job that the first had begun is not run a second time. A running
// instance of another version has another name, and this one goes on beside it.
bool HandedOverToFirst() {
    const std::int64_t deadline = platform::TickCount() + LongestSilenceMs;
    const platform::BegunSign begun(platform::CommandLineText());
    while (platform::AnotherInstanceRuns(MainCaption())) {
        const platform::WindowHandle first = FirstInstance();
        if (first > 0 && (Send(first) || begun.IsSet())) return true;
        if (platform::TickCount() >= deadline) {
            TellNoAnswer();
            return true;
        }
        platform::Sleep(KnockPauseMs);
    }
    return false;
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
        ComputerStartUp();
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
    if (HandedOverToFirst()) return false;
    OpenFrontDoor();
    FindFolders();
    RemoveLeftovers(folders.DataFolder);
    OfferLanguages(platform::CommandLineText());
    TellFailure(LoadSettings);
    if (settings.Check_updates == 1) CheckVersionQuietly();
    shell_view::CreateMainWindow();
    HoldMainWindowDuringBoxes();
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
    TellFailure([&] { PrepareStartUpRuns(withComputer); });
    if (!settings.SettingsLoaded) ApplyFirstRunValues();
    shell_view::RestoreWindowPosition();
    // What it has to tell it tells whatever the command line says; the options are shown as it leaves them.
    LoadSounds(ownWindows.main);
    shell_view::ShowOptions();
    CloseFrontDoor();
    TellFailure([&] { ActOnCommandLine(withComputer); });
    FillRecentJobsMenu();
    shell_view::PodesiRjecnik();
}
