// What it costs to be careful, on the real desktop: the looks at monitors, buttons and integrity levels before a press,
// and a search among many windows. Runs on a Wine desktop (tools/bench_on_desktop.py).

#include <windows.h>

#include <algorithm>
#include <string>
#include <vector>

#include "bench/bench_target.h"
#include "bench/patience.h"
#include "bench/ratio.h"
#include "identity/window_identity.h"
#include "platform/clock.h"
#include "platform/input.h"
#include "platform/window_services.h"
#include "replay/reach.h"
#include "replay/similar_caption.h"
#include "replay/target_search.h"
#include "replay/timing.h"
#include "settings/settings.h"
#include "win32/handles.h"
#include "win32/wine.h"

namespace {

template <class Action>
double MillisecondsOf(const Action& action) {
    const std::int64_t began = platform::Microseconds();
    action();
    return static_cast<double>(platform::Microseconds() - began) / 1000.0;
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
        1.2, 15, bench::Seconds);
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
    bench::WaitFor([] { return platform::FindTopWindow(CrowdClass, CrowdCaption(CrowdSize - 1)) != 0; }, "the crowd");
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
    if (bench::IsTarget(count, words)) return bench::RunTarget();
    if (count == 2 && std::string(words[1]) == "crowd") return RunCrowd();
    settings.Display_Executing_Status = 0;
    BenchPress();
    BenchCrowd();
    return bench::ExitCode();
}
