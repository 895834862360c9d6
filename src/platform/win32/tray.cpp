#include "platform/tray.h"

#include <algorithm>

#include "win32/handles.h"
// After <windows.h>, which it needs.
#include <shellapi.h>

namespace platform {
namespace {

constexpr UINT CallbackMessage = 512;

NOTIFYICONDATAA icon{};

HICON SmallIconOf(HWND window) {
    DWORD_PTR own = 0;
    SendMessageTimeoutA(window, WM_GETICON, ICON_SMALL, 0, SMTO_ABORTIFHUNG, 200, &own);
    if (own != 0) return reinterpret_cast<HICON>(own);
    const ULONG_PTR ofClass = GetClassLongPtrA(window, GCLP_HICONSM);
    return ofClass != 0 ? reinterpret_cast<HICON>(ofClass) : LoadIconA(nullptr, IDI_APPLICATION);
}

// What does not fit is left out.
template <std::size_t Size>
void Put(char (&field)[Size], const std::string& text) {
    const std::size_t length = std::min(text.size(), Size - 1);
    std::copy_n(text.data(), length, field);
    field[length] = '\0';
}

}  // namespace

bool AddTrayIcon(WindowHandle window, const std::string& tip) {
    icon.cbSize = sizeof icon;
    icon.hWnd = ToHwnd(window);
    icon.uID = 1;
    icon.uFlags = NIF_MESSAGE | NIF_ICON | NIF_TIP;
    icon.uCallbackMessage = CallbackMessage;
    icon.hIcon = SmallIconOf(icon.hWnd);
    Put(icon.szTip, tip);
    return Shell_NotifyIconA(NIM_ADD, &icon) || Shell_NotifyIconA(NIM_MODIFY, &icon);
}

bool ChangeTrayTip(const std::string& tip) {
    if (icon.hWnd == nullptr) return false;
    Put(icon.szTip, tip);
    return Shell_NotifyIconA(NIM_MODIFY, &icon) != FALSE;
}

// Only this once: a later change of the icon must not show it again.
bool ShowTrayBalloon(const std::string& title, const std::string& text) {
    if (icon.hWnd == nullptr) return false;
    NOTIFYICONDATAA balloon = icon;
    balloon.uFlags |= NIF_INFO;
    balloon.dwInfoFlags = NIIF_INFO;
    Put(balloon.szInfoTitle, title);
    Put(balloon.szInfo, text);
    return Shell_NotifyIconA(NIM_MODIFY, &balloon) != FALSE;
}

void RemoveTrayIcon() {
    if (icon.hWnd != nullptr) Shell_NotifyIconA(NIM_DELETE, &icon);
    icon.hWnd = nullptr;
}

bool RestoreTrayIcon() {
    return icon.hWnd != nullptr && Shell_NotifyIconA(NIM_ADD, &icon);
}

}  // namespace platform
