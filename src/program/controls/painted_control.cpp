#include "controls/painted_control.h"

#include <algorithm>

#include "toolkit/system_look.h"
#include "toolkit/window_tools.h"

namespace {

class BufferedPaper {
public:
    explicit BufferedPaper(HWND owner);
    ~BufferedPaper();
    BufferedPaper(const BufferedPaper&) = delete;
    BufferedPaper& operator=(const BufferedPaper&) = delete;

    HDC Get() const { return memory; }

private:
    HWND window;
    PAINTSTRUCT paint{};
    HDC screen;
    RECT area{};
    HDC memory;
    HBITMAP picture;
    HGDIOBJ before;
};

BufferedPaper::BufferedPaper(HWND owner) : window(owner), screen(BeginPaint(owner, &paint)) {
    GetClientRect(window, &area);
    memory = CreateCompatibleDC(screen);
    picture = CreateCompatibleBitmap(screen, std::max(1L, area.right), std::max(1L, area.bottom));
    before = SelectObject(memory, picture);
}

BufferedPaper::~BufferedPaper() {
    BitBlt(screen, 0, 0, area.right, area.bottom, memory, 0, 0, SRCCOPY);
    SelectObject(memory, before);
    DeleteObject(picture);
    DeleteDC(memory);
    EndPaint(window, &paint);
}

}  // namespace

LRESULT PaintedControl::Default(UINT message, WPARAM wParam, LPARAM lParam) const {
    switch (message) {
        case WM_ERASEBKGND:
            return TRUE;
        case WM_PAINT:
            OnPaint(BufferedPaper(Window()).Get());
            return 0;
        case WM_PRINTCLIENT:
            OnPaint(reinterpret_cast<HDC>(wParam));
            return 0;
        default:
            return OwnControl::Default(message, wParam, lParam);
    }
}

LRESULT PaintedControl::DefaultWithBorder(UINT message, WPARAM wParam, LPARAM lParam) const {
    const LRESULT result = Default(message, wParam, lParam);
    switch (message) {
        case WM_NCPAINT:
            DrawEditBorder(Window());
            break;
        case WM_THEMECHANGED:
        case WM_SYSCOLORCHANGE:
        case WM_ENABLE:
            RedrawWindow(Window(), nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
            break;
        default:
            break;
    }
    return result;
}

bool PaintedControl::HasScrollBar() const {
    return (GetWindowLongPtrA(Window(), GWL_STYLE) & WS_VSCROLL) != 0;
}

void PaintedControl::SetScrollBar(bool needed, int lines, int page, int top) const {
    if (needed != HasScrollBar()) ShowScrollBar(Window(), SB_VERT, needed);
    if (!needed) return;
    SCROLLINFO bar{};
    bar.cbSize = sizeof bar;
    bar.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    bar.nMax = lines - 1;
    bar.nPage = static_cast<UINT>(page);
    bar.nPos = top;
    SetScrollInfo(Window(), SB_VERT, &bar, TRUE);
}

int PaintedControl::ThumbPlace() const {
    SCROLLINFO bar{};
    bar.cbSize = sizeof bar;
    bar.fMask = SIF_TRACKPOS;
    GetScrollInfo(Window(), SB_VERT, &bar);
    return bar.nTrackPos;
}

SIZE PaintedControl::AreaWithoutScrollBar() const {
    RECT area{};
    GetClientRect(Window(), &area);
    const int bar = GetSystemMetricsForDpi(SM_CXVSCROLL, static_cast<UINT>(DpiOf(Window())));
    return {area.right + (HasScrollBar() ? bar : 0), area.bottom};
}

void Fill(HDC paper, const RECT& place, COLORREF colour) {
    SetDCBrushColor(paper, colour);
    FillRect(paper, &place, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}
