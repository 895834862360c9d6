// What a reader would find wrong with a text on the screen, whatever it says.
#pragma once

#include <string>
#include <vector>

#include "dictionary/dictionary.h"

inline constexpr int AllLanguages[] = {LanguageEnglish, LanguageGerman, LanguageSpanish, LanguageFrench};

// The faults of `text` (in the system code page) as one of the present language, each with the text; a good one has
// none.
std::vector<std::string> FaultsOf(const std::string& text);
