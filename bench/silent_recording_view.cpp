#include "bench/silent_recording_view.h"

#include "recording/recording_view.h"
#include "recording/session_view.h"

SilentRecordingView silentRecordingView;

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
    return false;
}
void GiveHotkeys() {}
void TakeHotkeys() {}
bool AskToStart(const std::string&, const std::string&) {
    return true;
}
bool MainWindowIsVisible() {
    return false;
}
void MinimiseMainWindow() {}
void HideMainWindow() {}
void ShowMainWindow() {}
void PutEditorAside() {}
void ZavrsiUmetanjeSnimanjem() {}
void ShowSaveAs() {
    if (silentRecordingView.onSaveAs) silentRecordingView.onSaveAs();
}
std::string SaveRecovered(ListOfJobs) {
    return "";
}
}  // namespace session_view
