// form1 as the rest of the program speaks to it.

#include "dictionary/dictionary.h"
#include "library/job_library.h"
#include "library/library_view.h"
#include "main/main_form.h"
#include "mainwindow/form_view.h"
#include "mainwindow/form_visible.h"
#include "mainwindow/job_list.h"
#include "mainwindow/job_page.h"
#include "mainwindow/job_page_view.h"
#include "makeexe/make_executable.h"
#include "platform/files.h"
#include "platform/input.h"
#include "platform/tray.h"
#include "replay/main_window_view.h"
#include "settings/settings.h"
#include "settings/settings_view.h"
#include "shell/options_view.h"
#include "shell/shell_view.h"
#include "shell/startup.h"
#include "toolkit/window_tools.h"

namespace {

constexpr int TwipsPerInch = 1440;

std::int32_t Twips(int pixels) {
    return MulDiv(pixels, TwipsPerInch, DpiOf(mainForm.Window()));
}

int Pixels(std::int32_t twips) {
    return MulDiv(twips, DpiOf(mainForm.Window()), TwipsPerInch);
}

}  // namespace

namespace main_window_view {

bool IsVisible() {
    return MainWindowVisible();
}

bool IsNormal() {
    return !IsIconic(mainForm.Window()) && !IsZoomed(mainForm.Window());
}

void Minimise() {
    ShowWindow(mainForm.Window(), SW_MINIMIZE);
}

// Comes back where it was, and leaves the keyboard to the window that the job has left in front.
void Restore() {
    ShowWindow(mainForm.Window(), SW_SHOWNOACTIVATE);
}

void Enable(bool enable) {
    EnableWindow(mainForm.Window(), enable);
}

void EnableExitButton(bool enable) {
    mainForm.EnableExitButton(enable);
}

}  // namespace main_window_view

namespace form_view {

void SetVisible(bool visible) {
    ShowWindow(mainForm.Window(), visible ? SW_SHOW : SW_HIDE);
}

bool IsMinimised() {
    return IsIconic(mainForm.Window());
}

void BringToNormal() {
    ShowWindow(mainForm.Window(), SW_SHOWNORMAL);
}

bool IsEnabled() {
    return IsWindowEnabled(mainForm.Window());
}

void SetTrayOpenCaption(const std::string& caption) {
    mainForm.SetTrayOpenCaption(caption);
}

void OpenTrayMenu() {
    mainForm.OpenTrayMenu();
}

}  // namespace form_view

namespace shell_view {

void CreateMainWindow() {
    mainForm.Create();
}

void PrepareMainWindow() {
    SetWindowTextA(mainForm.Window(), MainCaption().c_str());
}

void InstallProcedures() {
    mainForm.InstallProcedure();
}

// The list takes its messages itself, and there is no other list yet: no procedure stands in front of theirs.
void RestoreJobListProcedure() {}
void RestoreScheduleListProcedure() {}

void RestoreMainProcedure() {
    mainForm.RestoreProcedure();
}

void RestoreWindowPosition() {
    const platform::Rect place = RectangleOf(mainForm.Window());
    const platform::Size screen = platform::ScreenSize();
    const platform::Point corner =
        MainWindowPosition({Twips(place.right - place.left), Twips(place.bottom - place.top)},
                           {Twips(screen.width), Twips(screen.height)});
    MoveWindowTo(mainForm.Window(), Pixels(corner.x), Pixels(corner.y));
}

// The Options page does not exist yet, but for the options of recordings.
void ShowOptions() {
    GetLanguage();
    mainForm.recordPage.ShowOptions();
    mainForm.ShowPage(jobLibrary.lista_jobs.ListCount() > 0 ? MainPage::Jobs : MainPage::Record);
}

void PodesiRjecnik() {
    mainForm.PodesiRjecnik();
}

void BringToNormal() {
    if (IsIconic(mainForm.Window())) form_view::BringToNormal();
}

void StaviFocus() {
    mainForm.StaviFocus();
}

void RemoveTrayIcon() {
    platform::RemoveTrayIcon();
}

void EndProcess() {
    ExitProcess(0);
}

}  // namespace shell_view

namespace options_view {

// There is no list to refuse a folder: what counts is whether it can be read.
bool ListJobsOf(const std::string& folder) {
    return platform::FilesIn(folder, ".tsj").has_value();
}

void ShowDataFolder(const std::string&) {}

}  // namespace options_view

namespace job_page_view {

void Show() {
    mainForm.jobPageForm.Show();
}

void FocusOn(HotkeyFocus control) {
    mainForm.jobPageForm.FocusOn(control);
}

void PosiviSve(bool grey) {
    mainForm.jobPageForm.PosiviSve(grey);
}

void OpenMenuJobs() {
    mainForm.jobPageForm.OpenMenuJobs();
}

void MakeExe(const std::string& jobPath) {
    MakeExecutable(jobPath);
}

void OpenScheduleOf(const std::string&) {}  // SchedulePageExists says so

}  // namespace job_page_view

// What stands on the schedule page and on the Options page has no control yet.
namespace library_view {

void ClearScheduleJobs() {}
void AddScheduleJob(const std::string&) {}

void Jobs_Edit_Enabled(bool enable) {
    ::Jobs_Edit_Enabled(enable);
}

void ShowStartsWithWindows(bool) {}
void ShowDataFolder(const std::string&) {}

}  // namespace library_view

// A minimised window stands nowhere, and its place is kept.
void CopyControlsToSettings() {
    if (mainForm.Window() == nullptr) return;
    mainForm.recordPage.CopyOptions();
    if (IsIconic(mainForm.Window())) return;
    const platform::Rect place = RectangleOf(mainForm.Window());
    settings.MainLeft = Twips(place.left);
    settings.MainTop = Twips(place.top);
}
