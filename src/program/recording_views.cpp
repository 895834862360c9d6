// What a recording asks of the program. Its forms do not exist yet and nothing starts a recording, so the calls that
// would show a form do nothing; what the main window and the hotkeys have to do is in place.
#include "hotkeys/hotkey_table.h"
#include "hotkeys/hotkey_view.h"
#include "mainwindow/form_visible.h"
#include "program/main_form.h"
#include "recording/recording_view.h"
#include "recording/session_view.h"
#include "replay/run_job.h"

// There is no record button yet, and win_main leaves its combination to others.
void hotkey_view::ClickCommand3() {}

namespace recording_view {

void Load() {}
void Show() {}
void Unload() {}
void SetCommand1(const std::string&) {}
void SetCommand2(const std::string&) {}
void SetLabel1(const std::string&) {}
void SetInfo(const std::string&) {}
void SetTime(const std::string&) {}
void ShowIndicator(bool) {}

}  // namespace recording_view

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

void PutEditorAside() {}
void ZavrsiUmetanjeSnimanjem() {}
void ShowSaveAs() {}

std::int32_t DoubleClickTime() {
    return static_cast<std::int32_t>(GetDoubleClickTime());
}

}  // namespace session_view
