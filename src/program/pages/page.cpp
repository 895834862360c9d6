#include "pages/page.h"

#include <utility>

#include "toolkit/system_look.h"

void Page::CreateIn(HWND mainWindow) {
    if (Create(mainWindow)) UseTabBackground(Window());
}

void Page::BringIntoSight(bool inSight) {
    if (inSight != std::exchange(isInSight, inSight) && inSight) {
        PodesiRjecnikIfOther();
        Refresh();
    }
    ShowWindow(Window(), inSight ? SW_SHOWNA : SW_HIDE);
}
