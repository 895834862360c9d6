#include "guard/held_state.h"

#include <cstddef>

using platform::InputRecord;

namespace {

constexpr std::int32_t Presses = platform::MouseLeftDown | platform::MouseRightDown | platform::MouseMiddleDown;

// Of a pressed key: scan code * 65536 + flags * 256 + 1.
std::uint32_t HowPressed(const InputRecord& record) {
    const std::uint32_t scanCode = static_cast<std::uint32_t>(record.KeyCode()) >> 16;
    const std::uint32_t flags = static_cast<std::uint32_t>(record.KeyState()) & 0xFF;
    return scanCode << 16 | flags << 8 | 1;
}

InputRecord ReleaseOfKey(int virtualKey, std::uint32_t howPressed) {
    InputRecord record;
    record.dwType() = platform::InputKeyboard;
    record.KeyCode() = static_cast<std::int32_t>((howPressed & 0xFFFF'0000U) | static_cast<std::uint32_t>(virtualKey));
    record.KeyState() = static_cast<std::int32_t>(howPressed >> 8 & 0xFF) | platform::KeyUp;
    return record;
}

// The system knows keys of one byte only.
std::atomic<std::uint32_t>& KeyOf(HeldState& held, const InputRecord& record) {
    const bool extended = (record.KeyState() & platform::KeyExtended) != 0;
    return held.keys[static_cast<std::size_t>(record.KeyCode() & 0xFF) + (extended ? 256 : 0)];
}

bool IsXButton(std::int32_t number) {
    return number == 1 || number == 2;
}

bool IsModifier(int virtualKey) {
    return (virtualKey >= 16 && virtualKey <= 18) || virtualKey == 91 || virtualKey == 92 ||
           (virtualKey >= 160 && virtualKey <= 165);
}

void ReleaseButton(std::int32_t pressFlag, std::int32_t data) {
    InputRecord record;
    record.dwFlags() = pressFlag << 1;  // every release flag follows its press flag
    record.mouseData() = data;
    platform::SendInput(record);
}

void ReleaseButtons(HeldState& held) {
    for (const std::int32_t press : {platform::MouseLeftDown, platform::MouseRightDown, platform::MouseMiddleDown}) {
        if ((held.buttons & static_cast<std::uint32_t>(press)) != 0) ReleaseButton(press, 0);
    }
    held.buttons = 0;
    for (const std::int32_t number : {1, 2}) {
        if (held.xButtons[static_cast<std::size_t>(number)].exchange(0) != 0) {
            ReleaseButton(platform::MouseXDown, number);
        }
    }
}

void ReleaseKeys(HeldState& held, bool modifiers) {
    for (std::size_t key = 0; key < held.keys.size(); ++key) {
        const int virtualKey = static_cast<int>(key % 256);
        if (IsModifier(virtualKey) != modifiers || held.keys[key] == 0) continue;
        platform::SendInput(ReleaseOfKey(virtualKey, held.keys[key]));
        held.keys[key] = 0;
    }
}

}  // namespace

void NoteBeforeSending(HeldState& held, const InputRecord& record) {
    if (record.dwType() == platform::InputKeyboard) {
        if ((record.KeyState() & platform::KeyUp) == 0) KeyOf(held, record) = HowPressed(record);
        return;
    }
    held.buttons |= static_cast<std::uint32_t>(record.dwFlags() & Presses);
    if ((record.dwFlags() & platform::MouseXDown) != 0 && IsXButton(record.mouseData())) {
        held.xButtons[static_cast<std::size_t>(record.mouseData())] = 1;
    }
}

void NoteAfterSending(HeldState& held, const InputRecord& record) {
    if (record.dwType() == platform::InputKeyboard) {
        if ((record.KeyState() & platform::KeyUp) != 0) KeyOf(held, record) = 0;
        return;
    }
    held.buttons &= ~(static_cast<std::uint32_t>(record.dwFlags()) >> 1 & static_cast<std::uint32_t>(Presses));
    if ((record.dwFlags() & platform::MouseXUp) != 0 && IsXButton(record.mouseData())) {
        held.xButtons[static_cast<std::size_t>(record.mouseData())] = 0;
    }
}

void CopyHeldState(const HeldState& from, HeldState& to) {
    for (std::size_t key = 0; key < from.keys.size(); ++key) to.keys[key] = from.keys[key].load();
    to.buttons = from.buttons.load();
    for (std::size_t number = 0; number < from.xButtons.size(); ++number) {
        to.xButtons[number] = from.xButtons[number].load();
    }
}

void ReleaseHeld(HeldState& held) {
    ReleaseButtons(held);
    ReleaseKeys(held, false);
    ReleaseKeys(held, true);
}
