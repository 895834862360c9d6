// The frame of the small windows that float over the desktop: corner pieces (gore_lijevo, gore_desno, dolje_lijevo,
// dolje_desno: upper and lower, left and right), edges between them (gore, dolje, lijevo, desno), and the body in the
// middle, all from one picture for each scale. Its round corners are cut out by the colour that such a window leaves
// out.
#pragma once

#include <windows.h>

class FormFrame {
public:
    static constexpr COLORREF LeftOut = RGB(0, 0, 255);  // what is of this colour is not there

    static COLORREF BodyColour();  // that of the pictures' middle; in high contrast the system's

    // Takes the pictures that fit the form's screen, none in high contrast; again when either has changed.
    void Load(HWND form);
    void Free();

    void Paint(HDC paper, const RECT& area) const;

private:
    void PaintPictures(HDC paper, const RECT& area) const;

    HBITMAP pictures = nullptr;
    int corner = 0;  // pixels
};
