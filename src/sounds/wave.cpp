#include "sounds/wave.h"

#include <cstddef>
#include <cstdint>

#include "storage/archive.h"

namespace {

constexpr std::size_t HeadSize = 12;       // "RIFF", the size of the rest, "WAVE"
constexpr std::size_t ChunkHeadSize = 8;   // its name, its size
constexpr std::size_t FormatSize = 16;     // more may follow, of which plain samples need nothing
constexpr std::uint16_t PlainSamples = 1;  // WAVE_FORMAT_PCM
constexpr std::uint32_t LowestRate = 1'000;
constexpr std::uint32_t HighestRate = 192'000;

template <class Integer>
Integer NumberAt(std::string_view bytes, std::size_t at) {
    return little_endian::Load<Integer>(bytes.data() + at);
}

// Takes the next chunk off the front of `rest`. No value when it does not fit into it.
struct Chunk {
    std::string_view name;
    std::string_view body;
};
std::optional<Chunk> TakeChunk(std::string_view& rest) {
    if (rest.size() < ChunkHeadSize) return std::nullopt;
    const std::size_t size = NumberAt<std::uint32_t>(rest, 4);
    if (size > rest.size() - ChunkHeadSize) return std::nullopt;
    const Chunk chunk{rest.substr(0, 4), rest.substr(ChunkHeadSize, size)};
    rest.remove_prefix(ChunkHeadSize + size);
    if (size % 2 == 1 && !rest.empty()) rest.remove_prefix(1);  // chunks begin at even places
    return chunk;
}

// The sound without its samples.
std::optional<platform::Sound> ParseFormat(std::string_view body) {
    if (body.size() < FormatSize || NumberAt<std::uint16_t>(body, 0) != PlainSamples) return std::nullopt;
    const auto channels = NumberAt<std::uint16_t>(body, 2);
    const auto rate = NumberAt<std::uint32_t>(body, 4);
    const auto bytesPerSecond = NumberAt<std::uint32_t>(body, 8);
    const auto frame = NumberAt<std::uint16_t>(body, 12);
    const auto bits = NumberAt<std::uint16_t>(body, 14);
    const bool good = (channels == 1 || channels == 2) && (bits == 8 || bits == 16) && rate >= LowestRate &&
                      rate <= HighestRate && frame == channels * bits / 8 && bytesPerSecond == rate * frame;
    if (!good) return std::nullopt;
    return platform::Sound{channels, static_cast<int>(rate), bits, {}};
}

}  // namespace

std::optional<platform::Sound> ParseWave(std::string_view bytes) {
    if (bytes.size() < HeadSize || bytes.substr(0, 4) != "RIFF" || bytes.substr(8, 4) != "WAVE") return std::nullopt;
    if (NumberAt<std::uint32_t>(bytes, 4) != bytes.size() - 8) return std::nullopt;
    std::string_view rest = bytes.substr(HeadSize);
    std::optional<platform::Sound> sound;
    while (const std::optional<Chunk> chunk = TakeChunk(rest)) {
        if (chunk->name == "fmt ") sound = ParseFormat(chunk->body);
        if (chunk->name != "data") continue;
        const auto frame = sound ? static_cast<std::size_t>(sound->channels * sound->bitsPerSample / 8) : 1;
        if (chunk->body.empty() || chunk->body.size() % frame != 0) return std::nullopt;
        if (sound) sound->samples = chunk->body;
        return sound;
    }
    return std::nullopt;
}
