#include "widgets/mnemonics.h"

#include <cctype>
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

}  // namespace

bool Mnemonics::TryTake(char letter) {
    const std::string upper = platform::UpperCase(std::string_view(&letter, 1));
    bool& mark = taken[static_cast<unsigned char>(upper[0])];
    if (mark) return false;
    return mark = true;
}

std::string Mnemonics::Mark(const std::string& caption) {
    const std::size_t mark = FindMark(caption);
    if (mark != std::string::npos && TryTake(caption[mark + 1])) return caption;
    std::string text = caption;
    if (mark != std::string::npos) text.erase(mark, 1);
    for (const bool wordsOnly : {true, false}) {
        for (std::size_t place = 0; place < text.size(); ++place) {
            if (!(wordsOnly ? BeginsWord(text, place) : IsPlainLetter(text[place]))) continue;
            if (TryTake(text[place])) return text.insert(place, 1, '&');
        }
    }
    return text;
}

std::string Unmarked(const std::string& text) {
    std::string doubled;
    for (const char each : text) doubled.append(each == '&' ? 2 : 1, each);
    return doubled;
}
