#include "bench/bench_target.h"

#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "bench/patience.h"
#include "platform/window_services.h"
#include "win32/handles.h"

namespace bench {
namespace {

constexpr const char* TargetClass = "TessarineBenchTarget";
constexpr const char* TargetCaption = "Bench target";
constexpr UINT HangMessage = WM_APP + 1;
constexpr int AnswerMs = 50;

LRESULT CALLBACK TargetProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_SETFOCUS:
            SetFocus(GetWindow(window, GW_CHILD));
            return 0;
        case HangMessage:
            ::Sleep(static_cast<DWORD>(wParam));
            return 0;
        case WM_DESTROY:
            PostQuitMessage(0);
            return 0;
        default:
            return DefWindowProcA(window, message, wParam, lParam);
    }
}

bool Answers(platform::WindowHandle target) {
    DWORD_PTR result = 0;
    return SendMessageTimeoutA(platform::ToHwnd(target), WM_NULL, 0, 0, 0, AnswerMs, &result) != 0;
}

bool HasFocus(platform::WindowHandle target) {
    const platform::WindowHandle focus = platform::FocusOf(platform::ThreadOf(target)).window;
    return platform::ForegroundWindow() == target && platform::ParentOf(focus) == target;
}

void StartProcess() {
    char path[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, path, MAX_PATH);
    std::string commandLine = std::string(path) + " target";
    STARTUPINFOA start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    if (!CreateProcessA(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &process)) {
        std::printf("The bench's target could not be started.\n");
        std::exit(3);
    }
    CloseHandle(process.hProcess);
    CloseHandle(process.hThread);
}

}  // namespace

bool IsTarget(int count, char** words) {
    return count == 2 && std::string(words[1]) == "target";
}

int RunTarget() {
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = TargetProcedure;
    windowClass.lpszClassName = TargetClass;
    RegisterClassA(&windowClass);
    HWND top = CreateWindowA(TargetClass, TargetCaption, WS_OVERLAPPEDWINDOW, 100, 100, 1000, 800, nullptr, nullptr,
                             nullptr, nullptr);
    CreateWindowA("EDIT", "", WS_CHILD | WS_VISIBLE | ES_MULTILINE, 0, 0, 980, 760, top,
                  reinterpret_cast<HMENU>(INT_PTR{15}), nullptr, nullptr);
    ShowWindow(top, SW_SHOW);
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) DispatchMessageA(&message);
    return 0;
}

platform::WindowHandle StartTarget() {
    StartProcess();
    platform::WindowHandle target = 0;
    WaitFor(
        [&target] {
            target = platform::FindTopWindow(TargetClass, TargetCaption);
            if (target != 0) platform::BringToForeground(target);
            return target != 0 && HasFocus(target);
        },
        "its target to get the focus");
    return target;
}

void CloseTarget(platform::WindowHandle target) {
    PostMessageA(platform::ToHwnd(target), WM_CLOSE, 0, 0);
}

void HangTarget(platform::WindowHandle target, int ms) {
    PostMessageA(platform::ToHwnd(target), HangMessage, static_cast<WPARAM>(ms), 0);
    WaitFor([target] { return !Answers(target); }, "its target to hang");
}

void WaitForTarget(platform::WindowHandle target) {
    WaitFor([target] { return Answers(target); }, "its target to answer again");
}

}  // namespace bench
