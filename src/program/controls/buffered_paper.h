// A picture of a window's client area that is shown when it is complete, for WM_PAINT.
#pragma once

#include <windows.h>

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

// Fills a place with a colour.
void Fill(HDC paper, const RECT& place, COLORREF colour);
