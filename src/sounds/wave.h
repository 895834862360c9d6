// Wave files (RIFF), as far as a sound bank holds them: uncompressed samples of 8 or 16 bits, in one or two channels.
#pragma once

#include <optional>
#include <string_view>

#include "platform/sound.h"

// The sound that these bytes are from the first to the last, or no value when they are anything else: another format, a
// chunk that reaches beyond them, a rate that no device has, no samples, or half a one.
std::optional<platform::Sound> ParseWave(std::string_view bytes);
