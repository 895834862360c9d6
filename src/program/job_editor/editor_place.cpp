#include "job_editor/editor_place.h"

#include <algorithm>

#include "settings/settings.h"
#include "toolkit/window_tools.h"

namespace {

constexpr SIZE FirstSize = {1160, 840};  // pixels at 100 percent

enum EditorStateValue : std::int32_t { WasMinimised = 0, WasNormal = 1, WasMaximised = 2 };

MONITORINFO MonitorOf(const RECT& place) {
    MONITORINFO info{};
    info.cbSize = sizeof info;
    GetMonitorInfoA(MonitorFromRect(&place, MONITOR_DEFAULTTONEAREST), &info);
    return info;
}

RECT KeptPlace(int dpi) {
    const int left = Pixels(settings.EditorLeft, dpi);
    const int top = Pixels(settings.EditorTop, dpi);
    return {left, top, left + Pixels(settings.EditorWidth, dpi), top + Pixels(settings.EditorHeight, dpi)};
}

// In the middle of the main monitor.
RECT FirstPlace(int dpi) {
    const RECT screen = MonitorOf({}).rcWork;
    const LONG width = std::min<LONG>(MulDiv(FirstSize.cx, dpi, USER_DEFAULT_SCREEN_DPI), screen.right - screen.left);
    const LONG height = std::min<LONG>(MulDiv(FirstSize.cy, dpi, USER_DEFAULT_SCREEN_DPI), screen.bottom - screen.top);
    const LONG left = (screen.left + screen.right - width) / 2;
    const LONG top = (screen.top + screen.bottom - height) / 2;
    return {left, top, left + width, top + height};
}

// Whole on its monitor: a screen may have become smaller.
RECT OnScreen(RECT place) {
    const RECT screen = MonitorOf(place).rcWork;
    const LONG width = std::min(place.right - place.left, screen.right - screen.left);
    const LONG height = std::min(place.bottom - place.top, screen.bottom - screen.top);
    const LONG left = std::clamp(place.left, screen.left, screen.right - width);
    const LONG top = std::clamp(place.top, screen.top, screen.bottom - height);
    return {left, top, left + width, top + height};
}

// What it has when it is neither minimised nor maximised. The system tells that place from the corner of the work area.
RECT NormalPlace(HWND editor) {
    RECT place{};
    GetWindowRect(editor, &place);
    if (!IsIconic(editor) && !IsZoomed(editor)) return place;
    WINDOWPLACEMENT kept{};
    kept.length = sizeof kept;
    GetWindowPlacement(editor, &kept);
    const MONITORINFO monitor = MonitorOf(kept.rcNormalPosition);
    place = kept.rcNormalPosition;
    OffsetRect(&place, monitor.rcWork.left - monitor.rcMonitor.left, monitor.rcWork.top - monitor.rcMonitor.top);
    return place;
}

}  // namespace

void ShowInKeptPlace(HWND editor) {
    const int dpi = DpiOf(editor);
    const RECT kept = KeptPlace(dpi);
    const bool known = settings.EditorWidth > 0 && settings.EditorHeight > 0 &&
                       MonitorFromRect(&kept, MONITOR_DEFAULTTONULL) != nullptr;
    const RECT place = known ? OnScreen(kept) : FirstPlace(dpi);
    SetWindowPos(editor, nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    ShowWindow(editor, settings.EditorState == WasMaximised ? SW_SHOWMAXIMIZED : SW_SHOWNORMAL);
}

void KeepPlace(HWND editor) {
    const auto twips = [dpi = DpiOf(editor)](LONG pixels) { return Twips(static_cast<int>(pixels), dpi); };
    const RECT place = NormalPlace(editor);
    settings.EditorLeft = twips(place.left);
    settings.EditorTop = twips(place.top);
    settings.EditorWidth = twips(place.right - place.left);
    settings.EditorHeight = twips(place.bottom - place.top);
    settings.EditorState = IsIconic(editor) ? WasMinimised : IsZoomed(editor) ? WasMaximised : WasNormal;
}
