// The frame of the small windows that float over the desktop: corner pieces (gore_lijevo, gore_desno, dolje_lijevo,
// dolje_desno: upper and lower, left and right), edges between them (gore, dolje, lijevo, desno), and the body in the
// middle, all from one picture for each scale. Its round corners are cut out by the colour that such a window leaves
// out.
#pragma once

#include <windows.h>

class FormFrame {
public:
    static constexpr COLORREF LeftOut = RGB(0, 0, 255);            // what is of this colour is not there
    static constexpr COLORREF BodyColour = RGB(0xfb, 0xfc, 0xfc);  // that of the pictures' middle

    // Takes the pictures that fit the form's screen; again when that has changed.
    void Load(HWND form);
    void Free();

    void Paint(HDC paper, const RECT& area) const;
    HBRUSH Body() const { return body; }

private:
    HBITMAP pictures = nullptr;
    HBRUSH body = nullptr;
    int corner = 0;  // pixels
};
