// What the sources of the notation share: a text cut into tokens in one walk, and names looked up only once for a
// whole text.
#pragma once

#include <array>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "keystrokes/notation.h"

// KeyNameFromCode and KeyCodeFromName with a memory. It lives for one text: the keyboard layout may change before the
// next.
class KeyNameMemory {
public:
    const std::string& NameOf(int vk);
    int CodeOf(const std::string& token);

private:
    std::array<std::string, KeyNameCount> names;  // empty: not asked for yet, as no name is empty
    std::map<std::string, int> codes;
};

void ParseToken(const std::string& token, int& vk, int& action, KeyNameMemory& names,
                BadWords badWords = BadWords::Told);

// The end of the token that begins at `start`; npos for a "{" that is not closed.
std::size_t TokenEnd(std::string_view text, std::size_t start);

// All tokens; no value if a "{" is not closed.
std::optional<std::vector<std::string>> SplitTokens(const std::string& text);
