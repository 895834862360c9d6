#include "recording/recording_session.h"

#include <algorithm>
#include <exception>
#include <limits>
#include <optional>
#include <string>
#include <utility>

#include "base/product.h"
#include "base/runtime_failure.h"
#include "base/text.h"
#include "dictionary/dictionary.h"
#include "dictionary/sentences.h"
#include "identity/window_identity.h"
#include "platform/boxes.h"
#include "platform/clock.h"
#include "platform/hooks.h"
#include "platform/input.h"
#include "platform/instances.h"
#include "platform/processes.h"
#include "platform/pump.h"
#include "platform/tray.h"
#include "platform/window_services.h"
#include "recording/click_fixups.h"
#include "recording/hook_watch.h"
#include "recording/input_capture.h"
#include "recording/recording_state.h"
#include "recording/recording_status.h"
#include "recording/recording_view.h"
#include "recording/session_view.h"
#include "recording/start_app.h"
#include "settings/settings.h"

namespace {

constexpr std::int32_t FirstEventCapacity = 1000;
constexpr std::int32_t InsertEventCapacity = 100;
constexpr int TimerMs = 1000;

void ShowTrayTip(const std::string& tip) {
    platform::RemoveTrayIcon();
    platform::AddTrayIcon(ownWindows.main, tip);
}

// While it is held, no other program begins a run: its input would be recorded. Should one play already, the recording
// goes on all the same.
std::optional<platform::RunClaim> desktopClaim;

void RemoveHooks() {
    desktopClaim.reset();
    if (platform::MouseHookInstalled()) platform::RemoveMouseHook();
    if (platform::KeyboardHookInstalled()) platform::RemoveKeyboardHook();
}

void BeginCapture() {
    desktopClaim.emplace();
    InstallRecordingHooks();
    StartHookWatch();
    recordingSession.state = RecordingState::Recording;
}

void RemoveLeftOverHooks() {
    if (platform::MouseHookInstalled()) {
        platform::RemoveMouseHook();
        platform::Pump();
    }
    if (platform::KeyboardHookInstalled()) {
        platform::RemoveKeyboardHook();
        platform::Pump();
    }
}

// A key that went down in the session before and did not come up in it is still held, as far as that job goes.
void ReleaseHeldKeys() {
    for (int virtualKey = 0; virtualKey < static_cast<int>(recordingSession.keyDown.size()); ++virtualKey) {
        bool& down = recordingSession.keyDown[static_cast<std::size_t>(virtualKey)];
        if (!down) continue;
        platform::InputRecord record;
        record.dwType() = platform::InputKeyboard;
        record.KeyCode() = platform::ScanCodeOf(virtualKey) * 65536 + virtualKey;
        record.KeyState() = platform::KeyUp;
        platform::SendInput(record);
        down = false;
    }
}

void StartTimer() {
    platform::StopTimer(recordingSession.timer_recording);
    recordingSession.timer_recording = platform::StartTimer(TimerMs, OnTimerRecording);
}

void StopTimer() {
    platform::StopTimer(recordingSession.timer_recording);
    recordingSession.timer_recording = 0;
}

// What both kinds of session begin with.
void ResetSession(std::int64_t startTick, std::int32_t capacity) {
    RecordingSession& session = recordingSession;
    recordingStatus.stopRequested = false;
    session.pausedTotalMs = 0;
    session.scrollLockLeftDown = false;
    session.keyLeftOut = {};
    session.keyRecorded = {};
    session.buttonsLeftOut = 0;
    session.outOfMemory = false;
    session.hookBusy = false;
    ResetHookWatch();
    ClearClickPairing();
    session.doubleClickTime = platform::DoubleClickTime();
    session.screen = platform::ScreenSize();
    session.recordingStartTick = startTick;
    session.eventCount = -1;
    session.growEvents = false;
    session.recordingEvents.Reset(capacity);
    session.eventCapacity = capacity;
}

// The window that the user works in keeps the foreground.
void ShowStatusForm() {
    const platform::WindowHandle foreground = platform::ForegroundWindow();
    ShowRecordingStatus();
    platform::Pump();
    if (foreground > 0) platform::BringToForeground(foreground);
}

void StartChosenProgram() {
    const StartProgramRecord& program = recordingSession.program;
    const std::string path = Trim(program.ProgramPath);
    if (path.empty()) return;
    if (platform::StartProgram(path + " " + Trim(program.CommandLine), program.WindowStyle)) return;
    throw RuntimeFailure(FailureKind::File, Label("Cannot start program") + LineBreak + path);
}

// The Stop button is there since the status form came up, and the pumps let its click through.
bool StopIsWanted() {
    return recordingStatus.stopRequested;
}

void Begin() {
    RecordingSession& session = recordingSession;
    ResetSession(platform::TickCount(), FirstEventCapacity);
    ResetWindowArrays();
    session.capsLockAtStart = platform::KeyState(platform::VirtualKeyCapital);
    session.program = startProgram;
    if (settings.Display_Recording_Window == 1) ShowStatusForm();
    StartTimer();
    ShowTrayTip(RecordingTip);
    platform::Pump();
    if (!StopIsWanted()) StartChosenProgram();
    platform::Pump();
    if (!StopIsWanted()) BeginCapture();
}

// What a stop and an abandoned recording have in common. The hooks go before anything can pump.
void CeaseCapture() {
    RemoveHooks();
    recordingSession.stopIsPutOff = false;
    StopTimer();
    ShowTrayTip(std::string(ProductName) + " " + ProductVersion);
}

void OfferToSave() {
    session_view::ShowMainWindow();
    platform::BringToForeground(ownWindows.main);
    platform::Pump();
    session_view::ShowSaveAs();
}

void HandOver() {
    // The editor clears the flag too, but not after a piece with nothing in it.
    if (std::exchange(recordingSession.insertingRecording, false)) return session_view::ZavrsiUmetanjeSnimanjem();
    OfferToSave();
}

std::string Rescue(session_view::ListOfJobs list) {
    return recordingSession.eventCount > 0 ? session_view::SaveRecovered(list) : std::string();
}

void TellWhyItEnded() {
    if (!recordingSession.outOfMemory) return;
    platform::ShowBox(
        Translate("There is no memory left to go on recording. What was recorded until now can be saved."), ProductName,
        platform::BoxIcon::Error);
}

// A form that cannot be shown must not cost the user what was recorded.
void HandOverOrRescue() {
    try {
        session_view::ShowMainWindow();
        platform::Pump();
        platform::Pump();
        TellWhyItEnded();
        HandOver();
    } catch (const std::exception& failure) {
        const std::string name = Rescue(session_view::ListOfJobs::Shown);
        if (name.empty()) throw;
        platform::ShowBox(
            failure.what() + std::string(LineBreak) + Translate1("What was recorded is saved as '%1'.", name),
            ProductName, platform::BoxIcon::Error);
    }
}

void TakeWhatWasCaptured() {
    ++recordingSession.eventCount;
    RepairClicks();
}

void ReleaseProgram() {
    recordingSession.state = RecordingState::Idle;
    session_view::GiveHotkeys();
}

// Frees the program for other work, whichever way the stop goes.
struct ReleaseAtEnd {
    ReleaseAtEnd() = default;
    ~ReleaseAtEnd() { ReleaseProgram(); }
    ReleaseAtEnd(const ReleaseAtEnd&) = delete;
    ReleaseAtEnd& operator=(const ReleaseAtEnd&) = delete;
};

void Finish() {
    recordingSession.state = RecordingState::Stopping;
    const ReleaseAtEnd release;
    CeaseCapture();
    UnloadRecordingStatus();
    TakeWhatWasCaptured();
    HandOverOrRescue();
}

// The whole desktop waits for a hook procedure, and the end of a recording goes on until the Save As form is closed. So
// the hook only makes itself deaf.
void PutStopOff() {
    if (std::exchange(recordingSession.stopIsPutOff, true)) return;
    recordingSession.state = RecordingState::Stopping;
    try {
        platform::CallFromPump(FinishStop);
    } catch (const std::exception&) {  // no memory, no timer: timer_recording comes by within a second
    }
}

void BeginInsertion() {
    session_view::MinimiseMainWindow();
    session_view::PutEditorAside();
    session_view::HideMainWindow();
    recording_view::Load();
    ShowRecordingStatus();
    ShowInsertCaptions();
    StartTimer();
    BeginCapture();
}

}  // namespace

void StartRecording() {
    recordingSession.state = RecordingState::Preparing;
    try {
        RemoveLeftOverHooks();
        session_view::HideMainWindow();
        ReleaseHeldKeys();
        Begin();
    } catch (...) {
        recording_view::Unload();
        AbandonRecording();
        session_view::ShowMainWindow();
        throw;
    }
    if (StopIsWanted()) Finish();
}

void StartInsertRecording(std::int64_t startTick, const std::vector<WindowSignature>& windows,
                          const std::vector<WindowChain>& chains) {
    if (platform::MouseHookInstalled() || platform::KeyboardHookInstalled() || RecordingActive()) {
        platform::ShowBox("Greska! MouseHook <> 0 i KeyboardHook <>0", ProductName);
        return;
    }
    recordingSession.state = RecordingState::Preparing;
    recordingSession.insertingRecording = true;
    try {
        ResetSession(startTick, InsertEventCapacity);
        ResetWindowArrays(windows, chains);
        BeginInsertion();
    } catch (...) {
        recording_view::Unload();
        AbandonRecording();
        session_view::ShowMainWindow();
        session_view::ZavrsiUmetanjeSnimanjem();
        throw;
    }
    if (!platform::MouseHookInstalled()) platform::ShowBox("Greska2!", ProductName);
}

void InstallRecordingHooks() {
    platform::InstallMouseHook(MouseHookProc);
    platform::InstallKeyboardHook(OnKeyboardHook);
}

void StopRecording() {
    RecordingSession& session = recordingSession;
    if (session.state == RecordingState::Preparing) recordingStatus.stopRequested = true;
    if (!CaptureIsOn() && !session.stopIsPutOff) return;
    if (!platform::InHookCall()) return Finish();
    PutStopOff();
}

void FinishStop() {
    if (recordingSession.stopIsPutOff) Finish();
}

void AbandonRecording() {
    if (!RecordingActive()) return;
    CeaseCapture();
    recordingSession.eventCount = 0;
    recordingSession.insertingRecording = false;
    ReleaseProgram();
}

void RescueRecording() {
    if (CaptureIsOn() || recordingSession.stopIsPutOff) {
        recordingSession.state = RecordingState::Stopping;
        CeaseCapture();
        TakeWhatWasCaptured();
    }
    if (recordingSession.state == RecordingState::Stopping) Rescue(session_view::ListOfJobs::Left);
}

// From the 25th day on, the time stands still: an event has no room for a later one.
std::int32_t RecordedTime() {
    const std::int64_t time =
        platform::TickCount() - recordingSession.recordingStartTick - recordingSession.pausedTotalMs;
    return static_cast<std::int32_t>(std::min<std::int64_t>(time, std::numeric_limits<std::int32_t>::max()));
}

Job RecordedJob() {
    Job job;
    job.StartProgram = recordingSession.program;
    job.CapsLockState = recordingSession.capsLockAtStart;
    job.Events = recordingSession.recordingEvents.First(recordingSession.eventCount);
    job.Windows = windowArrays.windows;
    job.Chains = windowArrays.chains;
    return job;
}
