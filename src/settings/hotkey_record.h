// One global key combination that starts a job. The table is settings.Hotkeys; a record's index plus 1 is its id.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

// Bits of Hotkey::modifiers, as RegisterHotKey has them.
inline constexpr std::int32_t HotkeyAlt = 1;
inline constexpr std::int32_t HotkeyControl = 2;
inline constexpr std::int32_t HotkeyShift = 4;

struct Hotkey {
    std::int32_t modifiers = 0;
    std::int16_t virtual_key = 0;  // 'A' to 'Z'
    std::string job_path;          // at most 512 characters
};

// Removes a record; later ones move down and so get new ids. With an empty table, or with one record and another
// index, it shows a box and changes nothing; any other index that does not exist is a range failure. Writes the
// settings unless `no_save`. The combinations claimed from the system are the caller's affair.
void DeleteHotkey(std::ptrdiff_t index, bool no_save);
