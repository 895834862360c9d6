// The hand-over of a command line from a second start of the program to the first, through WM_COPYDATA.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

inline constexpr std::uintptr_t CommandLineData = 3;  // dwData
inline constexpr std::size_t CommandLineLimit = 255;  // characters; the receiver's buffer

// What the second start sends: one byte a character and a zero byte. A range failure for a line above the limit.
std::string CopyDataOfCommand(const std::string& commandLine);

// The command line in a COPYDATASTRUCT. No value when the message is not ours or carries nothing to read; a range
// failure when it claims more than a command line can hold. Reads no more than `cbData` - 1 bytes.
std::optional<std::string> CommandFromCopyData(std::uintptr_t dwData, std::uint32_t cbData, const void* lpData);
