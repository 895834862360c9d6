// What the program has pressed and not yet released. It lies in memory that the program shares with its guard, which
// reads it after the program's death: at every moment, also in the middle of a change, it names all that can be down. A
// key too many does no harm, for releasing a key that is up changes nothing.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>

#include "platform/input.h"

struct HeldState {
    // By virtual key, and 256 on for extended keys: SHIFT, CTRL and ALT mean another key with that flag. 0 for one that
    // is up, else how it was pressed (scan code and flags).
    std::array<std::atomic<std::uint32_t>, 512> keys{};
    // The press flags of the buttons that are down. The X buttons have one flag between them: a word for each.
    std::atomic<std::uint32_t> buttons = 0;
    std::array<std::atomic<std::uint32_t>, 3> xButtons{};  // by their number, 1 and 2

    static_assert(std::atomic<std::uint32_t>::is_always_lock_free, "a killed program must not hold a lock in it");
};

// Called round every sending, by platform::SendInput alone: presses are noted before they are made, releases after.
void NoteBeforeSending(HeldState& held, const platform::InputRecord& record);
void NoteAfterSending(HeldState& held, const platform::InputRecord& record);

// Takes over what another state holds.
void CopyHeldState(const HeldState& from, HeldState& to);

// Sends a release for everything that is down: buttons first, modifiers last, so that no key that is still down loses
// its modifiers before it comes up.
void ReleaseHeld(HeldState& held);
