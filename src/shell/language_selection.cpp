#include "shell/language_selection.h"

#include "dictionary/dictionary.h"
#include "shell/command_line.h"

void OfferLanguages(const std::string& commandLine) {
    if (StoredLanguage() || IsComputerStart(commandLine) || IsRunCommand(commandLine)) return;
    language_selection_view::ShowModal();
}

int RowOfStoredLanguage() {
    return StoredLanguage().value_or(LanguageEnglish) - 1;
}

void TakeLanguage(int row) {
    if (row >= 0 && row < LanguageFrench) SetLanguage(row + 1);
}
