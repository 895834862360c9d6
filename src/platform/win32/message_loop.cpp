#include "win32/message_loop.h"

#include <algorithm>
#include <vector>

#include "platform/hooks.h"
#include "platform/pump.h"

namespace platform {
namespace {

struct ModelessForm {
    HWND window;
    KeyHandler onKey;
};
std::vector<ModelessForm> modelessForms;

bool IsFor(const ModelessForm& form, const MSG& message) {
    return message.hwnd == form.window || IsChild(form.window, message.hwnd);
}

bool HandledBy(const ModelessForm& form, MSG& message) {
    if (!IsWindow(form.window)) return false;
    if (form.onKey != nullptr && IsFor(form, message) && form.onKey(message)) return true;
    return IsDialogMessageA(form.window, &message);
}

bool HandledByAForm(MSG& message) {
    const std::vector<ModelessForm> forms = modelessForms;  // a handler may open or close one
    return std::any_of(forms.begin(), forms.end(), [&](const ModelessForm& form) { return HandledBy(form, message); });
}

void Dispatch(MSG& message) {
    if (HandledByAForm(message)) return;
    TranslateMessage(&message);
    DispatchMessageA(&message);
}

}  // namespace

void AddModelessForm(HWND form, KeyHandler onKey) {
    RemoveModelessForm(form);
    modelessForms.push_back({form, onKey});
}

void RemoveModelessForm(HWND form) {
    std::erase_if(modelessForms, [&](const ModelessForm& each) { return each.window == form; });
}

int RunMessageLoop() {
    MSG message{};
    while (GetMessageA(&message, nullptr, 0, 0) > 0) Dispatch(message);
    return static_cast<int>(message.wParam);
}

void TakeInSentMessages() {
    MSG message;
    PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
}

void Pump() {
    if (InHookCall()) return TakeInSentMessages();
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
