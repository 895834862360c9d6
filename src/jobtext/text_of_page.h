// Texts of a code page as UTF-8 and back, where that keeps every byte.
#pragma once

#include <optional>
#include <string>
#include <string_view>

// No value where the way back would give other bytes.
std::optional<std::string> ExactUtf8(std::string_view text, int codePage);

// No value where the code page lacks a character.
std::optional<std::string> FromExactUtf8(std::string_view utf8, int codePage);
