// A sound bank as bytes, with a menu sound and two key sounds. It knows nothing of the program's reader.
#pragma once

#include <string>
#include <vector>

#include "support/file_bytes.h"

inline const std::string bankPath = "C:\\Program Files\\Tessarine\\sounds.bin";

struct WaveShape {
    int format = 1;
    int channels = 1;
    int rate = 22050;
    int bits = 16;
    std::string samples = "12345678";
    std::string before = "";  // chunks in front of the samples
};

inline std::string WaveBytes(const WaveShape& shape = {}) {
    const int frame = shape.channels * shape.bits / 8;
    const auto size = static_cast<std::int64_t>(shape.samples.size());
    FileBytes rest;
    rest.Raw("WAVEfmt ").Int32(16).Int16(shape.format).Int16(shape.channels).Int32(shape.rate);
    rest.Int32(static_cast<std::int64_t>(shape.rate) * frame).Int16(frame).Int16(shape.bits).Raw(shape.before);
    rest.Raw("data").Int32(size).Raw(shape.samples);
    return FileBytes().Raw("RIFF").Int32(static_cast<std::int64_t>(rest.All().size())).Raw(rest);
}

inline std::string BankBytes(const std::vector<std::string>& waves) {
    FileBytes bank;
    bank.Int32(static_cast<std::int64_t>(waves.size()));
    for (const std::string& wave : waves) bank.Int32(static_cast<std::int64_t>(wave.size())).Raw(wave);
    return bank;
}

inline std::string SampleBank() {
    return BankBytes({WaveBytes(), WaveBytes({.samples = "ab"}), WaveBytes({.channels = 2, .bits = 8})});
}
