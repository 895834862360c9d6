// Low-level hooks: every key and mouse action of the desktop, before the window that gets it. The procedures run
// inside the pump, on the thread that installed them, and must be quick: the system silently takes a hook away
// from a program that is too slow. Calls nest, for what a procedure calls may pump; see Pump for what runs in there.
#pragma once

#include <cstdint>

#include "platform/types.h"

namespace platform {

// KBDLLHOOKSTRUCT with its message (WM_KEYDOWN, WM_KEYUP, WM_SYSKEYDOWN, WM_SYSKEYUP).
struct KeyboardHookRecord {
    std::uint32_t message = 0;
    std::uint32_t vkCode = 0;
    std::uint32_t scanCode = 0;
    std::uint32_t flags = 0;  // LLKHF_EXTENDED 1, LLKHF_INJECTED 16, LLKHF_ALTDOWN 32, LLKHF_UP 128
    std::uint32_t time = 0;
    std::uint32_t dwExtraInfo = 0;
};

// MSLLHOOKSTRUCT with its message (WM_MOUSEMOVE, WM_LBUTTONDOWN, ...).
struct MouseHookRecord {
    std::uint32_t message = 0;
    Point pt;
    std::uint32_t mouseData = 0;
    std::uint32_t flags = 0;  // LLMHF_INJECTED 1
    std::uint32_t time = 0;
    std::uint32_t dwExtraInfo = 0;
};

// Each call tells of one input. Other programs' hooks hear of a key when the procedure says PassKeyOn, and of nothing
// that the mouse does; the input itself always goes on to its window.
using KeyboardHook = void (*)(const KeyboardHookRecord&);
using MouseHook = void (*)(const MouseHookRecord&);

// False when the system refuses. At most one hook of each kind; installing again replaces the procedure.
bool InstallKeyboardHook(KeyboardHook procedure);
bool InstallMouseHook(MouseHook procedure);
void PassKeyOn();  // CallNextHookEx; from within a call of the keyboard's procedure, else nothing happens
void RemoveKeyboardHook();
void RemoveMouseHook();
bool KeyboardHookInstalled();
bool MouseHookInstalled();

// The procedure of the keyboard hook that is in; nullptr when none is. Who shares the hook with others, one after the
// other, takes out only what is its own.
KeyboardHook InstalledKeyboardHook();

// True from the call of a procedure until it has returned, in all that it calls.
bool InHookCall();

}  // namespace platform
