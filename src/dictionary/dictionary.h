// The dictionary: every text on its way to the screen goes through here. The English sentence is the key, so the
// code reads in English, and a sentence that the table lacks shows up in angle brackets instead of vanishing.
// Owns the language of the user interface (cached from HKCU\Software\Tessarine, value "Language") and the tables,
// which are built at the first lookup. Texts are in the system code page. No lookup fails, and nothing here pumps.
// What is composed of several texts, or ends in a mark, goes through sentences.h.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

// The numbers of the languages. The order of the numbers is not that of the table's columns.
inline constexpr std::int16_t LanguageEnglish = 1;
inline constexpr std::int16_t LanguageGerman = 2;
inline constexpr std::int16_t LanguageSpanish = 3;
inline constexpr std::int16_t LanguageFrench = 4;

// The language in force, 1 to 4. The first call reads the registry; an absent or unknown value is English.
std::int16_t GetLanguage();

// The language in the registry, read anew; none when none is stored there, or none that is known.
std::optional<std::int16_t> StoredLanguage();

// Stores the language and puts it in force. An unknown number is English.
void SetLanguage(int language);

// Puts it in force for this process alone.
void UseLanguage(int language);

// The text for `key` in the present language, or "<key>" when the table has none. Case does not matter: in English
// the key comes back in the caller's case, in the other languages the text has the table's.
std::string Translate(const std::string& key);

// Translates `text` in place, and returns it with the first "%1" replaced by `argument`.
std::string Translate1(std::string& text, const std::string& argument);

// Translates `text` in place, and returns it with "%1" and then "%2" replaced. A text that lacks either marker comes
// back with neither replaced.
std::string Translate2(std::string& text, const std::string& argument1, const std::string& argument2);

// For literals, which want nothing back.
std::string Translate1(std::string&& text, const std::string& argument);
std::string Translate2(std::string&& text, const std::string& argument1, const std::string& argument2);

// The words from which the editor and the replay log make their descriptions of events.
struct ActionWords {
    std::string ok;
    std::string failed;
    std::string executingJob;
    std::string waitingForWindow;
    std::string mouse;
    std::string move;
    std::string left;
    std::string right;
    std::string click;
    std::string up;
    std::string down;
    std::string wheel;
    std::string middle;
    std::string doubleClick;
    std::string keyboard;
    std::string keystrokes;
    std::string textField;
};

// Set anew by every lookup, so valid after the first one.
extern ActionWords actionWords;
