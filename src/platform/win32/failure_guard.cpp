#include "win32/failure_guard.h"

#include <new>
#include <utility>

#include "base/product.h"
#include "platform/boxes.h"
#include "win32/handles.h"

namespace platform {
namespace {

bool boxIsOpen = false;
bool textIsWaiting = false;
std::string waitingText;

void CALLBACK ShowWaiting(HWND, UINT, UINT_PTR timer, DWORD) noexcept {
    KillTimer(nullptr, timer);
    textIsWaiting = false;
    ShowFailure(std::string(std::move(waitingText)));
}

}  // namespace

void ShowFailure(const std::string& text) noexcept {
    if (boxIsOpen) return;
    boxIsOpen = true;
    ShowBox(text, ProductName, BoxIcon::Error);
    boxIsOpen = false;
}

void ShowFailureLater(const std::string& text) noexcept {
    if (textIsWaiting) return;
    try {
        waitingText = text;
    } catch (const std::bad_alloc&) {
        return;  // without memory for the words, a box would find none either
    }
    textIsWaiting = SetTimer(nullptr, 0, USER_TIMER_MINIMUM, ShowWaiting) != 0;
}

}  // namespace platform
