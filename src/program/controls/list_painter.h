// How the rows of a ListModel look: icon, big and small text, the small buttons of the selected row, a line below. The
// model says where things stand, what is selected and in which colours.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "widgets/list_model.h"

// What the model does not know.
struct ListState {
    ListHit hot;         // under the mouse
    ListHit pressed;     // by the left button; it looks pressed while it is the hot one
    bool focus = false;  // to be seen as having the keyboard
    bool enabled = true;
};

class ListPainter {
public:
    ListPainter() = default;
    ListPainter(const ListPainter&) = delete;
    ListPainter& operator=(const ListPainter&) = delete;
    ~ListPainter();

    std::vector<HICON> icons;
    std::string gumb;
    std::string gumb1;

    // Fonts for the window's scale, the big one with `points`. Before anything else, and when either has changed.
    void MakeFonts(HWND window, HFONT font, int points);
    int TextHeight() const { return bigHeight + smallHeight; }

    // The size of a small button that holds the longest text in `list`, at least that of `least`.
    platform::Size ButtonSize(HWND window, const ListModel& list, const ListMeasures& least) const;

    void Paint(HWND window, HDC paper, const ListModel& list, const ListState& state) const;

private:
    class Sheet;  // one painting
    HICON IconOf(int number, int size) const;
    const std::string& ButtonText(const ListRow& row, ListPart button) const;

    HFONT bigFont = nullptr;    // owned
    HFONT smallFont = nullptr;  // the window's
    int bigHeight = 0;
    int smallHeight = 0;
};
