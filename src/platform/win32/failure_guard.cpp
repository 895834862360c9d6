#include "win32/failure_guard.h"

#include "base/product.h"
#include "platform/boxes.h"
#include "win32/handles.h"

namespace platform {
namespace {

bool boxIsOpen = false;
std::string waitingText;

void CALLBACK ShowWaiting(HWND, UINT, UINT_PTR timer, DWORD) noexcept {
    KillTimer(nullptr, timer);
    ShowFailure(waitingText);
}

}  // namespace

void ShowFailure(const std::string& text) noexcept {
    if (boxIsOpen) return;
    boxIsOpen = true;
    ShowBox(text, ProductName, BoxIcon::Error);
    boxIsOpen = false;
}

void ShowFailureLater(const std::string& text) noexcept {
    waitingText = text;
    SetTimer(nullptr, 0, USER_TIMER_MINIMUM, ShowWaiting);
}

}  // namespace platform
