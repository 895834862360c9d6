#include "sounds/sound_bank.h"

#include <cstddef>
#include <cstdint>
#include <optional>

#include "base/runtime_failure.h"
#include "sounds/wave.h"
#include "storage/input_file.h"

namespace {

// It is read while the program starts. Ours takes 15 KB.
constexpr std::int64_t LargestBank = std::int64_t{4} * 1024 * 1024;
constexpr std::size_t SizeOfSize = 4;

[[noreturn]] void FailDamaged(const std::string& path) {
    throw RuntimeFailure(FailureKind::File, "The file '" + path + "' is damaged: it is no sound bank.");
}

platform::Sound ReadSound(InputFile& file, const std::string& path) {
    const std::int32_t size = file.Count();
    if (size < 0) FailDamaged(path);
    const auto length = static_cast<std::size_t>(size);
    std::optional<platform::Sound> sound = ParseWave({file.Take(length), length});
    if (!sound) FailDamaged(path);
    return *sound;
}

}  // namespace

std::vector<platform::Sound> ReadSoundBank(const std::string& path) {
    InputFile file(path);
    if (file.Length() > LargestBank) FailDamaged(path);
    const std::int32_t count = file.Count();
    if (count < 1) FailDamaged(path);
    file.RequireRoom(count, SizeOfSize);
    std::vector<platform::Sound> sounds;
    for (std::int32_t i = 0; i < count; ++i) sounds.push_back(ReadSound(file, path));
    return sounds;
}
