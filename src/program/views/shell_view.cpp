// What the start and the end of the program do with form1 and with the process, and what of the settings lives on it.
#include "shell/shell_view.h"

#include "library/job_library.h"
#include "main/main_form.h"
#include "mainwindow/form_view.h"
#include "pages/job_page_form.h"
#include "pages/options_page.h"
#include "pages/record_page.h"
#include "platform/input.h"
#include "platform/tray.h"
#include "settings/settings.h"
#include "settings/settings_view.h"
#include "shell/startup.h"
#include "toolkit/window_tools.h"

namespace {

int Dpi() {
    return DpiOf(mainForm.Window());
}

}  // namespace

namespace shell_view {

void CreateMainWindow() {
    mainForm.CreateMainWindow();
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
        MainWindowPosition({Twips(place.right - place.left, Dpi()), Twips(place.bottom - place.top, Dpi())},
                           {Twips(screen.width, Dpi()), Twips(screen.height, Dpi())});
    MoveWindowTo(mainForm.Window(), Pixels(corner.x, Dpi()), Pixels(corner.y, Dpi()));
}

void ShowOptions() {
    recordPage.ShowOptions();
    optionsPage.ShowOptions();
    const bool anyJobs = jobLibrary.lista_jobs.ListCount() > 0;
    mainForm.ShowPage(anyJobs ? static_cast<const Page&>(jobPageForm) : recordPage);
}

void PodesiRjecnik() {
    Form::PodesiRjecnikOfAll();
}

void BringToNormal() {
    if (IsIconic(mainForm.Window())) form_view::BringToNormal();
}

void StaviFocus() {
    mainForm.StaviFocus();
}

void BlockShutdown(const std::string& reason) {
    wchar_t text[MAX_STR_BLOCKREASON] = L"";
    MultiByteToWideChar(CP_ACP, 0, reason.c_str(), -1, text, MAX_STR_BLOCKREASON - 1);
    ShutdownBlockReasonCreate(mainForm.Window(), text);
}

void UnblockShutdown() {
    ShutdownBlockReasonDestroy(mainForm.Window());
}

void RemoveTrayIcon() {
    platform::RemoveTrayIcon();
}

void EndProcess() {
    ExitProcess(0);
}

}  // namespace shell_view

// A minimised window stands nowhere, and its place is kept.
void CopyControlsToSettings() {
    if (mainForm.Window() == nullptr) return;
    recordPage.CopyOptions();
    if (IsIconic(mainForm.Window())) return;
    const platform::Rect place = RectangleOf(mainForm.Window());
    settings.MainLeft = Twips(place.left, Dpi());
    settings.MainTop = Twips(place.top, Dpi());
}
