#include "editor/keystroke_hook.h"

#include <cstdint>

#include "editor/keystroke_box.h"
#include "editor/keystroke_view.h"
#include "platform/clock.h"
#include "platform/hooks.h"
#include "platform/input.h"
#include "platform/pump.h"
#include "recording/recording_state.h"

TextKeyboard textKeyboard;

namespace {

constexpr int TickMs = 250;
constexpr std::int64_t LongestWayMs = 2000;  // of a key, from the hook to the window
constexpr std::uint32_t PauseKey = 19;

// Without the bits for the ALT key and for extended keys, which count like plain ones: 0 is a key that goes down, 2 one
// that comes up, and anything else, what programs send among it, no key of the user's.
constexpr std::uint32_t FlagsOfDown = 0;
constexpr std::uint32_t FlagsOfUp = 2;
std::uint32_t ReducedFlags(std::uint32_t flags) {
    if (flags > 126) flags -= 126;
    if (flags >= 32) flags -= 32;
    return flags & ~std::uint32_t{1};
}

// A key that has led into the box, or answered a box that was open before, is none for the row, nor is its release.
bool IsHeldBefore(std::size_t virtualKey, bool up) {
    bool& held = textKeyboard.heldBefore[virtualKey];
    const bool before = held;
    if (up) held = false;
    return before;
}

void RememberHeldKeys() {
    for (std::size_t key = 0; key < HookedKeyCount; ++key) {
        textKeyboard.heldBefore[key] = platform::AsyncKeyState(static_cast<int>(key)) < 0;
    }
}

// The box takes all keys, so one has to lead out again: the one that ends a recording, too. The on-screen keyboard can
// put it into a row.
void LeadOut() {
    platform::CallFromPump([] { keystroke_view::LeaveText(); });
}

void TakeKey(const platform::KeyboardHookRecord& key) {
    const std::uint32_t flags = ReducedFlags(key.flags);
    const bool up = flags == FlagsOfUp;
    if ((flags != FlagsOfDown && !up) || key.vkCode >= HookedKeyCount) return;
    if (IsHeldBefore(key.vkCode, up) || !keystroke_view::TextHasKeyboard()) return;
    if (key.vkCode != PauseKey) return NoteKey(static_cast<int>(key.vkCode), up);
    if (!up) LeadOut();
}

void OnKey(const platform::KeyboardHookRecord& key) {
    textKeyboard.lastCall = platform::TickCount();
    TakeKey(key);
    platform::PassKeyOn();
}

void PutIn() {
    platform::InstallKeyboardHook(OnKey);
    textKeyboard.lastCall = platform::TickCount();
}

void InstallHook() {
    if (!textKeyboard.open || RecordingActive() || platform::InstalledKeyboardHook() != nullptr) return;
    RememberHeldKeys();
    PutIn();
}

void RemoveHook() {
    if (TextKeyboardIsHooked()) platform::RemoveKeyboardHook();
}

}  // namespace

bool TextKeyboardIsHooked() {
    return platform::InstalledKeyboardHook() == &OnKey;
}

void OpenTextKeyboard() {
    CloseTextKeyboard();
    textKeyboard.open = true;
    textKeyboard.Timer1 = platform::StartTimer(TickMs, Timer1_Timer);
}

void CloseTextKeyboard() {
    textKeyboard.open = false;
    platform::StopTimer(textKeyboard.Timer1);
    textKeyboard.Timer1 = 0;
    RemoveHook();
}

void OnTextGotFocus() {
    InstallHook();
}

// The control that gets the focus may act on the row at once, so no key is left for later.
void OnTextLostFocus() {
    RemoveHook();
    platform::CallOutsideHooks([] {
        TakeWaitingKeys();
        LetKeysRest();
    });
}

void OnTextKeyMessage() {
    if (TextKeyboardIsHooked() && platform::TickCount() - textKeyboard.lastCall > LongestWayMs) PutIn();
}

void Timer1_Timer() {
    const bool needed = keystroke_view::TextHasKeyboard();
    if (needed) InstallHook();
    if (!needed || RecordingActive()) RemoveHook();
}
