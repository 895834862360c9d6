#include "platform/hooks.h"

#include <utility>

#include "win32/failure_guard.h"
#include "win32/handles.h"

namespace platform {
namespace {

// A call of the keyboard hook, as the next hook in the chain is told of it.
struct KeyCall {
    int code;
    WPARAM message;
    LPARAM data;
};

struct Hooks {
    HHOOK keyboard = nullptr;
    HHOOK mouse = nullptr;
    KeyboardHook onKey = nullptr;
    MouseHook onMouse = nullptr;
    const KeyCall* keyCall = nullptr;  // the innermost that is under way
    int callsUnderWay = 0;             // of either kind, one inside the other
} hooks;

struct HookCall {
    HookCall() { ++hooks.callsUnderWay; }
    ~HookCall() { --hooks.callsUnderWay; }
    HookCall(const HookCall&) = delete;
    HookCall& operator=(const HookCall&) = delete;
};

KeyboardHookRecord ToRecord(WPARAM message, const KBDLLHOOKSTRUCT& key) {
    return {static_cast<std::uint32_t>(message),        key.vkCode, key.scanCode, key.flags, key.time,
            static_cast<std::uint32_t>(key.dwExtraInfo)};
}

MouseHookRecord ToRecord(WPARAM message, const MSLLHOOKSTRUCT& mouse) {
    return {static_cast<std::uint32_t>(message),          FromPoint(mouse.pt), mouse.mouseData, mouse.flags, mouse.time,
            static_cast<std::uint32_t>(mouse.dwExtraInfo)};
}

// A box inside a hook would hold up the input of the whole desktop, so failures are shown from the next pump.
// Calls nest, since what a procedure does can pump.
LRESULT CALLBACK KeyboardThunk(int code, WPARAM message, LPARAM data) noexcept {
    if (code != HC_ACTION || hooks.onKey == nullptr) return CallNextHookEx(nullptr, code, message, data);
    const auto record = ToRecord(message, *reinterpret_cast<const KBDLLHOOKSTRUCT*>(data));
    const KeyCall call{code, message, data};
    const KeyCall* const outer = std::exchange(hooks.keyCall, &call);
    const HookCall underWay;
    GuardedCall([&] { hooks.onKey(record); }, ShowFailureLater);
    hooks.keyCall = outer;
    return 0;
}

LRESULT CALLBACK MouseThunk(int code, WPARAM message, LPARAM data) noexcept {
    if (code != HC_ACTION || hooks.onMouse == nullptr) return CallNextHookEx(nullptr, code, message, data);
    const auto record = ToRecord(message, *reinterpret_cast<const MSLLHOOKSTRUCT*>(data));
    const HookCall underWay;
    GuardedCall([&] { hooks.onMouse(record); }, ShowFailureLater);
    return 0;
}

bool Install(HHOOK& hook, int kind, HOOKPROC thunk) {
    hook = SetWindowsHookExA(kind, thunk, GetModuleHandleA(nullptr), 0);
    return hook != nullptr;
}

void Remove(HHOOK& hook) {
    if (hook != nullptr) UnhookWindowsHookEx(hook);  // fails if the system has taken it away already: gone all the same
    hook = nullptr;
}

}  // namespace

// Installing again makes a new hook: the old one may have been taken away without a word.
bool InstallKeyboardHook(KeyboardHook procedure) {
    RemoveKeyboardHook();
    hooks.onKey = procedure;
    return Install(hooks.keyboard, WH_KEYBOARD_LL, KeyboardThunk);
}

bool InstallMouseHook(MouseHook procedure) {
    RemoveMouseHook();
    hooks.onMouse = procedure;
    return Install(hooks.mouse, WH_MOUSE_LL, MouseThunk);
}

void PassKeyOn() {
    const KeyCall* const call = hooks.keyCall;
    if (call != nullptr) CallNextHookEx(nullptr, call->code, call->message, call->data);
}

void RemoveKeyboardHook() {
    Remove(hooks.keyboard);
}

void RemoveMouseHook() {
    Remove(hooks.mouse);
}

bool KeyboardHookInstalled() {
    return hooks.keyboard != nullptr;
}

bool MouseHookInstalled() {
    return hooks.mouse != nullptr;
}

KeyboardHook InstalledKeyboardHook() {
    return KeyboardHookInstalled() ? hooks.onKey : nullptr;
}

bool InHookCall() {
    return hooks.callsUnderWay > 0;
}

}  // namespace platform
