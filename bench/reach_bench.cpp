// What it costs to be careful, on the real desktop: the guard at the start of a run, the looks at monitors, buttons and
// integrity levels before a press, and a search among many windows. Runs on a Wine desktop (tools/bench_on_desktop.py).

#include <windows.h>

#include <algorithm>
#include <string>
#include <vector>

#include "bench/bench_target.h"
#include "bench/ratio.h"
#include "bench/silent_status_view.h"
#include "guard/guard_process.h"
#include "identity/window_identity.h"
#include "jobs/job_file.h"
#include "platform/clock.h"
#include "platform/input.h"
#include "platform/window_services.h"
#include "replay/reach.h"
#include "replay/run_job.h"
#include "replay/similar_caption.h"
#include "replay/target_search.h"
#include "replay/timing.h"
#include "settings/settings.h"
#include "win32/guard.h"
#include "win32/handles.h"
#include "win32/wine.h"

namespace {

constexpr int PatienceMs = 20'000;

template <class Condition>
void WaitFor(const Condition& condition, const char* what) {
    const std::int64_t end = platform::TickCount() + PatienceMs;
    while (!condition()) {
        if (platform::TickCount() > end) {
            std::printf("The bench waits in vain for %s.\n", what);
            std::exit(3);
        }
        platform::Sleep(10);
    }
}

template <class Action>
double MillisecondsOf(const Action& action) {
    const std::int64_t began = platform::Microseconds();
    action();
    return static_cast<double>(platform::Microseconds() - began) / 1000.0;
}

// --- the start of a run ---

std::int64_t firstEvent = 0;

void NoteMouseEvent() {
    if (firstEvent == 0) firstEvent = platform::Microseconds();
}

std::string SmallJob() {
    char folder[MAX_PATH] = "";
    GetTempPathA(sizeof folder, folder);
    Job job;
    JobEvent move;
    move.dwType() = platform::InputMouse;
    move.dwFlags() = MouseFlagBase + platform::MouseMove;
    move.dx() = move.dy() = 300;
    job.Events.push_back(move);
    std::string path = folder + std::string("start bench.tsj");
    WriteJob(path, job);
    return path;
}

// From the call to the first event, in ms.
double StartOfRun(const std::string& path) {
    firstEvent = 0;
    const std::int64_t began = platform::Microseconds();
    RunJob(path, 0, "", true);
    return static_cast<double>(firstEvent - began) / 1000.0;
}

bool GuardLives() {
    return platform::GuardProcessId() != 0;
}

void KillGuard() {
    const platform::OwnedHandle guard(OpenProcess(PROCESS_TERMINATE | SYNCHRONIZE, FALSE, platform::GuardProcessId()));
    TerminateProcess(guard.Get(), 1);
    WaitForSingleObject(guard.Get(), PatienceMs);
    platform::Sleep(100);
}

// A run that finds its guard alive starts none.
void BenchGuard() {
    const std::string path = SmallJob();
    StartOfRun(path);
    std::vector<double> with;
    std::vector<double> without;
    for (int round = 0; round < 15; ++round) {
        WaitFor(GuardLives, "the guard");
        platform::Sleep(200);  // it has come up
        without.push_back(StartOfRun(path));
        KillGuard();
        with.push_back(StartOfRun(path));
    }
    std::printf("start of a run: %.2f ms with the guard, %.2f ms without\n", bench::Median(with),
                bench::Median(without));
    bench::Report("start of a run with the guard, against without, ms", bench::Median(with) - bench::Median(without),
                  5.0);
    DeleteFileA(path.c_str());
}

// --- a press into a window in place ---

constexpr platform::Point PressedAt = {400, 400};

platform::InputRecord LeftButton(std::int32_t action) {
    platform::InputRecord record;
    record.dwFlags() = MouseFlagBase + action;
    record.dx() = PressedAt.x;
    record.dy() = PressedAt.y;
    return record;
}

// As on a desktop of one monitor, with a right-handed mouse and no program that runs as administrator.
void SendBare(DWORD flags, platform::Size screen) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dx = (2 * PressedAt.x + 1) * 65536 / (2 * screen.width);
    input.mi.dy = (2 * PressedAt.y + 1) * 65536 / (2 * screen.height);
    input.mi.dwFlags = MOUSEEVENTF_ABSOLUTE | flags;
    platform::SteadyWineCursor(input.mi);
    ::SendInput(1, &input, sizeof input);
}

void Search(const SearchRequest& request) {
    std::string reason;
    if (FindTarget(request, windowArrays.windows, windowArrays.chains, reason) != TargetReady) std::exit(3);
}

void PressCarefully(const SearchRequest& request) {
    std::string reason;
    platform::MoveCursorTo(PressedAt);
    Search(request);
    if (CheckDesktop(reason) < 1 || CheckReach(searchState.current, reason) < 1) std::exit(3);
    platform::SendInput(LeftButton(platform::MouseLeftDown));
    platform::SendInput(LeftButton(platform::MouseLeftUp));
}

void PressPlainly(const SearchRequest& request, platform::Size screen) {
    SendBare(MOUSEEVENTF_MOVE, screen);
    Search(request);
    SendBare(MOUSEEVENTF_LEFTDOWN, screen);
    SendBare(MOUSEEVENTF_LEFTUP, screen);
}

void BenchPress() {
    const platform::WindowHandle target = bench::StartTarget();
    MoveCursor(PressedAt.x, PressedAt.y);
    platform::Sleep(300);
    JobEvent event;
    CaptureWindow(event, false);
    SearchRequest request;
    request.chainIndex = event.WindowChainIndex;
    Search(request);  // puts the window in place; from now on it is
    const platform::Size screen = platform::ScreenSize();
    constexpr int Presses = 100;
    bench::ReportRatio(
        "a press with monitors, buttons and integrity looked at / without",
        [&] {
            for (int i = 0; i < Presses; ++i) PressCarefully(request);
        },
        [&] {
            for (int i = 0; i < Presses; ++i) PressPlainly(request, screen);
        },
        1.2);
    bench::CloseTarget(target);
}

// --- a search among many windows ---

constexpr int CrowdSize = 1000;
constexpr const char* CrowdClass = "TessarineBenchCrowd";

std::string CrowdCaption(int number) {
    return "One of the crowd, number " + std::to_string(number);
}

int RunCrowd() {
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = DefWindowProcA;
    windowClass.lpszClassName = CrowdClass;
    RegisterClassA(&windowClass);
    for (int i = 0; i < CrowdSize; ++i) {
        CreateWindowA(CrowdClass, CrowdCaption(i).c_str(), WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
    }
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) DispatchMessageA(&message);
    return 0;
}

HANDLE StartCrowd() {
    char path[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, path, sizeof path);
    std::string commandLine = '"' + std::string(path) + "\" crowd";
    STARTUPINFOA start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    CreateProcessA(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &process);
    WaitFor([] { return platform::FindTopWindow(CrowdClass, CrowdCaption(CrowdSize - 1)) != 0; }, "the crowd");
    return process.hProcess;
}

// What has to be asked to know the classes of all windows.
double BareEnumeration() {
    return MillisecondsOf([] {
        platform::ForEachTopWindow([](platform::WindowHandle window) { return !platform::ClassOf(window).empty(); });
    });
}

// Both rounds of a search that waits for nothing, less the pause between them. The second one looks for similar
// captions, too, where that is allowed.
double RoundOfSearch(const char* className, bool similar) {
    constexpr double Pause = 200;
    WindowSignature wanted;
    wanted.ClassName = className;
    wanted.Caption = "Nobody";
    SearchRequest request;
    request.similarAllowed = similar;
    std::string reason;
    const std::vector<WindowSignature> windows = {wanted};
    const std::vector<WindowChain> chains(1);
    return (MillisecondsOf([&] { FindTarget(request, windows, chains, reason); }) - Pause) / 2;
}

void BenchCrowd() {
    const HANDLE crowd = StartCrowd();
    const struct {
        const char* title;
        const char* className;
        bool similar;
    } searches[] = {
        {"a round of a search among 1,000 windows / EnumWindows with classes", "TessarineBenchNobody", false},
        {"the same, all of them of the class that is looked for", CrowdClass, false},
        {"the same, similar captions allowed, none of the class", "TessarineBenchNobody", true},
    };
    for (const auto& search : searches) {
        std::vector<double> ratios;
        for (int round = 0; round < 7; ++round) {
            const double bare = BareEnumeration();
            ratios.push_back(RoundOfSearch(search.className, search.similar) / bare);
        }
        bench::Report(search.title, bench::Median(ratios), 2.5);
    }
    std::vector<double> ratios;
    for (int round = 0; round < 7; ++round) {
        const double bare = BareEnumeration();
        ratios.push_back(MillisecondsOf([] { FindSimilarWindow(CrowdClass, "One of another crowd"); }) / bare);
    }
    bench::Report("a similar caption among 1,000 of the class / the same", bench::Median(ratios), 2.5);
    TerminateProcess(crowd, 0);
    CloseHandle(crowd);
}

}  // namespace

int main(int count, char** words) {
    if (const auto guard = GuardCommandOfThisProcess()) return RunGuard(*guard);
    if (bench::IsTarget(count, words)) return bench::RunTarget();
    if (count == 2 && std::string(words[1]) == "crowd") return RunCrowd();
    settings.Display_Executing_Status = 0;
    silentStatusView.onMouseEvent = NoteMouseEvent;
    BenchGuard();
    BenchPress();
    BenchCrowd();
    return bench::ExitCode();
}
