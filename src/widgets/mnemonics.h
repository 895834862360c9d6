// The letters by which a form's controls are reached with Alt. The texts come in four languages, so the letters are
// given out when the captions are set, each once in a form: a caption keeps the letter that its "&" marks if it is
// still free, or else gets the first free one, preferably a word's first.
#pragma once

#include <array>
#include <string>

class Mnemonics {
public:
    // The caption with its letter marked; without a mark when none of its letters is free. "&&" stands for an
    // ampersand, as in the system's own captions.
    std::string Mark(const std::string& caption);

private:
    bool TryTake(char letter);

    std::array<bool, 256> taken{};
};

// A text that is no caption (a name, say) for a place where "&" marks a letter: every ampersand is doubled.
std::string Unmarked(const std::string& text);
