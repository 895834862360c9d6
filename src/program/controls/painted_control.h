// A control of the program's own that paints all of its area itself, and shows the picture when it is complete.
#pragma once

#include <windows.h>

#include "controls/own_control.h"

class PaintedControl : public OwnControl {
protected:
    // All of the client area, on the screen or on the paper of somebody who asks for a picture.
    virtual void OnPaint(HDC paper) const = 0;

    // What a painted control hands on: OwnControl's, and painting.
    LRESULT Default(UINT message, WPARAM wParam, LPARAM lParam) const;

    // The same for a control with the border of a text box, which changes with theme, contrast and use.
    LRESULT DefaultWithBorder(UINT message, WPARAM wParam, LPARAM lParam) const;

    // The vertical scroll bar: `page` of `lines` are seen, from `top` on.
    bool HasScrollBar() const;
    void SetScrollBar(bool needed, int lines, int page, int top) const;
    int ThumbPlace() const;  // where the user drags it to

    // The client area as it is without a scroll bar, whether there is one or not.
    SIZE AreaWithoutScrollBar() const;
};

// Fills a place with a colour.
void Fill(HDC paper, const RECT& place, COLORREF colour);
