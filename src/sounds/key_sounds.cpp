#include "sounds/key_sounds.h"

#include <cstddef>

#include "platform/sound.h"
#include "sounds/sounds.h"

int KeySoundCount() {
    return SoundsReady() ? static_cast<int>(programSounds.keySounds) : 0;
}

// In the bank they stand behind the menu's.
void PlayKeySound(int index) {
    if (index >= 0 && index < KeySoundCount()) platform::StartSound(static_cast<std::size_t>(index) + 1);
}
