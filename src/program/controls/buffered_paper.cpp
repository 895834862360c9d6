#include "controls/buffered_paper.h"

#include <algorithm>

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

void Fill(HDC paper, const RECT& place, COLORREF colour) {
    SetDCBrushColor(paper, colour);
    FillRect(paper, &place, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}
