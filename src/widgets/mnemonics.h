// The letters by which a form's controls are reached with Alt. The texts come in four languages, so the letters are
// given out when the captions are set, each once among the captions that are seen together. A caption keeps the letter
// that its "&" marks if it is still free, or else gets the first free one, preferably a word's first.
#pragma once

#include <array>
#include <string>
#include <vector>

// In every caption "&&" stands for an ampersand, as in the system's own.
class Mnemonics {
public:
    // A form can have panels of which one is seen at a time. Each bit is one of them; a caption outside of the panels
    // is seen with all of them.
    static constexpr unsigned AllPanels = ~0U;

    // The caption with its letter marked; without a mark when none of its letters is free.
    std::string Mark(const std::string& caption, unsigned panels = AllPanels);

private:
    bool TryTake(char letter, unsigned panels);

    std::array<unsigned, 256> taken{};  // by letter: the panels with which it is seen
};

struct MnemonicCaption {
    int control = 0;
    std::string text;
    unsigned panels = Mnemonics::AllPanels;
};

// Marks all of them, those with the fewest letters to choose from first: for forms with more captions than an order by
// hand would serve.
void MarkAll(std::vector<MnemonicCaption>& captions, Mnemonics& letters);

// A text that is no caption (a name, say) for a place where "&" marks a letter: every ampersand is doubled.
std::string Unmarked(const std::string& text);
