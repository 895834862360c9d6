#include "platform/tray.h"

#include <algorithm>

#include "win32/handles.h"
// After <windows.h>, which it needs.
#include <shellapi.h>

namespace platform {
namespace {

constexpr UINT CallbackMessage = 512;
constexpr std::size_t LongestTip = 127;

NOTIFYICONDATAA icon{};

HICON SmallIconOf(HWND window) {
    DWORD_PTR own = 0;
    SendMessageTimeoutA(window, WM_GETICON, ICON_SMALL, 0, SMTO_ABORTIFHUNG, 200, &own);
    if (own != 0) return reinterpret_cast<HICON>(own);
    const ULONG_PTR ofClass = GetClassLongPtrA(window, GCLP_HICONSM);
    return ofClass != 0 ? reinterpret_cast<HICON>(ofClass) : LoadIconA(nullptr, IDI_APPLICATION);
}

void SetTip(const std::string& tip) {
    const std::size_t length = std::min(tip.size(), LongestTip);
    std::copy_n(tip.data(), length, icon.szTip);
    icon.szTip[length] = '\0';
}

}  // namespace

bool AddTrayIcon(WindowHandle window, const std::string& tip) {
    icon.cbSize = sizeof icon;
    icon.hWnd = ToHwnd(window);
    icon.uID = 1;
    icon.uFlags = NIF_MESSAGE | NIF_ICON | NIF_TIP;
    icon.uCallbackMessage = CallbackMessage;
    icon.hIcon = SmallIconOf(icon.hWnd);
    SetTip(tip);
    return Shell_NotifyIconA(NIM_ADD, &icon) || Shell_NotifyIconA(NIM_MODIFY, &icon);
}

bool ChangeTrayTip(const std::string& tip) {
    if (icon.hWnd == nullptr) return false;
    SetTip(tip);
    return Shell_NotifyIconA(NIM_MODIFY, &icon) != FALSE;
}

void RemoveTrayIcon() {
    if (icon.hWnd != nullptr) Shell_NotifyIconA(NIM_DELETE, &icon);
    icon.hWnd = nullptr;
}

bool RestoreTrayIcon() {
    return icon.hWnd != nullptr && Shell_NotifyIconA(NIM_ADD, &icon);
}

}  // namespace platform
