// The two hook procedures that write every key and mouse action of the desktop down as a JobEvent, in the order in
// which they are called. They watch and swallow nothing. Both run on the one thread and pump while they look at a
// window, so one can run inside the other: a call takes its place in the array first and fills it later. Nothing else
// of the program runs in there, so no recording ends or begins inside a call. They must be quick, for the whole desktop
// waits: a move does no window work, and no growth moves what was captured.
#pragma once

#include <cstdint>

#include "platform/hooks.h"

// Codes of KeyboardHookProc.
inline constexpr std::int32_t HookAction = 0;           // HC_ACTION: an input
inline constexpr std::int32_t StopFromButton = 123456;  // the Stop button ends the recording; the record is not read

// Pause/Break ends the recording; it and the Stop button alone have a meaning here.
void KeyboardHookProc(std::int32_t nCode, const platform::KeyboardHookRecord& record);
void OnKeyboardHook(const platform::KeyboardHookRecord& record);  // KeyboardHookProc with HookAction

void MouseHookProc(const platform::MouseHookRecord& record);

// Provides memory for the arrays whose flag is set; at the end of a hook call, ahead of need. Where there is none to be
// had, it is tried again when the next element is needed.
void GrowArrays();
