// Text in the system code page, one byte a character.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace platform {

// From UTF-8. A character that the code page lacks becomes its nearest likeness or "?".
std::string FromUtf8(std::string_view utf8);

// To UTF-8, for tools that show what the program holds.
std::string ToUtf8(std::string_view text);

// The number of the system code page (GetACP), 1252 for instance.
int SystemCodePage();

// The same for text in any code page, by its number. No value for one that is not known here.
std::optional<std::string> FromUtf8(std::string_view utf8, int codePage);
std::optional<std::string> ToUtf8(std::string_view text, int codePage);

std::string LowerCase(std::string_view text);
std::string UpperCase(std::string_view text);

}  // namespace platform
