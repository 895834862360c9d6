#include "platform/input.h"

#include <algorithm>
#include <cmath>

#include "platform/clock.h"
#include "win32/handles.h"
#include "win32/system_library.h"

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

POINT RawCursorPosition() {
    POINT point{};
    GetCursorPos(&point);  // refused while the desktop is locked: the origin then
    return point;
}

// Wine, and Wine alone, takes some injected moves back: its display driver answers them with an event of a position
// that the display's pointer had before, and a press would land there. So for a while after a move of ours the
// position is watched, put right when it is asked for, and sent along with every press. As soon as the cursor is
// anywhere else, the user has the mouse, and it is left alone. On Windows none of this happens.
class SteadyCursor {
public:
    SteadyCursor() { passed.fill({-1, -1}); }

    void Moved(const MOUSEINPUT& sent) {
        if (!IsFresh()) Remember(RawCursorPosition());
        Remember(target);
        move = sent;
        target = {sent.dx * GetSystemMetrics(SM_CXSCREEN) / 65536, sent.dy * GetSystemMetrics(SM_CYSCREEN) / 65536};
        time = TickCount();
    }

    void SendAlong(MOUSEINPUT& press) const {
        if (!IsFresh() || IsWithTheUser()) return;
        press.dx = move.dx;
        press.dy = move.dy;
        press.dwFlags |= MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE;
    }

    void PutRight() const {
        if (!IsFresh() || Same(RawCursorPosition(), target) || IsWithTheUser()) return;
        INPUT again{};
        again.type = INPUT_MOUSE;
        again.mi = move;
        ::SendInput(1, &again, sizeof again);
    }

private:
    static constexpr std::int64_t FreshMs = 2000;

    static bool Same(POINT a, POINT b) { return a.x == b.x && a.y == b.y; }
    bool IsFresh() const { return time != 0 && TickCount() - time <= FreshMs; }

    void Remember(POINT position) {
        passed[next] = position;
        next = (next + 1) % passed.size();
    }

    bool IsWithTheUser() const {
        const POINT now = RawCursorPosition();
        return !Same(now, target) &&
               std::none_of(passed.begin(), passed.end(), [now](POINT position) { return Same(now, position); });
    }

    MOUSEINPUT move{};
    POINT target{-1, -1};
    std::array<POINT, 8> passed{};  // where the cursor was before
    std::size_t next = 0;
    std::int64_t time = 0;
} steadyCursor;

bool NeedsSteadyCursor() {
    static const bool isWine = FindSystemFunction("ntdll.dll", "wine_get_version") != nullptr;
    return isWine;
}

void Steady(MOUSEINPUT& mouse) {
    constexpr DWORD absoluteMove = MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE;
    if (!NeedsSteadyCursor()) return;
    if ((mouse.dwFlags & absoluteMove) == absoluteMove) {
        steadyCursor.Moved(mouse);
    } else if ((mouse.dwFlags & MOUSEEVENTF_MOVE) == 0) {
        steadyCursor.SendAlong(mouse);
    }
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
        Steady(input.mi);
    } else {
        input.ki = ToKeyboardInput(record);
    }
    return static_cast<int>(::SendInput(1, &input, sizeof input));
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
    if (NeedsSteadyCursor()) steadyCursor.PutRight();
    return FromPoint(RawCursorPosition());
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
