#include "program/form_place.h"

#include "mainwindow/form_visible.h"
#include "platform/input.h"
#include "program/main_form.h"
#include "program/window_tools.h"

void PutInMiddle(HWND form) {
    const platform::Rect place = RectangleOf(form);
    const platform::Size screen = platform::ScreenSize();
    MoveWindowTo(form, (screen.width - (place.right - place.left)) / 2,
                 (screen.height - (place.bottom - place.top)) / 2);
}

HWND OwnerOfDialog() {
    return MainWindowVisible() && !IsIconic(mainForm.Window()) ? mainForm.Window() : nullptr;
}
