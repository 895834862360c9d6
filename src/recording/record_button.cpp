#include "recording/record_button.h"

#include "base/text.h"
#include "dictionary/dictionary.h"
#include "dictionary/sentences.h"
#include "platform/hooks.h"
#include "platform/pump.h"
#include "recording/countdown.h"
#include "recording/recording_session.h"
#include "recording/recording_state.h"
#include "recording/recording_view.h"
#include "recording/session_view.h"
#include "recording/start_app.h"
#include "recording/start_app_view.h"
#include "settings/settings.h"

namespace {

// False when the user canceled.
bool ChooseProgram() {
    if (settings.Display_Start_Program_Dialog == 1) {
        start_app_view::ShowModal();
        return !StartAppCanceled();
    }
    startProgram.ProgramPath.clear();
    startProgram.CommandLine.clear();
    return true;
}

// Without the status form, nothing else tells how a recording is stopped.
bool UserIsReady() {
    if (settings.Display_Recording_Window == 1) return true;
    const std::string text = Translate("Click OK when you are ready to start recording") + LineBreak +
                             Translate1("To stop recording press%1 key", PauseBreakKey());
    return session_view::AskToStart(text, Translate("Start recording"));
}

void GiveUp() {
    recordingSession.state = RecordingState::Idle;
    session_view::GiveHotkeys();
}

void PrepareAndStart() {
    session_view::TakeHotkeys();
    platform::Pump();
    if (!ChooseProgram() || !UserIsReady()) return GiveUp();
    if (session_view::MainWindowIsVisible()) session_view::MinimiseMainWindow();
    if (settings.display_countdown_check == 1) CountDown();
    recording_view::Load();
    StartRecording();
}

}  // namespace

void RecordNewJob() {
    if (platform::KeyboardHookInstalled() || RecordingActive() || session_view::RunUnderWay()) return;
    recordingSession.state = RecordingState::Preparing;  // before anything pumps
    try {
        PrepareAndStart();
    } catch (...) {
        if (RecordingActive()) GiveUp();
        session_view::ShowMainWindow();
        throw;
    }
}
