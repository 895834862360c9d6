#include "sounds/key_sounds.h"

// No sound bank is read yet, so there is nothing loaded, and nothing to play.

int KeySoundCount() {
    return 0;
}

void PlayKeySound(int) {}
