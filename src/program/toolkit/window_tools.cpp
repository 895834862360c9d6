#include "toolkit/window_tools.h"

#include <commctrl.h>
#include <windowsx.h>

#include "toolkit/resource_ids.h"

namespace {

constexpr int TwipsPerInch = 1440;

}  // namespace

HINSTANCE ProgramInstance() {
    return GetModuleHandleA(nullptr);
}

platform::Rect RectangleOf(HWND window) {
    RECT rectangle{};
    GetWindowRect(window, &rectangle);
    return {rectangle.left, rectangle.top, rectangle.right, rectangle.bottom};
}

void MoveWindowTo(HWND window, int left, int top) {
    SetWindowPos(window, nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

std::string ClassOf(HWND window) {
    char name[64] = "";
    GetClassNameA(window, name, sizeof name);
    return name;
}

std::string WindowText(HWND window) {
    std::string text(static_cast<std::size_t>(GetWindowTextLengthA(window)) + 1, '\0');
    text.resize(static_cast<std::size_t>(GetWindowTextA(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

void SendToChildren(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    for (HWND child = GetWindow(window, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        SendMessageA(child, message, wParam, lParam);
    }
}

void ShowText(HWND window, const std::string& text) {
    if (WindowText(window) != text) SetWindowTextA(window, text.c_str());
}

void SetText(HWND form, int control, const std::string& text) {
    ShowText(GetDlgItem(form, control), text);
}

std::string TextOf(HWND form, int control) {
    return WindowText(GetDlgItem(form, control));
}

bool LinkFollowed(const NMHDR& notice, int control) {
    const bool followed = notice.code == static_cast<UINT>(NM_CLICK) || notice.code == static_cast<UINT>(NM_RETURN);
    return followed && notice.idFrom == static_cast<UINT_PTR>(control);
}

void SetTick(HWND form, int control, bool ticked) {
    CheckDlgButton(form, control, ticked ? BST_CHECKED : BST_UNCHECKED);
}

bool IsTicked(HWND form, int control) {
    return IsDlgButtonChecked(form, control) == BST_CHECKED;
}

POINT PointOf(LPARAM lParam) {
    return {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
}

bool KeyIsDown(int virtualKey) {
    return GetKeyState(virtualKey) < 0;
}

std::int32_t Twips(int pixels, int dpi) {
    return MulDiv(pixels, TwipsPerInch, dpi);
}

int Pixels(std::int32_t twips, int dpi) {
    return MulDiv(twips, dpi, TwipsPerInch);
}

int TrackMenu(HMENU menu, HWND owner, POINT place) {
    SetForegroundWindow(owner);  // a click elsewhere closes the menu of the foreground window only
    const BOOL command =
        TrackPopupMenuEx(menu, TPM_RETURNCMD | TPM_NONOTIFY | TPM_RIGHTBUTTON, place.x, place.y, owner, nullptr);
    PostMessageA(owner, WM_NULL, 0, 0);  // without it the next menu closes at once
    DestroyMenu(menu);
    return command;
}

int DpiOf(HWND window) {
    const UINT dpi = GetDpiForWindow(window);
    return dpi == 0 ? USER_DEFAULT_SCREEN_DPI : static_cast<int>(dpi);
}

HFONT FontLike(HWND window, int percent, int weight, bool smooth) {
    LOGFONTA font{};
    const auto own = reinterpret_cast<HFONT>(SendMessageA(window, WM_GETFONT, 0, 0));
    GetObjectA(own == nullptr ? GetStockObject(DEFAULT_GUI_FONT) : own, sizeof font, &font);
    font.lfHeight = MulDiv(font.lfHeight, percent, 100);
    font.lfWidth = 0;
    font.lfWeight = weight;
    if (!smooth) font.lfQuality = NONANTIALIASED_QUALITY;
    return CreateFontIndirectA(&font);
}

HICON IconOf(int resource, int size) {
    return static_cast<HICON>(
        LoadImageA(ProgramInstance(), MAKEINTRESOURCEA(resource), IMAGE_ICON, size, size, LR_SHARED));
}

HICON ProgramIcon(int size) {
    return IconOf(ICON_TESSARINE, size);
}

void SetPicture(HWND form, int control) {
    const platform::Rect place = RectangleOf(GetDlgItem(form, control));
    SendDlgItemMessageA(form, control, STM_SETICON, reinterpret_cast<WPARAM>(ProgramIcon(place.right - place.left)), 0);
}

void RegisterDialogClass(const char* className, HBRUSH background) {
    WNDCLASSEXA window{};
    window.cbSize = sizeof window;
    window.lpfnWndProc = DefDlgProcA;
    window.cbWndExtra = DLGWINDOWEXTRA;
    window.hInstance = ProgramInstance();
    window.hIcon = ProgramIcon(GetSystemMetrics(SM_CXICON));
    window.hIconSm = ProgramIcon(GetSystemMetrics(SM_CXSMICON));
    window.hCursor = LoadCursorA(nullptr, MAKEINTRESOURCEA(32512));  // the arrow
    window.hbrBackground = background;
    window.lpszClassName = className;
    RegisterClassExA(&window);
}
