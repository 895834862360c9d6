// The pair of arrow buttons of a picker, c1 up and c2 down, which go on stepping while they are held, faster with time.
#pragma once

#include <windows.h>

// A child of the picker, which tells it by WM_NOTIFY; not placed yet.
HWND CreateUpDown(HWND picker);

// At the right edge of `area`, in the picker's client pixels.
void PlaceUpDown(HWND upDown, const RECT& area);
int UpDownWidth(HWND picker);

// The steps that a WM_NOTIFY of the arrows asks for, 1 or more upwards; 0 when it says something else.
int StepsOf(LPARAM notification);

// Whether a character has a place in a box for digits; control characters are commands of the box.
bool IsForDigits(WPARAM character);
