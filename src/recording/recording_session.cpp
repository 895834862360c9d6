#include "recording/recording_session.h"

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
#include "platform/processes.h"
#include "platform/pump.h"
#include "platform/tray.h"
#include "platform/window_services.h"
#include "recording/click_fixups.h"
#include "recording/hook_watch.h"
#include "recording/input_capture.h"
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

void RemoveHooks() {
    if (platform::MouseHookInstalled()) platform::RemoveMouseHook();
    if (platform::KeyboardHookInstalled()) platform::RemoveKeyboardHook();
    recordingSession.MouseHook = false;
    recordingSession.KeyboardHook = false;
}

void InstallHooks() {
    InstallRecordingHooks();
    StartHookWatch();
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

// What both kinds of session begin with. A session that was stopped while paused must not leave the next one deaf.
void ResetSession(std::int64_t startTick, std::int32_t capacity) {
    RecordingSession& session = recordingSession;
    recordingStatus.stopRequested = false;
    session.paused = false;
    session.pausedTotalMs = 0;
    session.scrollLockLeftDown = false;
    session.hookBusy = false;
    ResetHookWatch();
    ClearClickPairing();
    session.doubleClickTime = session_view::DoubleClickTime();
    session.screen = platform::ScreenSize();
    session.recordingStartTick = startTick;
    session.eventCount = -1;
    session.growEvents = false;
    session.recordingEvents.Reset(capacity);
    session.eventCapacity = capacity;
}

void ResetWindows(std::vector<WindowSignature> windows, std::vector<WindowChain> chains) {
    ResetWindowArrays(std::move(windows), std::move(chains));
    ReserveWindowArrays();
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

void Begin() {
    RecordingSession& session = recordingSession;
    const std::uint32_t number = ++session.number;
    session.running = true;
    ResetSession(platform::TickCount(), FirstEventCapacity);
    ResetWindows({}, {});
    session.capsLockAtStart = platform::KeyState(platform::VirtualKeyCapital);
    session.program = startProgram;
    if (settings.Display_Recording_Window == 1) ShowStatusForm();
    StartTimer();
    ShowTrayTip(RecordingTip);
    platform::Pump();
    if (session.number == number) StartChosenProgram();
    platform::Pump();
    // The Stop button is there since the status form came up, and the pumps let its click through.
    if (session.number == number) InstallHooks();
}

// What a stop and an abandoned recording have in common. The hooks go before anything can pump: that they are out
// tells everybody that no session runs.
void CeaseCapture() {
    RemoveHooks();
    recordingSession.running = false;
    ++recordingSession.number;
    StopTimer();
    ShowTrayTip(std::string(ProductName) + " " + ProductVersion);
}

// The events are trimmed by their repair. An array without an element keeps its room.
void TrimArrays() {
    if (!windowArrays.chains.empty()) windowArrays.chains.shrink_to_fit();
    if (!windowArrays.windows.empty()) windowArrays.windows.shrink_to_fit();
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

void ReleaseProgram() {
    recordingSession.recordBusy = false;
    session_view::GiveHotkeys();
}

// Frees the program for other work, whichever way the stop goes.
struct BusyWithStop {
    BusyWithStop() { recordingSession.recordBusy = true; }
    ~BusyWithStop() { ReleaseProgram(); }
    BusyWithStop(const BusyWithStop&) = delete;
    BusyWithStop& operator=(const BusyWithStop&) = delete;
};

}  // namespace

void StartRecording() {
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
}

void StartInsertRecording(std::int64_t startTick, std::vector<WindowSignature> windows,
                          std::vector<WindowChain> chains) {
    if (platform::MouseHookInstalled() || platform::KeyboardHookInstalled()) {
        platform::ShowBox("Greska! MouseHook <> 0 i KeyboardHook <>0", ProductName);
        return;
    }
    ++recordingSession.number;
    recordingSession.running = true;
    session_view::MinimiseMainWindow();
    session_view::PutEditorAside();
    session_view::HideMainWindow();
    ResetSession(startTick, InsertEventCapacity);
    ResetWindows(std::move(windows), std::move(chains));
    recording_view::Load();
    ShowRecordingStatus();
    ShowInsertCaptions();
    recordingSession.insertingRecording = true;
    StartTimer();
    InstallHooks();
    if (!recordingSession.MouseHook) platform::ShowBox("Greska2!", ProductName);
}

void InstallRecordingHooks() {
    recordingSession.MouseHook = platform::InstallMouseHook(MouseHookProc);
    recordingSession.KeyboardHook = platform::InstallKeyboardHook(OnKeyboardHook);
}

void StopRecording() {
    if (!recordingSession.running) return;
    const BusyWithStop busy;
    CeaseCapture();
    ++recordingSession.eventCount;
    RepairClicks();
    session_view::ShowMainWindow();
    TrimArrays();
    platform::Pump();
    platform::Pump();
    HandOver();
}

void AbandonRecording() {
    if (!recordingSession.running) return;
    CeaseCapture();
    recordingSession.eventCount = 0;
    recordingSession.insertingRecording = false;
    ReleaseProgram();
}

std::int32_t RecordedTime() {
    return static_cast<std::int32_t>(platform::TickCount() - recordingSession.recordingStartTick -
                                     recordingSession.pausedTotalMs);
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
