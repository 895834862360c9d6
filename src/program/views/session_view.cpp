// What a recording and a hotkey ask of the main window and of the editor, for which pieces are recorded.
#include "recording/session_view.h"

#include "editor/edit_view.h"
#include "editor/insert_recording.h"
#include "forms/save_as_form.h"
#include "hotkeys/hotkey_table.h"
#include "hotkeys/hotkey_view.h"
#include "jobs/job_name.h"
#include "library/job_library.h"
#include "library/save_as.h"
#include "main/main_form.h"
#include "mainwindow/form_visible.h"
#include "mainwindow/job_page.h"
#include "pages/job_page_form.h"
#include "platform/pump.h"
#include "recording/recording_session.h"
#include "replay/run_job.h"
#include "settings/folders.h"
#include "win32/open_box.h"

void hotkey_view::ClickCommand3() {
    record_new();
}

namespace session_view {

bool RunUnderWay() {
    return runState.ReplayRunning;
}

void GiveHotkeys() {
    RegisterAllHotkeys();
}

void TakeHotkeys() {
    UnregisterAllHotkeys();
}

bool AskToStart(const std::string& text, const std::string& title) {
    const platform::OpenBox box(mainForm.Window());
    const UINT flags = MB_OKCANCEL | MB_ICONINFORMATION | MB_TASKMODAL | MB_SETFOREGROUND;
    return MessageBoxA(mainForm.Window(), text.c_str(), title.c_str(), flags) == IDOK;
}

bool MainWindowIsVisible() {
    return MainWindowVisible();
}

void MinimiseMainWindow() {
    ShowWindow(mainForm.Window(), SW_MINIMIZE);
}

void HideMainWindow() {
    FormVisible(false, false);
}

void ShowMainWindow() {
    FormVisible(true, false);
}

void PutEditorAside() {
    edit_view::PutAside();
}

void ZavrsiUmetanjeSnimanjem() {
    ::ZavrsiUmetanjeSnimanjem();
}

// The save itself has filled the list of jobs and selected the new one.
void ShowSaveAs() {
    const bool saved = SaveAsForm().ShowModal();
    platform::Pump();
    if (!saved) return;
    mainForm.ShowPage(jobPageForm);
    mainForm.StaviFocus();
}

std::string SaveRecovered(ListOfJobs list) {
    std::string name = SaveRecoveredRecording(RecordedJob());
    if (list == ListOfJobs::Shown && !name.empty()) job_library::ShowSavedJob(JobPathOf(folders.DataFolder, name));
    return name;
}

}  // namespace session_view
