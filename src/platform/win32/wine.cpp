#include "win32/wine.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "platform/clock.h"
#include "win32/system_library.h"

namespace platform {
namespace {

POINT CursorNow() {
    POINT point{};
    GetCursorPos(&point);
    return point;
}

LONG OffScale(LONG position, int first, int count) {
    return GetSystemMetrics(first) + position * GetSystemMetrics(count) / 65536;
}

// Where the mouse was sent to last, and whether it is still there.
class SteadyCursor {
public:
    SteadyCursor() { passed.fill({-1, -1}); }

    void Moved(const MOUSEINPUT& sent) {
        if (!IsFresh()) Remember(CursorNow());
        Remember(target);
        move = sent;
        target = {OffScale(sent.dx, SM_XVIRTUALSCREEN, SM_CXVIRTUALSCREEN),
                  OffScale(sent.dy, SM_YVIRTUALSCREEN, SM_CYVIRTUALSCREEN)};
        time = TickCount();
    }

    void SendAlong(MOUSEINPUT& press) const {
        if (!IsFresh() || IsWithTheUser()) return;
        press.dx = move.dx;
        press.dy = move.dy;
        press.dwFlags |= MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_VIRTUALDESK;
    }

    void PutRight() const {
        if (!IsFresh() || Same(CursorNow(), target) || IsWithTheUser()) return;
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
        const POINT now = CursorNow();
        return !Same(now, target) &&
               std::none_of(passed.begin(), passed.end(), [now](POINT position) { return Same(now, position); });
    }

    MOUSEINPUT move{};
    POINT target{-1, -1};
    std::array<POINT, 8> passed{};  // where the cursor was before
    std::size_t next = 0;
    std::int64_t time = 0;
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
        steadyCursor.SendAlong(next);
    }
}

void PutWineCursorRight() {
    if (RunsOnWine()) steadyCursor.PutRight();
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

bool CaptionIsMadeUp(HWND window) {
    return RunsOnWine() && !IsWindow(window);
}

}  // namespace platform
