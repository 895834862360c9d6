// Names for controls that show none: a slider, a box without a label, a picture.
#pragma once

#include <windows.h>

#include <string>

// What screen readers say of the control, instead of what the system makes out for itself. Again for another name.
void SetAccessibleName(HWND control, const std::string& name);
