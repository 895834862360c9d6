#include "win32/wine.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

#include "platform/clock.h"
#include "win32/system_library.h"

namespace platform {
namespace {

// The extra information of our own moves: those that go somewhere, and those that do not and get no answer.
constexpr ULONG_PTR MarkOfMove = 0x54657373;
constexpr ULONG_PTR MarkOfNoMove = MarkOfMove + 1;
constexpr int AnswersToMove = 2;

constexpr DWORD Presses = MOUSEEVENTF_LEFTDOWN | MOUSEEVENTF_RIGHTDOWN | MOUSEEVENTF_MIDDLEDOWN | MOUSEEVENTF_XDOWN;

POINT CursorNow() {
    POINT point{};
    GetCursorPos(&point);
    return point;
}

LONG OffScale(LONG position, LONG first, LONG end) {
    return first + position * (end - first) / 65536;
}

RECT AskForVirtualScreen() {
    const int left = GetSystemMetrics(SM_XVIRTUALSCREEN);
    const int top = GetSystemMetrics(SM_YVIRTUALSCREEN);
    return {left, top, left + GetSystemMetrics(SM_CXVIRTUALSCREEN), top + GetSystemMetrics(SM_CYVIRTUALSCREEN)};
}

constexpr std::int64_t ScreenHolds = 10'000;  // microseconds

struct KnownScreen {
    RECT rect{};
    std::int64_t validUntil = -1;
} knownScreen;

// Where the mouse was sent to last, and whether it is still there.
class SteadyCursor {
public:
    SteadyCursor() { passed.fill({-1, -1}); }

    void Moved(MOUSEINPUT& sent) {
        if (!IsFresh()) Remember(CursorNow());
        Remember(target);
        const RECT screen = VirtualScreen();
        target = {OffScale(sent.dx, screen.left, screen.right), OffScale(sent.dy, screen.top, screen.bottom)};
        const bool moves = !Same(CursorNow(), target);
        sent.dwExtraInfo = moves ? MarkOfMove : MarkOfNoMove;
        moved = moved || moves;
        move = sent;
        time = TickCount();
    }

    // The driver tells of a move once more, by an event of the new place and one of the place before, in either order,
    // when the window's thread gets to them. What they leave the cursor at is put right, and then that is told.
    void AwaitAnswer() {
        if (!std::exchange(moved, false)) return;
        const std::int64_t end = TickCount() + LongestAnswerMs;
        while (!IsWithTheUser() && TickCount() < end) {
            if (!IsAnswered()) {
                Sleep(1);
            } else if (Same(CursorNow(), target)) {
                return;
            } else {
                SendAgain();
            }
        }
    }

    void SendAlong(MOUSEINPUT& press) const {
        if (!IsFresh() || IsWithTheUser()) return;
        press.dx = move.dx;
        press.dy = move.dy;
        press.dwFlags |= MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_VIRTUALDESK;
    }

    void PutRight() const {
        if (!IsFresh() || Same(CursorNow(), target) || IsWithTheUser()) return;
        SendAgain();
    }

private:
    static constexpr std::int64_t FreshMs = 2000;
    static constexpr std::int64_t LongestAnswerMs = 1000;

    bool IsAnswered() const {
        const POINT now = CursorNow();
        MOUSEMOVEPOINT newest{now.x, now.y, 0, 0};
        std::array<MOUSEMOVEPOINT, 8> points{};
        const int count = GetMouseMovePointsEx(sizeof newest, &newest, points.data(), static_cast<int>(points.size()),
                                               GMMP_USE_DISPLAY_POINTS);
        int answers = 0;
        for (int i = 0; i < count && points[static_cast<std::size_t>(i)].dwExtraInfo != MarkOfMove; ++i) {
            if (points[static_cast<std::size_t>(i)].dwExtraInfo != MarkOfNoMove) ++answers;
        }
        return answers >= AnswersToMove;
    }

    void SendAgain() const {
        INPUT again{};
        again.type = INPUT_MOUSE;
        again.mi = move;
        again.mi.dwExtraInfo = MarkOfMove;
        ::SendInput(1, &again, sizeof again);
    }

    static bool Same(POINT a, POINT b) { return a.x == b.x && a.y == b.y; }
    bool IsFresh() const { return time != 0 && TickCount() - time <= FreshMs; }

    void Remember(POINT position) {
        passed[next] = position;
        next = (next + 1) % passed.size();
    }

    bool IsWithTheUser() const {
        const POINT now = CursorNow();
        return !Same(now, target) &&
               std::none_of(passed.begin(), passed.end(), [now](POINT position) { return Same(now, position); });
    }

    MOUSEINPUT move{};
    POINT target{-1, -1};
    std::array<POINT, 8> passed{};  // where the cursor was before
    std::size_t next = 0;
    std::int64_t time = 0;
    bool moved = false;  // and no press since
} steadyCursor;

}  // namespace

bool RunsOnWine() {
    static const bool isWine = FindSystemFunction("ntdll.dll", "wine_get_version") != nullptr;
    return isWine;
}

void SteadyWineCursor(MOUSEINPUT& next) {
    constexpr DWORD absoluteMove = MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE;
    if (!RunsOnWine()) return;
    if ((next.dwFlags & absoluteMove) == absoluteMove) {
        steadyCursor.Moved(next);
    } else if ((next.dwFlags & MOUSEEVENTF_MOVE) == 0) {
        if ((next.dwFlags & Presses) != 0) steadyCursor.AwaitAnswer();
        steadyCursor.SendAlong(next);
    }
}

void PutWineCursorRight() {
    if (RunsOnWine()) steadyCursor.PutRight();
}

RECT VirtualScreen() {
    if (!RunsOnWine()) return AskForVirtualScreen();
    const std::int64_t now = Microseconds();
    if (now >= knownScreen.validUntil) knownScreen = {AskForVirtualScreen(), now + ScreenHolds};
    return knownScreen.rect;
}

void RaiseOnWinesScreen(HWND top) {
    if (!RunsOnWine() || (GetWindowLongA(top, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0) return;
    constexpr UINT orderAlone = SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE;
    SetWindowPos(top, HWND_TOPMOST, 0, 0, 0, 0, orderAlone);  // above all, also on the screen
    SetWindowPos(top, HWND_NOTOPMOST, 0, 0, 0, 0, orderAlone);
}

bool SwapsNothing() {
    return RunsOnWine();
}

bool PlaceInParts(HWND window, const WINDOWPLACEMENT& placement) {
    if (!RunsOnWine()) return false;
    const RECT& place = placement.rcNormalPosition;
    if (IsIconic(window) || IsZoomed(window)) ShowWindow(window, SW_RESTORE);
    if (!SetWindowPos(window, nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
                      SWP_NOZORDER | SWP_NOACTIVATE)) {
        return false;
    }
    ShowWindow(window, static_cast<int>(placement.showCmd));
    return true;
}

RECT NormalPosition(HWND window, const WINDOWPLACEMENT& placement) {
    RECT rect = placement.rcNormalPosition;
    if (!RunsOnWine()) return rect;
    const bool isChild = (GetWindowLongA(window, GWL_STYLE) & WS_CHILD) != 0;
    if (isChild && placement.showCmd == SW_SHOWNORMAL && GetWindowRect(window, &rect)) {
        MapWindowPoints(nullptr, GetAncestor(window, GA_PARENT), reinterpret_cast<POINT*>(&rect), 2);
    }
    return rect;
}

// No error is told of a number that no window ever has.
bool CaptionIsMadeUp(HWND window) {
    constexpr WORD firstHandle = 0x20;
    const bool isSuspect = GetLastError() == ERROR_INVALID_WINDOW_HANDLE || LOWORD(window) < firstHandle;
    return isSuspect && RunsOnWine() && !IsWindow(window);
}

}  // namespace platform
