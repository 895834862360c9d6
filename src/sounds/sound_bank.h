// The sound bank, sounds.bin beside the program: a count, and so many wave files one behind the other, each with its
// size in front (docs/job_format.md).
#pragma once

#include <string>
#include <vector>

#include "platform/sound.h"

// All of its sounds, one at least. A file failure that names the file when it cannot be read, is larger than any bank,
// or when a count, a size or a sound in it is not what it claims to be. Memory stays in proportion to the file.
std::vector<platform::Sound> ReadSoundBank(const std::string& path);
