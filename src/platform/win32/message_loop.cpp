#include "win32/message_loop.h"

#include <algorithm>
#include <vector>

#include "platform/pump.h"

namespace platform {
namespace {

std::vector<HWND> modelessForms;

bool HandledByAForm(MSG& message) {
    const std::vector<HWND> forms = modelessForms;  // a handler may open or close one
    return std::any_of(forms.begin(), forms.end(),
                       [&](HWND form) { return IsWindow(form) && IsDialogMessageA(form, &message); });
}

void Dispatch(MSG& message) {
    if (HandledByAForm(message)) return;
    TranslateMessage(&message);
    DispatchMessageA(&message);
}

}  // namespace

void AddModelessForm(HWND form) {
    RemoveModelessForm(form);
    modelessForms.push_back(form);
}

void RemoveModelessForm(HWND form) {
    std::erase(modelessForms, form);
}

int RunMessageLoop() {
    MSG message{};
    while (GetMessageA(&message, nullptr, 0, 0) > 0) Dispatch(message);
    return static_cast<int>(message.wParam);
}

void Pump() {
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {  // meant for the main loop: what pumps here has to come to its end first
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        Dispatch(message);
    }
}

}  // namespace platform
