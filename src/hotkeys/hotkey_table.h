// The global key combinations that start jobs. The table is settings.Hotkeys; the id under which the system knows a
// combination is its record's index plus 1, and id 0 is Ctrl+Shift+N for a new recording. The system speaks to the main
// window (ownWindows.main). Only what says so pumps.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

// The combination that is built in.
inline constexpr int RecordHotkeyId = 0;
inline constexpr int RecordHotkeyLetter = 'N';

inline constexpr std::ptrdiff_t NoHotkey = -1;

// Whether Ctrl+Shift+N is taken from the system too. A program that cannot record leaves it to others.
struct HotkeyRegistration {
    bool recordCombination = true;
};
extern HotkeyRegistration hotkeyRegistration;

// Gives every combination of the table to the system, and Ctrl+Shift+N for a new recording. Refusals are ignored: what
// another program holds is silently dead here.
void RegisterAllHotkeys();

// Takes all of them back, by the table as it stands now, and pumps once.
void UnregisterAllHotkeys();

// The first record of this job (letter case ignored), or NoHotkey.
std::ptrdiff_t FindHotkeyByJob(const std::string& path);

// The first record of this combination, or NoHotkey.
std::ptrdiff_t FindHotkeyByKeys(std::int32_t modifiers, std::int16_t virtualKey);

// Takes the job's combination from the table and from the system; later records get new ids. The settings are not
// written. Nothing happens to a job without a hotkey; otherwise it pumps.
void DropHotkeyOfJob(const std::string& path);
