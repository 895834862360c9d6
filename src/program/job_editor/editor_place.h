// Where the window of the job editor stood last: in the settings, as twips, with its state.
#pragma once

#include <windows.h>

// Puts the window there, or, when it has never stood anywhere or its screen is gone, in the middle; and shows it.
void ShowInKeptPlace(HWND editor);

void KeepPlace(HWND editor);
