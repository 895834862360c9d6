// The dialog language_selection, in which a new user chooses a language before anything else is shown.
#pragma once

#include <array>
#include <string>

// At the start of the program: opens the dialog for a user without a stored language, and pumps while it is open. Not
// for a start with the computer or one that runs a job, which nobody may be there to see.
void OfferLanguages(const std::string& commandLine);

// List1: the languages by their numbers, each in its own words, spelled as they always have been here. The row of the
// stored language, the first when none is stored; and what the button takes. A row that does not exist changes nothing.
inline constexpr std::array<const char*, 4> List1Entries = {"English", "Deutsch", "Espanol", "Francias"};
int RowOfStoredLanguage();
void TakeLanguage(int row);

// The dialog implements it; in the tests a stand-in does.
namespace language_selection_view {

void ShowModal();

}  // namespace language_selection_view
