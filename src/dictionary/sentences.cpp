#include "dictionary/sentences.h"

#include "dictionary/dictionary.h"
#include "platform/text.h"

namespace {

// In UTF-8, as the source is: Closed converts what it sets.
constexpr const char* NoBreakSpace = "\u00A0";

std::string BeforeMark() {
    return GetLanguage() == LanguageFrench ? platform::FromUtf8(NoBreakSpace) : std::string();
}

std::string Opening(const char* spanish) {
    return GetLanguage() == LanguageSpanish ? platform::FromUtf8(spanish) : std::string();
}

char DecimalMark() {
    return GetLanguage() == LanguageEnglish ? '.' : ',';
}

// The digits behind the mark, with the zeros in front of them.
std::string Fraction(std::uint64_t value, int places) {
    std::string digits;
    for (int place = 0; place < places; ++place, value /= 10) {
        digits.insert(digits.begin(), static_cast<char>('0' + value % 10));
    }
    return digits;
}

std::uint64_t PowerOfTen(int exponent) {
    std::uint64_t power = 1;
    while (exponent-- > 0) power *= 10;
    return power;
}

std::string Decimal(std::int64_t value, int places, bool needlessZeros) {
    const std::uint64_t size = value < 0 ? 0 - static_cast<std::uint64_t>(value) : static_cast<std::uint64_t>(value);
    std::string fraction = Fraction(size, places);
    while (!needlessZeros && fraction.ends_with('0')) fraction.pop_back();
    const std::string whole = (value < 0 ? "-" : "") + std::to_string(size / PowerOfTen(places));
    return fraction.empty() ? whole : whole + DecimalMark() + fraction;
}

}  // namespace

std::string Label(const std::string& key) {
    return LabelOf(Translate(key));
}

std::string Question(const std::string& key) {
    return QuestionOf(Translate(key));
}

std::string Exclamation(const std::string& key) {
    return ExclamationOf(Translate(key));
}

std::string Ellipsis(const std::string& key) {
    return Translate(key) + "...";
}

std::string LabelOf(const std::string& text) {
    return text + BeforeMark() + ":";
}

std::string QuestionOf(const std::string& text) {
    return Opening("¿") + text + BeforeMark() + "?";
}

std::string ExclamationOf(const std::string& text) {
    return Opening("¡") + text + BeforeMark() + "!";
}

std::string Labelled(const std::string& key, const std::string& value) {
    return Label(key) + " " + value;
}

std::string DecimalNumber(std::int64_t value, int places) {
    return Decimal(value, places, true);
}

std::string ShortDecimalNumber(std::int64_t value, int places) {
    return Decimal(value, places, false);
}

std::string KeyCombination(const ModifierKeys& modifiers, char letter) {
    std::string text;
    if (modifiers.ctrl) text += Translate("Ctrl") + "+";
    if (modifiers.shift) text += Translate("Shift") + "+";
    if (modifiers.alt) text += Translate("Alt") + "+";
    return text + letter;
}

std::string PauseBreakKey() {
    return Translate("Pause") + "/" + Translate("Break");
}
