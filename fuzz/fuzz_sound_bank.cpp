// Any bytes at all as sounds.bin: they are read or refused with a file failure, in memory that is in proportion to the
// file, and every sound that is read can be played.
#include <cstdint>

#include "base/runtime_failure.h"
#include "fuzz/require.h"
#include "platform/simulated/files.h"
#include "sounds/sample_bank.h"
#include "sounds/sound_bank.h"
#include "support/allocation_meter.h"

namespace {

void CheckSound(const platform::Sound& sound, std::size_t size) {
    Require(sound.channels == 1 || sound.channels == 2, "one or two channels");
    Require(sound.bitsPerSample == 8 || sound.bitsPerSample == 16, "8 or 16 bits");
    Require(sound.samplesPerSecond >= 1000 && sound.samplesPerSecond <= 192'000, "a rate that a device has");
    const auto frame = static_cast<std::size_t>(sound.channels * sound.bitsPerSample / 8);
    Require(!sound.samples.empty() && sound.samples.size() <= size && sound.samples.size() % frame == 0,
            "whole samples of the file");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    simulated::PutFile(bankPath, std::string(reinterpret_cast<const char*>(data), size));
    const AllocationMeter meter;
    try {
        const std::vector<platform::Sound> sounds = ReadSoundBank(bankPath);
        Require(!sounds.empty(), "a bank has a sound");
        for (const platform::Sound& sound : sounds) CheckSound(sound, size);
    } catch (const RuntimeFailure& failure) {
        Require(failure.Kind() == FailureKind::File, "a refusal is a file failure");
    }
    Require(meter.Largest() <= 4096 + 4 * size, "memory in proportion to the file");
    Require(simulated::OpenFiles() == 0, "the file is closed");
    return 0;
}
