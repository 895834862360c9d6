// The program's sounds: one for the menu and several for keys, from the bank beside the program (sound_bank.h), and the
// two switches of the Options page that belong to them. Key sounds have a header of their own (key_sounds.h).
#pragma once

#include <cstddef>

#include "platform/types.h"

struct ProgramSounds {
    bool ready = false;         // the bank is loaded; without it the program is silent
    bool bankMissing = false;   // there is none
    std::size_t keySounds = 0;  // in the bank behind the menu's
};
extern ProgramSounds programSounds;

// Loads the bank; once, when the main window and the settings are there. Without the file a box tells so, which pumps,
// and both switches are off from then on (Play_Menu_Sounds and play_sounds_for_keystrokes of the settings are 0). With
// one that cannot be read the program is silent without a word. The system's own sound comes up with the first sound.
void LoadSounds(platform::WindowHandle mainWindow);

inline bool SoundsReady() {
    return programSounds.ready;
}

// Whether the two switches on the Options page can be used.
inline bool SoundSwitchesEnabled() {
    return !programSounds.bankMissing;
}

// For a click on a tab, when Play_Menu_Sounds says so. Does not wait for the end of the sound.
void PlayMenuSound();
