// Above what the dialogs of a recording stand.
#pragma once

#include <windows.h>

// The owner of a modal dialog: the main window, or none while that is hidden, for a hidden owner hides the dialog.
HWND OwnerOfDialog();
