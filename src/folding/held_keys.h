// Which keys the text of a growing keystroke row leaves held: the answer of KeyIsHeld from the row's last token,
// without its walk back through the whole text, which would make a long row cost the square of its length. Each token
// of a row is read once, when somebody asks.
#pragma once

#include <array>
#include <cstddef>
#include <map>
#include <string>
#include <string_view>

#include "keystrokes/notation.h"

class HeldKeys {
public:
    // What is asked next is about another row.
    void StartRow();

    // KeyIsHeld(text, index of the last token, vk) for a key whose name stands in braces. Since the last call
    // or StartRow the text may only have been added to.
    bool IsHeld(const std::string& text, int vk);

private:
    struct Meaning {
        int vk = KeyCodeUnknown;
        int action = ActionNone;
    };

    bool ReadOn(const std::string& text);
    const Meaning& MeaningOf(std::string_view token);

    std::size_t read = 0;                   // length of the part of the text that has been read
    std::array<bool, KeyNameCount> held{};  // by key: its last token so far was a down
    std::map<std::string, Meaning, std::less<>> meanings;
};
