// What a recording does to the input of the real desktop: how much longer input takes with it than with hooks that do
// nothing, whether any of it is lost, doubled or out of order, and whether a window that does not answer, or a full
// queue of our own, makes it slower. Input is injected from a second thread into another program. Runs on a Wine
// desktop (tools/bench_on_desktop.py).

#include <windows.h>

#include <atomic>
#include <cstdlib>
#include <functional>
#include <thread>
#include <vector>

#include "bench/bench_target.h"
#include "bench/ratio.h"
#include "bench/silent_recording_view.h"
#include "identity/window_identity.h"
#include "platform/clock.h"
#include "platform/hooks.h"
#include "platform/pump.h"
#include "platform/window_services.h"
#include "recording/input_capture.h"
#include "recording/recording_session.h"
#include "settings/settings.h"
#include "win32/handles.h"
#include "win32/message_loop.h"

namespace {

// --- input, each with a number ---

// A raster inside the target: pixels apart, and no two of 100,000 alike.
constexpr int RasterLeft = 150;
constexpr int RasterTop = 180;
constexpr int RasterColumns = 500;
constexpr int RasterRows = 600;

constexpr int FirstKey = VK_F13;  // to F24: nothing listens to them
constexpr int KeyCount = 12;

POINT RasterPoint(int number) {
    return {RasterLeft + number % RasterColumns, RasterTop + number / RasterColumns % RasterRows};
}

LONG OnScale(LONG pixel, int screenPixels) {
    return static_cast<LONG>((pixel + 0.5) * 65536 / screenPixels);
}

INPUT Mouse(DWORD flags, DWORD data = 0) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flags;
    input.mi.mouseData = data;
    return input;
}

INPUT Move(int number) {
    const POINT point = RasterPoint(number);
    INPUT input = Mouse(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE);
    input.mi.dx = OnScale(point.x, GetSystemMetrics(SM_CXSCREEN));
    input.mi.dy = OnScale(point.y, GetSystemMetrics(SM_CYSCREEN));
    return input;
}

// Down, up, the next key. Keys can carry a number of their own.
INPUT Key(int number) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = static_cast<WORD>(FirstKey + number / 2 % KeyCount);
    input.ki.dwFlags = number % 2 == 0 ? 0 : KEYEVENTF_KEYUP;
    input.ki.dwExtraInfo = static_cast<ULONG_PTR>(number) + 1;
    return input;
}

// --- sending ---

using Maker = std::function<INPUT(int)>;

// A thread that never takes its messages away gets slower with them.
void PumpSender() {
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageA(&message);
}

void SendAll(int count, const Maker& make) {
    constexpr int PumpEvery = 16;
    for (int number = 0; number < count; ++number) {
        INPUT input = make(number);
        if (::SendInput(1, &input, sizeof input) != 1) std::exit(4);
        if (number % PumpEvery == PumpEvery - 1) PumpSender();
    }
    PumpSender();
}

// Hooks are called on this thread while it waits.
void PumpUntil(HANDLE event) {
    while (MsgWaitForMultipleObjectsEx(1, &event, INFINITE, QS_ALLINPUT, MWMO_INPUTAVAILABLE) != WAIT_OBJECT_0) {
        platform::Pump();
    }
    platform::Pump();
}

// The same, and whatever has been posted to this thread stays in its queue.
void ServeHooksUntil(HANDLE event) {
    while (MsgWaitForMultipleObjectsEx(1, &event, INFINITE, QS_SENDMESSAGE, MWMO_INPUTAVAILABLE) != WAIT_OBJECT_0) {
        platform::TakeInSentMessages();
    }
}

// Seconds.
double Send(int count, const Maker& make, void (*wait)(HANDLE) = PumpUntil) {
    const platform::OwnedHandle done(CreateEventA(nullptr, TRUE, FALSE, nullptr));
    double seconds = 0;
    std::thread sender([&] {
        seconds = bench::Seconds([&] { SendAll(count, make); });
        SetEvent(done.Get());
    });
    wait(done.Get());
    sender.join();
    return seconds;
}

void LetSettle(platform::WindowHandle target) {
    bench::WaitForTarget(target);
    platform::Sleep(50);
}

// --- the cost ---

// In short turns, so that what else the machine does strikes both alike: 20,000 inputs each in all.
constexpr int InputsPerTurn = 200;
constexpr int Turns = 100;
constexpr double CostLimit = 1.15;

double SendToIdleHooks(const Maker& make) {
    platform::InstallMouseHook([](const platform::MouseHookRecord&) {});
    platform::InstallKeyboardHook([](const platform::KeyboardHookRecord&) {});
    const double seconds = Send(InputsPerTurn, make);
    platform::RemoveMouseHook();
    platform::RemoveKeyboardHook();
    return seconds;
}

double SendToRecording(const Maker& make) {
    StartRecording();
    const double seconds = Send(InputsPerTurn, make);
    if (recordingSession.eventCount + 1 < InputsPerTurn) std::exit(5);  // then it was no recording
    AbandonRecording();
    return seconds;
}

void CompareCost(const char* title, const Maker& make, platform::WindowHandle target) {
    std::vector<double> idle;
    std::vector<double> recording;
    for (int turn = 0; turn < 2 * Turns; ++turn) {
        const bool records = turn % 4 == 1 || turn % 4 == 2;  // neither always after the other
        const double seconds = records ? SendToRecording(make) : SendToIdleHooks(make);
        (records ? recording : idle).push_back(seconds);
        LetSettle(target);
    }
    bench::Report(title, bench::Median(recording) / bench::Median(idle), CostLimit);
}

// --- nothing lost ---

constexpr int ManyInputs = 200'000;
constexpr int Period = 100;  // one press, one release and one turn of the wheel in so many inputs

int TurnOf(int number) {
    return number / Period + 1;
}

INPUT Mixed(int number) {
    switch (number % Period) {
        case 0:
            return Mouse(MOUSEEVENTF_MIDDLEDOWN);
        case 2:
            return Mouse(MOUSEEVENTF_MIDDLEUP);
        case 50:
            return Mouse(MOUSEEVENTF_WHEEL, static_cast<DWORD>(TurnOf(number)));
        default:
            return number % 2 == 0 ? Move(number) : Key(number / 2);
    }
}

bool IsMouse(const JobEvent& event, std::int32_t action) {
    return event.dwType() == platform::InputMouse && event.dwFlags() == MouseFlagBase + action;
}

bool IsMove(const JobEvent& event, int number) {
    const POINT point = RasterPoint(number);
    return IsMouse(event, platform::MouseMove) && event.dx() == point.x && event.dy() == point.y;
}

// Injected keys keep that bit in their state.
bool IsKey(const JobEvent& event, int number) {
    constexpr std::int32_t injected = 16;
    return event.dwType() == platform::InputKeyboard && event.KeyCode() % 65536 == FirstKey + number / 2 % KeyCount &&
           event.KeyState() == injected + (number % 2 == 0 ? 0 : platform::KeyUp) && event.keyExtraInfo() == number + 1;
}

bool AimsAtTheEdit(const Job& job, const JobEvent& event) {
    if (event.WindowChainIndex < 0) return false;
    const WindowChain& chain = job.Chains[static_cast<std::size_t>(event.WindowChainIndex)];
    return chain.Depth == 1 && job.Windows[static_cast<std::size_t>(chain.LeafWindow)].ClassName == "Edit";
}

bool Matches(const Job& job, const JobEvent& event, int number) {
    switch (number % Period) {
        case 0:
            return IsMouse(event, platform::MouseMiddleDown) && AimsAtTheEdit(job, event);
        case 2:
            return IsMouse(event, platform::MouseMiddleUp);
        case 50:
            return IsMouse(event, platform::MouseWheel) && event.mouseData() == TurnOf(number) &&
                   AimsAtTheEdit(job, event);
        default:
            return number % 2 == 0 ? IsMove(event, number) : IsKey(event, number / 2);
    }
}

// The display answers injected moves with moves of its own, which are not injected and are recorded as well. So each
// call is noted as it comes, one for each slot, and the display's are left out of the count.
struct Calls {
    std::vector<bool> injected;
} calls;

void NoteKeyCall(const platform::KeyboardHookRecord& record) {
    calls.injected.push_back((record.flags & LLKHF_INJECTED) != 0);
    OnKeyboardHook(record);
}

void NoteMouseCall(const platform::MouseHookRecord& record) {
    calls.injected.push_back((record.flags & LLMHF_INJECTED) != 0);
    MouseHookProc(record);
}

// Inputs that are not in their place: each that is missing, each that is there too often.
int Faults(const Job& job) {
    constexpr int LongestGap = 1000;
    int faults = 0;
    int expected = 0;
    for (std::size_t i = 0; i < job.Events.size(); ++i) {
        if (!calls.injected[i]) continue;
        int found = expected;
        while (found < expected + LongestGap && !Matches(job, job.Events[i], found)) ++found;
        const bool known = found < expected + LongestGap;
        faults += known ? found - expected : 1;
        if (known) expected = found + 1;
    }
    return faults + std::abs(ManyInputs - expected);
}

// The key that ends it is the last input.
INPUT MixedAndStop(int number) {
    if (number < ManyInputs) return Mixed(number);
    INPUT input = Key(0);
    input.ki.wVk = VK_PAUSE;
    return input;
}

void CountFaults() {
    Job job;
    bool ended = false;
    silentRecordingView.onSaveAs = [&] {
        job = RecordedJob();
        ended = true;
    };
    StartRecording();
    platform::InstallMouseHook(NoteMouseCall);
    platform::InstallKeyboardHook(NoteKeyCall);
    Send(ManyInputs + 1, MixedAndStop);
    for (int i = 0; i < 1000 && !ended; ++i) {  // the end itself is left to the pump
        platform::Sleep(10);
        platform::Pump();
    }
    if (!ended) std::exit(6);
    const bool inStep = calls.injected.size() == job.Events.size() + 1;  // and the key that ended it
    bench::Report("inputs lost, doubled, misplaced of 200,000", inStep ? Faults(job) : ManyInputs, 0);
}

// --- a window that does not answer ---

constexpr int LooksPerRound = 200;
constexpr int Rounds = 7;
constexpr double HungLimit = 1.2;
constexpr double LongestLookMs = 100;

std::vector<double> looks;  // ms of every hook call that looks at a window

void TimeLook(const platform::MouseHookRecord& record) {
    const std::int64_t began = platform::Microseconds();
    MouseHookProc(record);
    if (record.message == WM_MBUTTONDOWN || record.message == WM_MOUSEWHEEL) {
        looks.push_back(static_cast<double>(platform::Microseconds() - began) / 1000);
    }
}

// By the cursor and by the focus in turn.
INPUT Look(int number) {
    switch (number % 3) {
        case 0:
            return Mouse(MOUSEEVENTF_MIDDLEDOWN);
        case 1:
            return Mouse(MOUSEEVENTF_MIDDLEUP);
        default:
            return Mouse(MOUSEEVENTF_WHEEL, WHEEL_DELTA);
    }
}

std::vector<double> TimeLooks(void (*wait)(HANDLE) = PumpUntil) {
    looks.clear();
    Send(LooksPerRound, Look, wait);
    return looks;
}

void CompareWithHung(platform::WindowHandle target) {
    constexpr int HangMs = 3000;
    Send(1, Move);
    StartRecording();
    platform::InstallMouseHook(TimeLook);
    std::vector<double> ratios;
    double longest = 0;
    for (int round = 0; round <= Rounds; ++round) {
        const double healthy = bench::Median(TimeLooks());
        bench::HangTarget(target, HangMs);
        const std::vector<double> hung = TimeLooks();
        longest = std::max(longest, *std::max_element(hung.begin(), hung.end()));
        if (round > 0) ratios.push_back(bench::Median(hung) / healthy);
        bench::WaitForTarget(target);
    }
    AbandonRecording();
    bench::Report("look at a hung window / at one that answers", bench::Median(ratios), HungLimit);
    bench::Report("longest look at a hung window, ms", longest, LongestLookMs);
}

// --- a queue of our own that is full ---

constexpr int Backlog = 1000;
constexpr double BacklogLimit = 1.2;

// How many of them were still waiting; each is of no window, as those that PostThreadMessage posts.
int TakeBacklogAway() {
    MSG message;
    int count = 0;
    while (PeekMessageA(&message, reinterpret_cast<HWND>(-1), WM_APP, WM_APP, PM_REMOVE)) ++count;
    return count;
}

double MedianLookWithBacklog(int posted) {
    for (int i = 0; i < posted; ++i) PostThreadMessageA(GetCurrentThreadId(), WM_APP, 0, 0);
    const double look = bench::Median(TimeLooks(ServeHooksUntil));
    if (TakeBacklogAway() != posted) std::exit(7);  // a hook call has dispatched what is not its business
    return look;
}

void CompareWithBacklog() {
    Send(1, Move);
    StartRecording();
    platform::InstallMouseHook(TimeLook);
    std::vector<double> none;
    std::vector<double> full;
    for (int round = 0; round <= 2 * Rounds; ++round) {
        const double without = MedianLookWithBacklog(0);
        const double with = MedianLookWithBacklog(Backlog);
        if (round == 0) continue;
        none.push_back(without);
        full.push_back(with);
    }
    AbandonRecording();
    bench::Report("hook call, 1,000 messages of ours / none", bench::Median(full) / bench::Median(none), BacklogLimit);
}

}  // namespace

int main(int count, char** words) {
    if (bench::IsTarget(count, words)) return bench::RunTarget();
    settings.Capture_Mouse_Moves = 1;
    settings.Display_Recording_Window = 0;
    const platform::WindowHandle target = bench::StartTarget();
    CompareCost("20,000 moves recorded / hooks that do nothing", Move, target);
    CompareCost("20,000 keys recorded / hooks that do nothing", Key, target);
    CountFaults();
    LetSettle(target);
    CompareWithBacklog();
    LetSettle(target);
    CompareWithHung(target);
    bench::CloseTarget(target);
    return bench::ExitCode();
}
