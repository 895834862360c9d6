#include "recording/recording_status.h"

#include "base/arithmetic.h"
#include "dictionary/dictionary.h"
#include "dictionary/sentences.h"
#include "folding/row_texts.h"
#include "identity/window_identity.h"
#include "platform/clock.h"
#include "platform/window_services.h"
#include "recording/hook_watch.h"
#include "recording/input_capture.h"
#include "recording/recording_session.h"
#include "recording/recording_state.h"
#include "recording/recording_view.h"
#include "settings/settings.h"

RecordingStatus recordingStatus;

namespace {

constexpr std::int64_t ShortestPauseMs = 1000;
constexpr std::int64_t TwipsPerInch = 1440;
constexpr std::int64_t LeftSideTwips = 2000;
constexpr std::int32_t EdgePixels = 20;

void SetCommand2Caption(const std::string& caption) {
    recordingStatus.command2Caption = caption;
    recording_view::SetCommand2(caption);
}

void ShowElapsed(std::int64_t ms) {
    recording_view::SetTime(TimeString(RoundHalfEven(static_cast<double>(ms) / 1000.0)));
}

std::string InfoText(bool oddTurn) {
    if (hookWatch.told) return HookNotice();
    if (!RecordingPaused()) return Translate1("%1 to stop", PauseBreakKey());
    if (oddTurn) return Translate("Recording paused");
    return Translate1("%1 to resume", Translate("Resume"));
}

void Blink() {
    recordingStatus.indicatorVisible = !recordingStatus.indicatorVisible;
    recording_view::ShowIndicator(recordingStatus.indicatorVisible);
    const std::int64_t ticks = recordingSession.timerTicks;
    if (ticks % 2 == 0) recording_view::SetInfo(InfoText(ticks / 2 % 2 == 1));
}

void GoOn() {
    RecordingSession& session = recordingSession;
    session.state = RecordingState::Recording;
    session.pausedTotalMs += platform::TickCount() - session.pauseStartTick;
    recording_view::SetLabel1(Translate("Recording"));
    SetCommand2Caption(Translate("Pause"));
    if (recordingStatus.returnTo > 0) platform::BringToForeground(recordingStatus.returnTo);
}

}  // namespace

void ShowRecordingStatus() {
    recording_view::Show();
    recording_view::SetLabel1(Translate("Recording"));
    recording_view::SetCommand1(Translate("Stop"));
    SetCommand2Caption(Translate("Pause"));
}

// The plain word, in every language: with it, and no pause under way, the button is dead.
void ShowInsertCaptions() {
    ShowElapsed(platform::TickCount() - recordingSession.recordingStartTick);
    SetCommand2Caption("Resume");
}

void UnloadRecordingStatus() {
    recording_view::Unload();
}

void Command1_MouseDown() {
    recordingStatus.stopRequested = true;
    recordingSession.stoppedByPauseKey = false;
    KeyboardHookProc(StopFromButton, {});
}

void Command2_MouseDown() {
    if (recordingStatus.command2Caption != Translate("Pause")) return;
    recordingStatus.pausePressTick = platform::TickCount();
    if (recordingSession.state != RecordingState::Recording) return;
    recordingSession.state = RecordingState::Paused;
    recordingSession.pauseStartTick = recordingStatus.pausePressTick;
    recording_view::SetLabel1(Translate("PAUSED"));
    SetCommand2Caption(Translate("Resume"));
    recordingStatus.returnTo = -1;
}

// On its way to the button the pointer passes here before the click takes the foreground away.
void Command2_MouseMove() {
    if (!RecordingPaused()) return;
    const platform::WindowHandle foreground = platform::ForegroundWindow();
    if (foreground != ownWindows.recordingStatus) recordingStatus.returnTo = foreground;
}

// The release of the very click that paused comes here too, a moment after it.
void Command2_MouseUp() {
    if (recordingStatus.command2Caption != Translate("Resume") || !RecordingPaused()) return;
    if (platform::TickCount() - recordingStatus.pausePressTick >= ShortestPauseMs) GoOn();
}

void OnTimerRecording() {
    ++recordingSession.timerTicks;
    if (recordingSession.stopIsPutOff) return FinishStop();
    if (CaptureIsOn()) WatchHooks();
    if (settings.Display_Recording_Window != 1) return;
    Blink();
    if (!RecordingPaused()) ShowElapsed(RecordedTime());
}

std::int32_t DodgeTo(const platform::Rect& form, platform::Size screen, int pixelsPerInch) {
    const bool standsLeft = form.left * TwipsPerInch < LeftSideTwips * pixelsPerInch;
    return standsLeft ? screen.width - (form.right - form.left) - EdgePixels : EdgePixels;
}
