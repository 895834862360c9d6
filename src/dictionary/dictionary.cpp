#include "dictionary/dictionary.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "base/product.h"
#include "base/text.h"
#include "dictionary/dictionary_table.h"
#include "platform/registry.h"
#include "platform/text.h"

ActionWords actionWords;

namespace {

const std::string registryKey = std::string("Software\\") + ProductName;
constexpr const char* registryValue = "Language";

// By language number less one.
constexpr std::array<std::string_view, 4> languageTexts = {"en", "de", "sp", "fr"};

constexpr std::array<std::string ActionWords::*, ActionWordCount> actionWordMembers = {
    &ActionWords::ok,       &ActionWords::failed,      &ActionWords::executingJob, &ActionWords::waitingForWindow,
    &ActionWords::mouse,    &ActionWords::move,        &ActionWords::left,         &ActionWords::right,
    &ActionWords::click,    &ActionWords::up,          &ActionWords::down,         &ActionWords::wheel,
    &ActionWords::middle,   &ActionWords::doubleClick, &ActionWords::keyboard,     &ActionWords::keystrokes,
    &ActionWords::textField};

// Four parallel columns in the system code page. A row without a key is empty in all of them.
struct Table {
    using Column = std::vector<std::string>;

    explicit Table(std::size_t places) : english(places), german(places), french(places), spanish(places) {}

    Column english;  // in lower case, as it is only ever compared
    Column german;
    Column french;
    Column spanish;
};

struct Dictionary {
    std::int16_t CurrentLanguage = 0;  // zero or below: not read yet
    bool built = false;
    std::array<Table, 2> tables = {Table(DictionaryCapacity), Table(OwnRows().size())};  // in the order of the search
    std::array<ActionWords, languageTexts.size()> words;
};

Dictionary dictionary;

void BuildRows(Table& table, std::span<const DictionaryRow> sources) {
    std::size_t row = 0;
    for (const DictionaryRow& source : sources) {
        table.english[row] = platform::LowerCase(platform::FromUtf8(source.english));
        table.german[row] = platform::FromUtf8(source.german);
        table.french[row] = platform::FromUtf8(source.french);
        table.spanish[row] = platform::FromUtf8(source.spanish);
        ++row;
    }
}

void BuildActionWords() {
    for (std::size_t word = 0; word < ActionWordCount; ++word) {
        for (std::size_t language = 0; language < languageTexts.size(); ++language) {
            dictionary.words[language].*actionWordMembers[word] = platform::FromUtf8(ActionWordRows()[word][language]);
        }
    }
}

void BuildDictionary() {
    BuildRows(dictionary.tables[0], DictionaryRows());
    BuildRows(dictionary.tables[1], OwnRows());
    BuildActionWords();
    dictionary.built = true;
}

std::string TextOfRow(const Table& table, std::size_t row, const std::string& key) {
    switch (dictionary.CurrentLanguage) {
        case LanguageGerman:
            return table.german[row];
        case LanguageSpanish:
            return table.spanish[row];
        case LanguageFrench:
            return table.french[row];
        default:
            return key;
    }
}

// Empty without a text. The first of two equal keys wins; the second can never be reached.
std::string TextFor(const std::string& key) {
    const std::string wanted = platform::LowerCase(key);
    for (const Table& table : dictionary.tables) {
        const auto found = std::find(table.english.begin(), table.english.end(), wanted);
        if (found == table.english.end()) continue;
        return TextOfRow(table, static_cast<std::size_t>(found - table.english.begin()), key);
    }
    return {};
}

// No value when the marker is missing.
std::optional<std::string> Replaced(const std::string& text, std::string_view marker, const std::string& argument) {
    const auto at = text.find(marker);
    if (at == std::string::npos) return std::nullopt;
    return text.substr(0, at) + argument + text.substr(at + marker.size());
}

}  // namespace

std::int16_t GetLanguage() {
    if (dictionary.CurrentLanguage < 1) dictionary.CurrentLanguage = StoredLanguage().value_or(LanguageEnglish);
    return dictionary.CurrentLanguage;
}

std::optional<std::int16_t> StoredLanguage() {
    const std::string stored = Trim(platform::ReadRegistry(registryKey, registryValue).value_or(""));
    for (std::size_t i = 0; i < languageTexts.size(); ++i) {
        if (languageTexts[i] == stored) return static_cast<std::int16_t>(i + 1);
    }
    return std::nullopt;
}

void UseLanguage(int language) {
    const bool known = language >= LanguageEnglish && language <= LanguageFrench;
    dictionary.CurrentLanguage = known ? static_cast<std::int16_t>(language) : LanguageEnglish;
}

void SetLanguage(int language) {
    UseLanguage(language);
    const auto text = languageTexts[static_cast<std::size_t>(dictionary.CurrentLanguage - 1)];
    // Where the registry refuses, the language holds until the program ends.
    platform::WriteRegistry(registryKey, registryValue, std::string(text));
}

std::string Translate(const std::string& key) {
    if (!dictionary.built) BuildDictionary();
    actionWords = dictionary.words[static_cast<std::size_t>(GetLanguage() - 1)];
    const std::string text = TextFor(key);
    return text.empty() ? "<" + key + ">" : text;
}

std::string Translate1(std::string& text, const std::string& argument) {
    text = Translate(text);
    return Replaced(text, "%1", argument).value_or(text);
}

std::string Translate2(std::string& text, const std::string& argument1, const std::string& argument2) {
    text = Translate(text);
    const auto first = Replaced(text, "%1", argument1);
    if (!first) return text;
    // The search starts over at the front: a "%2" inside the first argument is the one that is replaced. Without any
    // "%2" the first replacement is dropped, too.
    return Replaced(*first, "%2", argument2).value_or(text);
}

std::string Translate1(std::string&& text, const std::string& argument) {
    return Translate1(text, argument);
}

std::string Translate2(std::string&& text, const std::string& argument1, const std::string& argument2) {
    return Translate2(text, argument1, argument2);
}
