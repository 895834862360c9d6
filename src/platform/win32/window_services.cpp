#include "platform/window_services.h"

#include <vector>

#include "platform/clock.h"
#include "platform/input.h"
#include "win32/bounded_call.h"
#include "win32/handles.h"
#include "win32/wine.h"

namespace platform {
namespace {

bool IsOfThisThread(HWND window) {
    return GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId();
}

std::int64_t DeadlineFromNow() {
    return Microseconds() + BoundedMilliseconds * std::int64_t{1000};
}

// Windows of this thread answer inside the call itself; asked from a second thread they would wait for us.
bool AskWindow(HWND window, const std::function<bool()>& call) {
    if (IsOfThisThread(window)) return call();
    const std::int64_t deadline = DeadlineFromNow();
    return Answers(window, deadline) && CallUntil(deadline, call) == BoundedAnswer::Yes;
}

// The windows are gathered first: a visitor may throw, and no exception may cross the system's frames.
BOOL CALLBACK Gather(HWND window, LPARAM list) noexcept {
    reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    return TRUE;
}

void VisitAll(const std::vector<HWND>& windows, const WindowVisitor& visit) {
    for (const HWND window : windows) {
        if (!visit(FromHwnd(window))) return;
    }
}

Rect FromRect(const RECT& rect) {
    return {rect.left, rect.top, rect.right, rect.bottom};
}

RECT ToRect(const Rect& rect) {
    return {rect.left, rect.top, rect.right, rect.bottom};
}

WINDOWPLACEMENT ToSystem(const WindowPlacement& placement) {
    WINDOWPLACEMENT system{};
    system.length = sizeof system;
    system.flags = placement.flags;
    system.showCmd = placement.showCmd;
    system.ptMinPosition = {placement.ptMinPosition.x, placement.ptMinPosition.y};
    system.ptMaxPosition = {placement.ptMaxPosition.x, placement.ptMaxPosition.y};
    system.rcNormalPosition = ToRect(placement.rcNormalPosition);
    return system;
}

bool Place(HWND window, const WINDOWPLACEMENT& placement) {
    return SetWindowPlacement(window, &placement) || PlaceInParts(window, placement);
}

// A thread may set the focus in the queues that it is attached to.
bool Focus(HWND window) {
    const DWORD own = GetCurrentThreadId();
    const DWORD other = GetWindowThreadProcessId(window, nullptr);
    MSG message;
    PeekMessageA(&message, nullptr, WM_USER, WM_USER, PM_NOREMOVE);  // gives this thread a queue to attach
    const bool attached = other != own && AttachThreadInput(own, other, TRUE) != FALSE;
    SetFocus(window);
    const HWND focus = GetFocus();
    if (attached) AttachThreadInput(own, other, FALSE);
    return focus == window || IsChild(window, focus);
}

// --- the foreground ---

constexpr std::int64_t ActivationMs = 100;  // for the window's own program to take note

bool IsInFront(HWND top) {
    for (HWND window = GetForegroundWindow(); window != nullptr; window = GetWindow(window, GW_OWNER)) {
        if (window == top) return true;
    }
    return false;
}

// Windows says yes also where it makes the button on the taskbar blink and nothing else.
bool ComesToFront(HWND top) {
    const std::int64_t end = TickCount() + ActivationMs;
    while (!IsInFront(top)) {
        if (TickCount() >= end) return false;
        ::Sleep(1);
    }
    return true;
}

bool AskForForeground(HWND top, std::int64_t deadline) {
    // A window that is in the foreground already can lie under others that never became active.
    const auto ask = [top] {
        if (SetForegroundWindow(top) == FALSE) return false;
        BringWindowToTop(top);
        RaiseOnWinesScreen(top);
        return true;
    };
    if (IsOfThisThread(top)) return ask() && ComesToFront(top);
    const BoundedAnswer answer = CallUntil(deadline, ask);
    // Windows may have given the leave to change the foreground to the one thread that got the user's hotkey. There
    // the call does not wait for its target, and where it does (Wine) it has just been shown to return.
    return (answer == BoundedAnswer::Yes || (answer == BoundedAnswer::No && ask())) && ComesToFront(top);
}

// Windows gives the foreground to a process that has just been given input, or gave it. An input that does nothing is
// enough.
void BeNewestToGiveInput() {
    INPUT nothing{};
    nothing.type = INPUT_MOUSE;
    ::SendInput(1, &nothing, sizeof nothing);
}

}  // namespace

WindowHandle WindowAt(Point point) {
    return FromHwnd(WindowFromPoint({point.x, point.y}));
}

WindowHandle ForegroundWindow() {
    return FromHwnd(GetForegroundWindow());
}

WindowHandle DesktopRoot() {
    return FromHwnd(GetDesktopWindow());
}

bool BringToForeground(WindowHandle window) {
    const HWND top = GetAncestor(ToHwnd(window), GA_ROOT);
    if (top == nullptr) return false;
    if (!IsInFront(top)) LetInputArrive();
    const std::int64_t deadline = DeadlineFromNow();
    if (!IsOfThisThread(top) && !Answers(top, deadline)) return false;
    if (AskForForeground(top, deadline)) return true;
    BeNewestToGiveInput();
    return Microseconds() < deadline && AskForForeground(top, deadline);
}

std::uint32_t ThreadOf(WindowHandle window) {
    return GetWindowThreadProcessId(ToHwnd(window), nullptr);
}

std::uint32_t CurrentThread() {
    return GetCurrentThreadId();
}

// GetGUIThreadInfo tells what AttachThreadInput and GetFocus would, without tying our input queue to that of a thread
// that may hang. A thread cannot be attached to itself, and 0 would mean the foreground thread here.
FocusAnswer FocusOf(std::uint32_t thread) {
    if (thread == 0 || thread == GetCurrentThreadId()) return {};
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    if (!GetGUIThreadInfo(thread, &info)) return {};
    return {true, FromHwnd(info.hwndFocus)};
}

bool GiveFocus(WindowHandle window) {
    const HWND target = ToHwnd(window);
    return AskWindow(target, [target] { return Focus(target); });
}

WindowHandle ParentOf(WindowHandle window) {
    return FromHwnd(GetParent(ToHwnd(window)));
}

WindowHandle TopLevelOf(WindowHandle window) {
    return FromHwnd(GetAncestor(ToHwnd(window), GA_ROOT));
}

WindowHandle FindTopWindow(const std::string& className, const std::string& caption) {
    return FromHwnd(FindWindowA(className.c_str(), caption.c_str()));
}

void ForEachTopWindow(const WindowVisitor& visit) {
    std::vector<HWND> windows;
    EnumWindows(Gather, reinterpret_cast<LPARAM>(&windows));
    VisitAll(windows, visit);
}

void ForEachDescendant(WindowHandle window, const WindowVisitor& visit) {
    if (window == 0) return;  // would mean all top-level windows
    std::vector<HWND> windows;
    EnumChildWindows(ToHwnd(window), Gather, reinterpret_cast<LPARAM>(&windows));
    VisitAll(windows, visit);
}

std::string ClassOf(WindowHandle window) {
    char text[100];
    const int length = GetClassNameA(ToHwnd(window), text, sizeof text);
    return {text, static_cast<std::size_t>(length)};
}

// For a window of another process the system answers from its own copy of the text, so this never waits for it. Our
// own windows are asked with a message.
std::string CaptionOf(WindowHandle window) {
    char text[1024];
    SetLastError(ERROR_SUCCESS);
    const int length = GetWindowTextA(ToHwnd(window), text, sizeof text);
    if (CaptionIsMadeUp(ToHwnd(window))) return "";
    return {text, static_cast<std::size_t>(length)};
}

std::int32_t ControlIdOf(WindowHandle window) {
    return GetDlgCtrlID(ToHwnd(window));
}

WindowPlacement PlacementOf(WindowHandle window) {
    WINDOWPLACEMENT system{};
    system.length = sizeof system;
    if (!GetWindowPlacement(ToHwnd(window), &system)) return {};
    return {system.length,
            system.flags,
            system.showCmd,
            FromPoint(system.ptMinPosition),
            FromPoint(system.ptMaxPosition),
            FromRect(NormalPosition(ToHwnd(window), system))};
}

bool IsShown(WindowHandle window) {
    return IsWindowVisible(ToHwnd(window)) != FALSE;
}

bool WindowExists(WindowHandle window) {
    return IsWindow(ToHwnd(window)) != FALSE;
}

bool SetPlacement(WindowHandle window, const WindowPlacement& placement) {
    const HWND target = ToHwnd(window);
    const WINDOWPLACEMENT system = ToSystem(placement);
    return AskWindow(target, [target, system] { return Place(target, system); });
}

}  // namespace platform
