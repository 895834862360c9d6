// The sounds of keys, played while a run types. None are loaded as long as the program has no sound bank, and a run
// then types in silence. Nothing here pumps or waits for a sound to end.
#pragma once

// How many key sounds are loaded.
int KeySoundCount();

// Starts one of them; an index that does not exist is ignored.
void PlayKeySound(int index);
