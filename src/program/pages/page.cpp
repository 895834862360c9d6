#include "pages/page.h"

#include "toolkit/system_look.h"

void Page::CreateIn(HWND mainWindow) {
    if (Create(mainWindow)) UseTabBackground(Window());
}
