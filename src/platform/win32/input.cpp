#include "platform/input.h"

#include <algorithm>

#include "platform/clock.h"
#include "win32/bounded_call.h"
#include "win32/guard.h"
#include "win32/handles.h"
#include "win32/wine.h"

namespace platform {
namespace {

DWORD Word(std::int32_t value) {
    return static_cast<DWORD>(value);
}

// The scale of the virtual desktop goes from 0 to 65535. Windows divides by 65536 and cuts off, so the middle of the
// pixel is meant. A pixel beyond the virtual desktop becomes its edge.
LONG OnScale(std::int32_t pixel, LONG first, LONG end) {
    const std::int64_t count = std::max(end - first, LONG{1});
    const std::int64_t inside = std::clamp<std::int64_t>(std::int64_t{pixel} - first, 0, count - 1);
    return static_cast<LONG>((2 * inside + 1) * 65536 / (2 * count));
}

void AimAt(Point pixel, MOUSEINPUT& mouse) {
    const RECT screen = VirtualScreen();
    mouse.dx = OnScale(pixel.x, screen.left, screen.right);
    mouse.dy = OnScale(pixel.y, screen.top, screen.bottom);
    mouse.dwFlags |= MOUSEEVENTF_VIRTUALDESK;
}

bool ButtonsAreSwapped() {
    return GetSystemMetrics(SM_SWAPBUTTON) != 0 && !SwapsNothing();
}

// SendInput speaks of the physical buttons, hooks of what they mean to the user.
DWORD PhysicalButtons(DWORD flags) {
    constexpr DWORD left = MOUSEEVENTF_LEFTDOWN | MOUSEEVENTF_LEFTUP;
    constexpr DWORD right = MOUSEEVENTF_RIGHTDOWN | MOUSEEVENTF_RIGHTUP;
    if (!ButtonsAreSwapped()) return flags;
    return (flags & ~(left | right)) | (flags & left) << 2 | (flags & right) >> 2;
}

MOUSEINPUT ToMouseInput(const InputRecord& record) {
    MOUSEINPUT mouse{};
    constexpr std::int32_t absoluteMove = MouseAbsolute | MouseMove;
    mouse.dx = record.dx();
    mouse.dy = record.dy();
    mouse.mouseData = Word(record.mouseData());
    mouse.dwFlags = PhysicalButtons(Word(record.dwFlags()));
    if ((record.dwFlags() & absoluteMove) == absoluteMove) AimAt({record.dx(), record.dy()}, mouse);
    mouse.time = Word(record.mouseTime());
    mouse.dwExtraInfo = Word(record.word[6]);
    return mouse;
}

KEYBDINPUT ToKeyboardInput(const InputRecord& record) {
    KEYBDINPUT keyboard{};
    keyboard.wVk = LOWORD(Word(record.KeyCode()));
    keyboard.wScan = HIWORD(Word(record.KeyCode()));
    keyboard.dwFlags = Word(record.KeyState());
    keyboard.time = Word(record.keyTime());
    keyboard.dwExtraInfo = Word(record.keyExtraInfo());
    return keyboard;
}

}  // namespace

int SendInput(const InputRecord& record) {
    INPUT input{};
    input.type = Word(record.dwType());
    if (record.dwType() == InputMouse) {
        input.mi = ToMouseInput(record);
        SteadyWineCursor(input.mi);
    } else {
        input.ki = ToKeyboardInput(record);
    }
    NoteBeforeSending(OwnHeldState(), record);
    const UINT sent = ::SendInput(1, &input, sizeof input);
    if (sent == 1) NoteAfterSending(OwnHeldState(), record);
    return static_cast<int>(sent);
}

void LetInputArrive() {
    const HWND front = GetForegroundWindow();
    if (front == nullptr || GetWindowThreadProcessId(front, nullptr) == GetCurrentThreadId()) return;
    constexpr int questions = 30;
    const std::int64_t deadline = Microseconds() + LongestArrivalMs * std::int64_t{1000};
    for (int asked = 0; asked < questions && Microseconds() < deadline; ++asked) {
        if (!Answers(front, deadline)) return;
        Sleep(1);
    }
}

std::int16_t AsyncKeyState(int virtualKey) {
    return GetAsyncKeyState(virtualKey);
}

std::int16_t KeyState(int virtualKey) {
    return GetKeyState(virtualKey);
}

int ScanCodeOf(int virtualKey) {
    return static_cast<int>(MapVirtualKeyA(static_cast<UINT>(virtualKey), MAPVK_VK_TO_VSC));
}

int CharacterOf(int virtualKey) {
    return static_cast<int>(MapVirtualKeyA(static_cast<UINT>(virtualKey), MAPVK_VK_TO_CHAR));
}

Point CursorPosition() {
    PutWineCursorRight();
    POINT point{};
    GetCursorPos(&point);  // refused while the desktop is locked: the origin then
    return FromPoint(point);
}

Size ScreenSize() {
    return {GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
}

int DoubleClickTime() {
    return static_cast<int>(GetDoubleClickTime());
}

Size DoubleClickSize() {
    return {GetSystemMetrics(SM_CXDOUBLECLK), GetSystemMetrics(SM_CYDOUBLECLK)};
}

// The age is taken with the system's own count, which wraps after 49 days, and then laid on ours.
std::int64_t LastInputTick() {
    LASTINPUTINFO info{};
    info.cbSize = sizeof info;
    if (!GetLastInputInfo(&info)) return 0;
    const DWORD age = GetTickCount() - info.dwTime;
    return TickCount() - static_cast<std::int64_t>(age);
}

void BlockInput(bool block) {
    ::BlockInput(block);
}

}  // namespace platform
