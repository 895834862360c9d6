// What the shell does with windows and with the process. The program's forms implement this; in the tests a stand-in
// does. Nothing here pumps.
#pragma once

#include <string>

namespace shell_view {

// form1, not visible yet, with its controls and its tray icon.
void CreateMainWindow();

// The caption, and the limits of controls that are the same for everybody.
void PrepareMainWindow();

// The window procedures of the main window and of the lists lista_jobs and schedule_lista. Each restoring does nothing
// when its procedure is not installed.
void InstallProcedures();
void RestoreJobListProcedure();
void RestoreScheduleListProcedure();
void RestoreMainProcedure();

void RestoreWindowPosition();  // from the settings; centred when the place is not on the screen
void ShowOptions();            // the Options page as the settings and the language have it
void PodesiRjecnik();          // ("set up the dictionary"): the captions, in the language in force

void BringToNormal();  // a minimised main window
void StaviFocus();     // ("set the focus"): to the front, with the keyboard

void RemoveTrayIcon();

// ShutdownBlockReasonCreate and its end: Windows waits for us, and tells the user why.
void BlockShutdown(const std::string& reason);
void UnblockShutdown();

// At once: no form hears of it.
[[noreturn]] void EndProcess();

}  // namespace shell_view
