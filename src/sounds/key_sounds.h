// The sounds of keys, played while a run types. Nothing here pumps or waits for a sound to end.
#pragma once

// How many key sounds are loaded; 0 without a sound bank, and a run then types in silence.
int KeySoundCount();

// Starts one of them; an index that does not exist is ignored.
void PlayKeySound(int index);
