#include "toolkit/system_look.h"

#include <uxtheme.h>

#include "toolkit/window_tools.h"
#include "win32/system_library.h"

namespace {

using ThemeHandle = HANDLE;

constexpr int ButtonPart = 1;  // BP_PUSHBUTTON
constexpr int EditPart = 1;    // EP_EDITTEXT

enum EditState { EditNormal = 1, EditDisabled = 4, EditFocused = 5 };

struct ThemeFunctions {
    ThemeHandle(WINAPI* open)(HWND, LPCWSTR);
    HRESULT(WINAPI* close)(ThemeHandle);
    HRESULT(WINAPI* draw)(ThemeHandle, HDC, int, int, const RECT*, const RECT*);
};

const ThemeFunctions& Themes() {
    static const ThemeFunctions functions = {
        platform::SystemFunction<decltype(ThemeFunctions::open)>("uxtheme.dll", "OpenThemeData"),
        platform::SystemFunction<decltype(ThemeFunctions::close)>("uxtheme.dll", "CloseThemeData"),
        platform::SystemFunction<decltype(ThemeFunctions::draw)>("uxtheme.dll", "DrawThemeBackground")};
    return functions;
}

// False when there is no theme.
bool DrawThemed(HWND window, HDC paper, const wchar_t* control, int part, int state, const RECT& place) {
    const ThemeHandle theme = Themes().open == nullptr ? nullptr : Themes().open(window, control);
    if (theme == nullptr) return false;
    const bool drawn = SUCCEEDED(Themes().draw(theme, paper, part, state, &place, nullptr));
    Themes().close(theme);
    return drawn;
}

EditState StateOf(HWND window) {
    if (!IsWindowEnabled(window)) return EditDisabled;
    const HWND focus = GetFocus();
    return focus == window || IsChild(window, focus) ? EditFocused : EditNormal;
}

bool HasClientEdge(HWND window) {
    return (GetWindowLongPtrA(window, GWL_EXSTYLE) & WS_EX_CLIENTEDGE) != 0;
}

}  // namespace

void DrawButton(HWND window, HDC paper, RECT place, Look look) {
    const int state = static_cast<int>(look) + 1;  // PBS_NORMAL, PBS_HOT, PBS_PRESSED, PBS_DISABLED
    if (DrawThemed(window, paper, L"BUTTON", ButtonPart, state, place)) return;
    const UINT pressed = look == Look::Pressed ? DFCS_PUSHED : 0;
    const UINT disabled = look == Look::Disabled ? DFCS_INACTIVE : 0;
    DrawFrameControl(paper, &place, DFC_BUTTON, DFCS_BUTTONPUSH | pressed | disabled);
}

void DrawEditFrame(HWND window, HDC paper, RECT place) {
    if (DrawThemed(window, paper, L"EDIT", EditPart, StateOf(window), place)) return;
    FillRect(paper, &place, GetSysColorBrush(IsWindowEnabled(window) ? COLOR_WINDOW : COLOR_3DFACE));
    DrawEdge(paper, &place, EDGE_SUNKEN, BF_RECT);
}

void DrawEditBorder(HWND window) {
    if (!HasClientEdge(window)) return;
    RECT whole{};
    GetWindowRect(window, &whole);
    OffsetRect(&whole, -whole.left, -whole.top);
    RECT inside = whole;
    const auto dpi = static_cast<UINT>(DpiOf(window));
    InflateRect(&inside, -GetSystemMetricsForDpi(SM_CXEDGE, dpi), -GetSystemMetricsForDpi(SM_CYEDGE, dpi));
    const HDC paper = GetWindowDC(window);
    ExcludeClipRect(paper, inside.left, inside.top, inside.right, inside.bottom);
    DrawThemed(window, paper, L"EDIT", EditPart, StateOf(window), whole);
    ReleaseDC(window, paper);
}

void UseTabBackground(HWND page) {
    using EnableDialogTexture = HRESULT(WINAPI*)(HWND, DWORD);
    static const auto enable = platform::SystemFunction<EnableDialogTexture>("uxtheme.dll", "EnableThemeDialogTexture");
    if (enable != nullptr) enable(page, ETDT_ENABLETAB);
}

bool HighContrast() {
    HIGHCONTRASTA setting{};
    setting.cbSize = sizeof setting;
    return SystemParametersInfoA(SPI_GETHIGHCONTRAST, sizeof setting, &setting, 0) &&
           (setting.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

COLORREF Mixed(COLORREF colour, COLORREF other, int percent) {
    const auto mix = [&](BYTE one, BYTE two) {
        return static_cast<BYTE>((one * (100 - percent) + two * percent) / 100);
    };
    return RGB(mix(GetRValue(colour), GetRValue(other)), mix(GetGValue(colour), GetGValue(other)),
               mix(GetBValue(colour), GetBValue(other)));
}
