#include "sounds/sound_bank.h"

#include <cstdlib>
#include <fstream>
#include <sstream>

#include "sample_bank.h"
#include "support/story.h"

namespace {

std::vector<platform::Sound> Read(const std::string& bytes) {
    simulated::PutFile(bankPath, bytes);
    return ReadSoundBank(bankPath);
}

void ExpectRefused(const std::string& bytes, const std::string& what) {
    SCOPED_TRACE(what);
    try {
        Read(bytes);
        ADD_FAILURE() << "was read";
    } catch (const RuntimeFailure& failure) {
        EXPECT_EQ(failure.Kind(), FailureKind::File);
        EXPECT_THAT(failure.what(), HasSubstr(bankPath));
    }
    EXPECT_EQ(simulated::OpenFiles(), 0);
}

TEST(SoundBank, IsReadAsItWasWritten) {
    const auto sounds = Read(SampleBank() + "what an older and longer bank has left");
    ASSERT_EQ(sounds.size(), 3U);
    EXPECT_EQ(sounds[0].samples, "12345678");
    EXPECT_EQ(sounds[0].channels, 1);
    EXPECT_EQ(sounds[0].samplesPerSecond, 22050);
    EXPECT_EQ(sounds[0].bitsPerSample, 16);
    EXPECT_EQ(sounds[1].samples, "ab");
    EXPECT_EQ(sounds[2].channels, 2);
    EXPECT_EQ(sounds[2].bitsPerSample, 8);
    const std::string note = FileBytes().Raw("LIST").Int32(3).Raw("abc").Raw(std::string(1, '\0'));
    EXPECT_EQ(Read(BankBytes({WaveBytes({.before = note})}))[0].samples, "12345678");
}

TEST(SoundBank, CutAnywhereIsRefused) {
    const std::string whole = SampleBank();
    for (std::size_t length = 0; length < whole.size(); ++length) {
        ExpectRefused(whole.substr(0, length), "cut at " + std::to_string(length));
    }
}

TEST(SoundBank, ThatLiesIsRefused) {
    const std::string whole = SampleBank();
    const std::pair<std::size_t, const char*> numbers[] = {{0, "count"},
                                                           {4, "size of a sound"},
                                                           {12, "size of a wave file"},
                                                           {24, "size of the format"},
                                                           {48, "size of the samples"}};
    for (const auto& [at, what] : numbers) {
        for (const std::int64_t lie : {-1LL, 0LL, 0x7FFFFFFFLL, -0x80000000LL, 0x40000000LL, 4LL + whole[at]}) {
            ExpectRefused(WithInt32(whole, at, lie), what + (" " + std::to_string(lie)));
        }
    }
    ExpectRefused(whole + std::string(5'000'000, ' '), "larger than any bank");
}

TEST(SoundBank, WithASoundThatCannotBePlayedIsRefused) {
    const std::pair<const char*, WaveShape> shapes[] = {{"compressed", {.format = 2}},
                                                        {"no channel", {.channels = 0}},
                                                        {"three channels", {.channels = 3, .samples = "123456"}},
                                                        {"no rate", {.rate = 0}},
                                                        {"negative rate", {.rate = -22050}},
                                                        {"12 bits", {.bits = 12}},
                                                        {"32 bits", {.bits = 32}},
                                                        {"half a sample", {.samples = "123"}},
                                                        {"no samples", {.samples = ""}}};
    for (const auto& [what, shape] : shapes) ExpectRefused(BankBytes({WaveBytes(), WaveBytes(shape)}), what);
    const std::string wave = WaveBytes();
    ExpectRefused(BankBytes({std::string(wave).replace(0, 4, "RIFX")}), "another kind of file");
    ExpectRefused(BankBytes({std::string(wave).replace(12, 4, "none")}), "no format");
    ExpectRefused(BankBytes({std::string(wave).replace(36, 4, "none")}), "no samples");
    ExpectRefused(BankBytes({WithInt32(wave, 28, 1)}), "bytes a second that are not those of its rate");
}

// Short and soft: it rises and falls without a click, and nobody starts at it.
TEST(ShippedBank, HasShortSoftSounds) {
    std::ostringstream bytes;
    bytes << std::ifstream(SHIPPED_BANK, std::ios::binary).rdbuf();
    const auto sounds = Read(bytes.str());
    EXPECT_GE(sounds.size(), 4U) << "the menu's and several keys";
    for (const platform::Sound& sound : sounds) {
        ASSERT_EQ(sound.bitsPerSample, 16);
        ASSERT_EQ(sound.channels, 1);
        std::vector<int> samples;
        for (std::size_t at = 0; at < sound.samples.size(); at += 2) {
            const auto low = static_cast<unsigned char>(sound.samples[at]);
            samples.push_back(std::abs(sound.samples[at + 1] * 256 + low));
        }
        const auto perMs = static_cast<std::size_t>(sound.samplesPerSecond) / 1000;
        EXPECT_GE(samples.size() / perMs, 20U);
        EXPECT_LE(samples.size() / perMs, 120U);
        const int peak = *std::ranges::max_element(samples);
        EXPECT_GT(peak, 1000) << "to be heard at all";
        EXPECT_LT(peak, 32768 / 6);
        EXPECT_LT(*std::max_element(samples.begin(), samples.begin() + static_cast<std::ptrdiff_t>(perMs)), peak / 4);
        EXPECT_EQ(samples.front(), 0);
        EXPECT_EQ(samples.back(), 0);
    }
}

}  // namespace
