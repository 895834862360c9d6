#include "widgets/mnemonics.h"

#include <algorithm>
#include <cctype>
#include <iterator>
#include <set>
#include <string_view>

#include "platform/text.h"

namespace {

constexpr std::string_view Pair = "&&";

// Letters beyond the first half of the code page need another key on many keyboards, digits are no help to memory.
bool IsPlainLetter(char character) {
    return std::isalpha(static_cast<unsigned char>(character)) != 0 && static_cast<unsigned char>(character) < 128;
}

bool BeginsWord(const std::string& text, std::size_t place) {
    if (!IsPlainLetter(text[place])) return false;
    return place == 0 || text[place - 1] == ' ' || text[place - 1] == '(' || text[place - 1] == '\'';
}

// Where the "&" stands that marks a letter; npos without one.
std::size_t FindMark(const std::string& caption) {
    std::size_t place = caption.find('&');
    while (place != std::string::npos && caption.compare(place, Pair.size(), Pair) == 0) {
        place = caption.find('&', place + Pair.size());
    }
    return place + 1 < caption.size() ? place : std::string::npos;
}

// Own marks come before everything.
std::size_t Choices(const std::string& caption) {
    if (FindMark(caption) != std::string::npos) return 0;
    const std::string upper = platform::UpperCase(caption);
    std::set<char> letters;
    std::copy_if(upper.begin(), upper.end(), std::inserter(letters, letters.end()), IsPlainLetter);
    return letters.size();
}

}  // namespace

bool Mnemonics::TryTake(char letter, unsigned panels) {
    const std::string upper = platform::UpperCase(std::string_view(&letter, 1));
    unsigned& takenWith = taken[static_cast<unsigned char>(upper[0])];
    if ((takenWith & panels) != 0) return false;
    takenWith |= panels;
    return true;
}

std::string Mnemonics::Mark(const std::string& caption, unsigned panels) {
    const std::size_t mark = FindMark(caption);
    if (mark != std::string::npos && TryTake(caption[mark + 1], panels)) return caption;
    std::string text = caption;
    if (mark != std::string::npos) text.erase(mark, 1);
    for (const bool wordsOnly : {true, false}) {
        for (std::size_t place = 0; place < text.size(); ++place) {
            if (!(wordsOnly ? BeginsWord(text, place) : IsPlainLetter(text[place]))) continue;
            if (TryTake(text[place], panels)) return text.insert(place, 1, '&');
        }
    }
    return text;
}

void MarkAll(std::vector<MnemonicCaption>& captions, Mnemonics& letters) {
    std::vector<MnemonicCaption*> order;
    order.reserve(captions.size());
    for (MnemonicCaption& caption : captions) order.push_back(&caption);
    std::stable_sort(order.begin(), order.end(), [](const MnemonicCaption* left, const MnemonicCaption* right) {
        return Choices(left->text) < Choices(right->text);
    });
    for (MnemonicCaption* const caption : order) caption->text = letters.Mark(caption->text, caption->panels);
}

std::string Unmarked(const std::string& text) {
    std::string doubled;
    for (const char each : text) doubled.append(each == '&' ? 2 : 1, each);
    return doubled;
}
