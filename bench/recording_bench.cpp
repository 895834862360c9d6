// What the hooks of a recording cost the desktop, which waits for them: a move and a key-down against what they cannot
// do without, and the longest single call in a recording of a million events.
#include <time.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "bench/ratio.h"
#include "identity/window_identity.h"
#include "platform/hooks.h"
#include "platform/pump.h"
#include "platform/window_services.h"
#include "recording/input_capture.h"
#include "recording/recording_session.h"
#include "settings/settings.h"
#include "simulated/desktop.h"

namespace {

using platform::WindowHandle;

constexpr int MovesPerRound = 50'000;
constexpr int KeysPerRound = 2'000;
constexpr int KnownSignatures = 1'000;
constexpr int FewWindows = 20;    // top-level windows of a desktop that has just been started
constexpr int ManyWindows = 100;  // of one in use; most of them are never seen
constexpr int Rounds = 31;
constexpr int MillionEvents = 1'000'000;
constexpr int EventsPerPress = 25;
constexpr double RatioLimit = 2.0;
constexpr double LongestCallMs = 5.0;

std::array<platform::MouseHookRecord, MovesPerRound> copies;
std::size_t copied = 0;

void CopyHook(const platform::MouseHookRecord& record) {
    copies[copied++] = record;
}

void AddOthers(int count) {
    for (int i = 0; i < count; ++i) {
        simulated::AddWindow(
            {.className = "Other", .caption = "Window " + std::to_string(i), .rect = {900, 0, 999, 99}});
    }
}

// A program of three levels with the focus in the innermost, among others.
WindowHandle SetStage() {
    AddOthers(FewWindows);
    const WindowHandle editor = simulated::AddWindow({.className = "Editor", .caption = "a.txt - Editor"});
    const WindowHandle panel =
        simulated::AddWindow({.className = "Panel", .rect = {0, 0, 390, 290}, .parent = editor, .controlId = 5});
    simulated::SetFocus(
        simulated::AddWindow({.className = "Text", .rect = {9, 9, 380, 280}, .parent = panel, .controlId = 1}));
    simulated::PlaceCursor({200, 200});
    return editor;
}

std::vector<WindowSignature> Signatures() {
    std::vector<WindowSignature> windows(KnownSignatures);
    for (int i = 0; i < KnownSignatures; ++i) {
        WindowSignature& window = windows[static_cast<std::size_t>(i)];
        window.Placement.ptMinPosition = window.Placement.ptMaxPosition = {-1, -1};
        window.Placement.rcNormalPosition = {i, i / 2, i + 400, i / 2 + 300};
        window.Caption = i % 2 == 0 ? "a.txt - Editor" : "Page " + std::to_string(i / 10);
        window.ClassName = i % 2 == 0 ? "Editor" : "Window";
    }
    return windows;
}

// A recording that has just begun, without the forms around it.
void BeginAnew() {
    recordingSession.state = RecordingState::Recording;
    recordingSession.recordingEvents.Reset(1000);
    recordingSession.eventCapacity = 1000;
    recordingSession.eventCount = -1;
    ResetWindowArrays(Signatures());
}

// --- a move, all the way from the hand ---

void MoveUnder(platform::MouseHook hook) {
    platform::InstallMouseHook(hook);
    for (int i = 0; i < MovesPerRound; ++i) {
        simulated::UserMovesTo({i % 1280, i % 1024});
        platform::Pump();
    }
}

void CompareMoves() {
    bench::ReportRatio(
        "mouse move / a hook that copies the record",
        [] {
            recordingSession.state = RecordingState::Recording;
            recordingSession.eventCount = -1;
            recordingSession.eventCapacity = 1000;
            recordingSession.recordingEvents.Reset(1000);
            MoveUnder(MouseHookProc);
        },
        [] {
            copied = 0;
            MoveUnder(CopyHook);
        },
        RatioLimit);
    platform::RemoveMouseHook();
}

// --- a key-down ---

std::size_t asked = 0;  // so that no query is dropped

// What tells one level: its texts, its id, its place, whether it is a top-level window, and its parent.
WindowHandle AskLevel(WindowHandle window) {
    const std::string className = platform::ClassOf(window);
    const std::string caption = platform::CaptionOf(window);
    asked +=
        static_cast<std::size_t>(platform::ControlIdOf(window) + platform::PlacementOf(window).rcNormalPosition.left);
    asked += platform::FindTopWindow(className, caption) == window ? 1 : 0;
    return platform::ParentOf(window);
}

void AskWindows() {
    const WindowHandle foreground = platform::ForegroundWindow();
    asked += platform::ClassOf(foreground).size();
    WindowHandle window = platform::FocusOf(platform::ThreadOf(foreground)).window;
    while (window != 0) window = AskLevel(window);
}

void PressKeys() {
    for (int i = 0; i < KeysPerRound; ++i) OnKeyboardHook({0x100, 'A', 30, 0, 0, 0});
}

void AskForKeys() {
    for (int i = 0; i < KeysPerRound; ++i) AskWindows();
}

// The start of the recording is no part of either time.
void CompareKeys(const std::string& title) {
    std::vector<double> ratios;
    for (int round = 0; round < Rounds; ++round) {
        BeginAnew();
        const double queries = bench::Seconds(AskForKeys);
        ratios.push_back(bench::Seconds(PressKeys) / queries);
    }
    bench::Report(title, bench::Median(ratios), RatioLimit);
}

// --- the longest call ---

// Of this thread alone: what other programs take from the machine is no stall of the hook.
double ThreadMs() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

// Moves, with a click and a key between them now and then: some 40,000 presses and key-downs, as in two hours without a
// pause for breath.
void CallHook(int i) {
    const platform::Point point{200 + i % 3, 200};
    switch (i % (2 * EventsPerPress)) {
        case 0:
            return MouseHookProc({0x201, point, 0, 0, 0, 0});
        case 1:
            return MouseHookProc({0x202, point, 0, 0, 0, 0});
        case EventsPerPress:
            return OnKeyboardHook({0x100, 'A', 30, 0, 0, 0});
        case EventsPerPress + 1:
            return OnKeyboardHook({0x101, 'A', 30, 128, 0, 0});
        default:
            return MouseHookProc({0x200, {i % 1280, i % 1024}, 0, 0, 0, 0});
    }
}

void FindLongestCall() {
    BeginAnew();
    double longest = 0;
    for (int i = 0; i < MillionEvents; ++i) {
        const double before = ThreadMs();
        CallHook(i);
        longest = std::max(longest, ThreadMs() - before);
    }
    bench::Report("longest call of 1,000,000 events, ms", longest, LongestCallMs);
}

}  // namespace

int main() {  // NOLINT(bugprone-exception-escape): a bench that fails ends
    simulated::KeepJournals(false);
    settings.Capture_Mouse_Moves = 1;
    const WindowHandle editor = SetStage();
    CompareMoves();
    CompareKeys("key-down, 1,000 signatures, 20 windows / queries");
    AddOthers(ManyWindows - FewWindows);
    simulated::Activate(editor);
    CompareKeys("key-down, 1,000 signatures, 100 windows / queries");
    FindLongestCall();
    return bench::ExitCode();
}
