#include "forms/dialog_owner.h"

#include "identity/window_identity.h"
#include "mainwindow/form_visible.h"
#include "win32/handles.h"

HWND OwnerOfDialog() {
    const HWND main = platform::ToHwnd(ownWindows.main);
    return MainWindowVisible() && !IsIconic(main) ? main : nullptr;
}
