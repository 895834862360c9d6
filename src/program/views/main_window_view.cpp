// What a run and the tray do with form1.
#include <windows.h>

#include "job_editor/edit_job_form.h"
#include "main/main_form.h"
#include "mainwindow/form_view.h"
#include "mainwindow/form_visible.h"
#include "mainwindow/main_window_use.h"
#include "replay/main_window_view.h"

namespace main_window_view {

bool IsVisible() {
    return MainWindowVisible();
}

bool IsNormal() {
    return !IsIconic(mainForm.Window()) && !IsZoomed(mainForm.Window());
}

// The job editor goes along, as every window does with the one that owns it.
void Minimise() {
    ShowOwnedPopups(mainForm.Window(), FALSE);
    ShowWindow(mainForm.Window(), SW_MINIMIZE);
}

// Comes back where it was, and leaves the keyboard to the window that the job has left in front.
void Restore() {
    ShowWindow(mainForm.Window(), SW_SHOWNOACTIVATE);
    ShowOwnedPopups(mainForm.Window(), TRUE);
    editJobForm.StandAboveOwner();
}

void Enable(bool enable) {
    enable ? mainWindowUse.GiveBack(MainWindowHolder::Run) : mainWindowUse.Take(MainWindowHolder::Run);
}

void EnableExitButton(bool enable) {
    EnableWindow(mainForm.Control(form1_Exit), enable);
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
    ShowOwnedPopups(mainForm.Window(), TRUE);
}

bool IsEnabled() {
    return IsWindowEnabled(mainForm.Window());
}

void Enable(bool enable) {
    EnableWindow(mainForm.Window(), enable);
}

void SetTrayOpenCaption(const std::string& caption) {
    mainForm.SetTrayOpenCaption(caption);
}

void OpenTrayMenu() {
    mainForm.OpenTrayMenu();
}

}  // namespace form_view
