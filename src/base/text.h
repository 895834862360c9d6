// Small helpers for text that is one byte a character.
#pragma once

#include <string>
#include <string_view>

inline constexpr const char* LineBreak = "\r\n";

// Without blanks and zero bytes at both ends: fixed fields are padded with blanks, and a field that was never
// assigned holds zeros.
std::string_view TrimView(std::string_view text);
inline std::string Trim(std::string_view text) {
    return std::string(TrimView(text));
}

// BaseName: the text after the last backslash less its last four characters (the extension).
std::string BaseName(std::string_view path);

// Without one trailing backslash, if there is one.
std::string WithoutTrailingBackslash(std::string_view path);
