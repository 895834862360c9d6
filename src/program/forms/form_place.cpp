#include "forms/form_place.h"

#include "identity/window_identity.h"
#include "mainwindow/form_visible.h"
#include "platform/input.h"
#include "toolkit/window_tools.h"

void PutInMiddle(HWND form) {
    const platform::Rect place = RectangleOf(form);
    const platform::Size screen = platform::ScreenSize();
    MoveWindowTo(form, (screen.width - (place.right - place.left)) / 2,
                 (screen.height - (place.bottom - place.top)) / 2);
}

HWND OwnerOfDialog() {
    const HWND main = platform::ToHwnd(ownWindows.main);
    return MainWindowVisible() && !IsIconic(main) ? main : nullptr;
}
