// Where the dialogs of a recording stand, and above what.
#pragma once

#include <windows.h>

// To the middle of the screen; neither sized nor activated.
void PutInMiddle(HWND form);

// The owner of a modal dialog: the main window, or none while that is hidden, for a hidden owner hides the dialog.
HWND OwnerOfDialog();
