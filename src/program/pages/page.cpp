#include "pages/page.h"

#include "toolkit/system_look.h"

void Page::CreateIn(HWND mainWindow) {
    if (Create(mainWindow)) UseTabBackground(Window());
}

void Page::BringIntoSight(bool inSight) {
    if (Window() == nullptr) return;
    const bool comes = inSight && !isInSight;
    isInSight = inSight;
    if (comes && !PodesiRjecnikIfOther()) Refresh();
    ShowWindow(Window(), inSight ? SW_SHOWNA : SW_HIDE);
}
