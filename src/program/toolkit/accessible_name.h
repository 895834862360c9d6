// Names for controls that show none: a slider, a box without a label, a picture.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

// What screen readers say of the control, instead of what the system makes out for itself. Again for another name. A
// control of a class that the system does not know has a role too (ROLE_SYSTEM_...), and its text is its value.
void SetAccessibleName(HWND control, const std::string& name, std::optional<long> role = std::nullopt);
