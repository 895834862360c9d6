// Short sounds, played beside whatever the program does. Nothing here waits, pumps or tells of a failure: without a
// device, or with one that fails, the program is silent.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/types.h"

namespace platform {

// Samples as a wave file has them (PCM): 8 bits without a sign or 16 with one, little-endian, the channels in turn.
struct Sound {
    int channels = 1;  // 1 or 2
    int samplesPerSecond = 0;
    int bitsPerSample = 16;
    std::string samples;
};

// The sounds that StartSound knows by their places, for a program with this main window. To be called once.
void SetSounds(WindowHandle mainWindow, std::vector<Sound> sounds);

// Lets a sound begin, anew when it is still playing; a place that does not exist is ignored. The first one after a
// silence comes as soon as the system is ready for it; of several that were started meanwhile, the last.
void StartSound(std::size_t place);

}  // namespace platform
