// Texts of Windows in the code page of the program.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "win32/handles.h"

namespace platform {

inline constexpr DWORD LongestWidePath = 32768;  // characters

std::wstring Widen(std::string_view text, UINT codePage);

// The name of a file; of one with characters that the code page lacks its short form, where the file system keeps one.
// No value without. A likeness (FromUtf8) can be the name of another file.
std::optional<std::string> PathInCodePage(const std::wstring& path);

}  // namespace platform
