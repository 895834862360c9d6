#include "platform/input.h"

#include <cmath>

#include "platform/clock.h"
#include "win32/guard.h"
#include "win32/handles.h"
#include "win32/wine.h"

namespace platform {
namespace {

DWORD Word(std::int32_t value) {
    return static_cast<DWORD>(value);
}

// A position on the scale of 0..65535 means the pixel that it falls into. Windows works that out with a scale of
// 65536 and so lands a pixel short for some positions, the more the further right and down. Aiming at the middle of
// the pixel is safe. Positions outside of the scale are on other screens.
LONG AimedAtThePixel(std::int32_t position, int pixels) {
    if (pixels <= 0) return position;
    const double pixel = std::floor(position * (pixels / 65535.0));
    const double onScreen = position == 65535 ? pixels - 1 : pixel;  // the end of the scale is the last pixel
    return static_cast<LONG>(std::floor((onScreen + 0.5) * 65536.0 / pixels));
}

MOUSEINPUT ToMouseInput(const InputRecord& record) {
    MOUSEINPUT mouse{};
    mouse.dx = record.dx();
    mouse.dy = record.dy();
    if ((record.dwFlags() & MouseAbsolute) != 0) {
        const Size screen = ScreenSize();
        mouse.dx = AimedAtThePixel(record.dx(), screen.width);
        mouse.dy = AimedAtThePixel(record.dy(), screen.height);
    }
    mouse.mouseData = Word(record.mouseData());
    mouse.dwFlags = Word(record.dwFlags());
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

// The age is taken with the system's own count, which wraps after 49 days, and then laid on ours.
int DoubleClickTime() {
    return static_cast<int>(GetDoubleClickTime());
}

Size DoubleClickSize() {
    return {GetSystemMetrics(SM_CXDOUBLECLK), GetSystemMetrics(SM_CYDOUBLECLK)};
}

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
