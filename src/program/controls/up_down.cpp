#include "controls/up_down.h"

#include <commctrl.h>

#include "toolkit/window_tools.h"

namespace {

// The number is kept elsewhere: here there is always room for steps in both directions.
constexpr int FarAway = 1'000'000;

}  // namespace

HWND CreateUpDown(HWND picker) {
    const HWND upDown = CreateWindowExA(0, UPDOWN_CLASSA, "", WS_CHILD | WS_VISIBLE, 0, 0, 0, 0, picker, nullptr,
                                        ProgramInstance(), nullptr);
    SendMessageA(upDown, UDM_SETRANGE32, static_cast<WPARAM>(-FarAway), FarAway);
    SendMessageA(upDown, UDM_SETPOS32, 0, 0);
    EnableWindow(upDown, IsWindowEnabled(picker));
    return upDown;
}

void PlaceUpDown(HWND upDown, const RECT& area) {
    const int width = UpDownWidth(GetParent(upDown));
    SetWindowPos(upDown, nullptr, area.right - width, area.top, width, area.bottom - area.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

int UpDownWidth(HWND picker) {
    return GetSystemMetricsForDpi(SM_CXVSCROLL, static_cast<UINT>(DpiOf(picker)));
}

int StepsOf(LPARAM notification) {
    const auto* const change = reinterpret_cast<const NMUPDOWN*>(notification);
    return change->hdr.code == static_cast<UINT>(UDN_DELTAPOS) ? change->iDelta : 0;
}

bool IsForDigits(WPARAM character) {
    return character < ' ' || (character >= '0' && character <= '9');
}
