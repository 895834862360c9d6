#include "sounds/sounds.h"

#include <utility>
#include <vector>

#include "base/product.h"
#include "base/runtime_failure.h"
#include "dictionary/dictionary.h"
#include "dictionary/sentences.h"
#include "platform/boxes.h"
#include "platform/files.h"
#include "platform/sound.h"
#include "settings/folders.h"
#include "settings/settings.h"
#include "sounds/sound_bank.h"

ProgramSounds programSounds;

namespace {

constexpr std::size_t MenuSound = 0;

// The switches stay off for good, as if the user had taken the ticks away.
void TellMissing() {
    programSounds.bankMissing = true;
    settings.Play_Menu_Sounds = 0;
    settings.play_sounds_for_keystrokes = 0;
    platform::ShowBox(Label("Sound cannot be initialized") + " 'sounds.bin' " + Translate("File is missing"),
                      ProductName, platform::BoxIcon::Warning);
}

void Load(platform::WindowHandle mainWindow, const std::string& path) {
    std::vector<platform::Sound> sounds = ReadSoundBank(path);
    programSounds.keySounds = sounds.size() - 1;
    platform::SetSounds(mainWindow, std::move(sounds));
    programSounds.ready = true;
}

}  // namespace

// One that is held just now is not waited for: the start is worth more than the sounds.
void LoadSounds(platform::WindowHandle mainWindow) {
    const std::string path = folders.ProgramFolder + "\\sounds.bin";
    const platform::FileState state = platform::StateOf(path);
    if (state == platform::FileState::Missing) return TellMissing();
    if (state == platform::FileState::Held) return;
    try {
        Load(mainWindow, path);
    } catch (const RuntimeFailure&) {
        programSounds = {};
    }
}

void PlayMenuSound() {
    if (SoundsReady() && settings.Play_Menu_Sounds == 1) platform::StartSound(MenuSound);
}
