// Parts of the system's own controls, drawn in the present theme, or in the classic look where there is none. Places
// are in the paper's own pixels.
#pragma once

#include <windows.h>

enum class Look { Normal, Hot, Pressed, Disabled };

// A push button without its text.
void DrawButton(HWND window, HDC paper, RECT place, Look look);

// The outline of an edit control, and what is inside of it.
void DrawEditFrame(HWND window, HDC paper, RECT place);

// Around the client area and the scroll bars of a window with WS_EX_CLIENTEDGE, after the default WM_NCPAINT.
void DrawEditBorder(HWND window);

// A page in a tab control gets the background that the theme gives to tabs.
void UseTabBackground(HWND page);

// Whether the user asked for a few strong colours: then only the system's colours are right.
bool HighContrast();

// `percent` of `other` in it.
COLORREF Mixed(COLORREF colour, COLORREF other, int percent);
