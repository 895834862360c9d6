// The code page Windows-1252 where no Windows is at hand: what FromUtf8, ToUtf8 and the rest of platform/text.h mean in
// it.
#pragma once

#include <string>
#include <string_view>

namespace windows_1252 {

inline constexpr int Number = 1252;

std::string FromUtf8(std::string_view utf8);
std::string ToUtf8(std::string_view text);
std::string LowerCase(std::string_view text);
std::string UpperCase(std::string_view text);

}  // namespace windows_1252
