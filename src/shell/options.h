// What the Options page does beyond the switches that are nothing but a setting: the start with Windows, the data
// folder, the language. What asks or tells pumps.
#pragma once

#include <array>

// start_with_windows: writes the entry of the registry, or takes it away. A box tells when Windows refuses; the tick is
// to show what the registry says then (job_library::StartsWithWindows).
void StartWithWindows(bool starts);

// Command7, "Open folder": the data folder in the explorer.
void OpenDataFolder();

// Command2, "Change...": ChangeDataFolder, once the user has decided about changes on the job page, for the list of
// jobs is filled anew.
void ChangeFolder();

// language_combo: the languages by their numbers, each in its own words, spelled as they always have been here. The
// place in it is the number of the language less one.
inline constexpr std::array<const char*, 4> LanguageComboEntries = {"English", "Deutsch", "Espanol", "Francais!"};
int LanguagePlace();

// Puts the language in force for all that is open, and stores it. Changes on the job page are asked about first; where
// they cannot be saved, the language stays. The selected job stays selected.
void ChooseLanguage(int place);
