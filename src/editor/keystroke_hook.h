// The keyboard of Text1. While the box has it, a low-level hook hears every key, Tab and Alt and their like among them,
// and notes it for the box (NoteKey): inside a hook call nothing is put in, for that can take time and show boxes. The
// keys go on to their window as ever; the control that shows the box eats them there.
//
// The hook is in only between OpenTextKeyboard and CloseTextKeyboard, while the box has the focus, and never during a
// recording, which has a hook of its own: the desktop knows one at a time. What this module takes out is its own hook
// or nothing. Nothing here pumps.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "platform/timers.h"

inline constexpr std::size_t HookedKeyCount = 256;

struct TextKeyboard {
    bool open = false;  // the editor is
    platform::TimerId Timer1 = 0;
    std::int64_t lastCall = 0;                      // tick of the newest hook call, or of the hook's arrival
    std::array<bool, HookedKeyCount> heldBefore{};  // by virtual key: down since before the hook was in
};
extern TextKeyboard textKeyboard;

// With the editor's form. From here on Timer1 repairs what a change of the focus without its event leaves behind: a
// missing hook, or one too many.
void OpenTextKeyboard();

// When the form goes, however it goes; once more does no harm.
void CloseTextKeyboard();

// Text1 has got the focus, or lost it. Keys that wait are put in before it is gone.
void OnTextGotFocus();
void OnTextLostFocus();

// A key has gone down in Text1. The hook has heard of it before, or it is no more: Windows takes it away without a word
// from a program that was too slow once. Then it is put in again.
void OnTextKeyMessage();

void Timer1_Timer();

// The hook of this module is the one that is in.
bool TextKeyboardIsHooked();
