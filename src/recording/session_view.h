// What a recording asks of windows and modules that stand above it: the main window, the hotkeys, the job editor, the
// Save As form. The program implements this; in the tests a stand-in does.
#pragma once

#include <cstdint>
#include <string>

namespace session_view {

// A job is being run; no recording begins meanwhile.
bool RunUnderWay();

// The global hotkeys: a recording must not start jobs with the keys that it records. TakeHotkeys pumps.
void GiveHotkeys();
void TakeHotkeys();

// A box with OK and Cancel and the information icon; true for OK. Pumps while it is open.
bool AskToStart(const std::string& text, const std::string& title);

// The main window. To hide it leaves the tray icon alone.
bool MainWindowIsVisible();
void MinimiseMainWindow();
void HideMainWindow();
void ShowMainWindow();

// The job editor: minimised and disabled while a piece is recorded for it, and then given the piece.
void PutEditorAside();
void ZavrsiUmetanjeSnimanjem();  // ("finish the insertion by recording")

// The Save As form, modal; pumps until it is closed. RecordedJob is what it saves.
void ShowSaveAs();

// Writes RecordedJob where no form can ask for a name, and shows it in the list of jobs if there is still somebody to
// see it. Returns its name; empty when it could not be written.
enum class ListOfJobs { Shown, Left };
std::string SaveRecovered(ListOfJobs list);

}  // namespace session_view
