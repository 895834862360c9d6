#include "storage/temporary_name.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/files.h"
#include "platform/processes.h"

namespace {

constexpr std::string_view Digits = "0123456789abcdefghijklmnopqrstuvwxyz";
constexpr std::string_view Extension = ".tmp";
constexpr std::size_t DigitCount = 7;      // enough for the 32 bits of a process and the 4 of its saves
constexpr std::uint64_t SavesAtOnce = 16;  // of one process

std::optional<std::uint64_t> NumberOf(std::string_view digits) {
    std::uint64_t number = 0;
    for (const char digit : digits) {
        const std::size_t value = Digits.find(digit);
        if (value == std::string_view::npos) return std::nullopt;
        number = number * Digits.size() + value;
    }
    return number;
}

// The process that a temporary file is of; no value for any other name.
std::optional<std::uint32_t> WriterOf(const std::string& name) {
    if (name.size() != 1 + DigitCount + Extension.size() || !name.starts_with('~')) return std::nullopt;
    const auto number = NumberOf(std::string_view(name).substr(1, DigitCount));
    if (!number || *number / SavesAtOnce > UINT32_MAX) return std::nullopt;
    return static_cast<std::uint32_t>(*number / SavesAtOnce);
}

bool IsLeftover(const std::string& name) {
    const auto writer = WriterOf(name);
    return writer && (*writer == platform::OwnProcess() || !platform::ProcessRuns(*writer));
}

// The number's digits, with as many zeros in front as it takes.
std::string NameOf(std::uint64_t number) {
    std::string name = "~" + std::string(DigitCount, '0') + std::string(Extension);
    for (std::size_t place = DigitCount; place > 0; --place, number /= Digits.size()) {
        name[place] = Digits[number % Digits.size()];
    }
    return name;
}

}  // namespace

std::string NewTemporaryPath(const std::string& folder) {
    static std::uint64_t saves = 0;
    std::string path;
    for (std::uint64_t tries = 0; tries < SavesAtOnce; ++tries) {
        path = folder + "\\" + NameOf(platform::OwnProcess() * SavesAtOnce + saves++ % SavesAtOnce);
        if (platform::StateOf(path) == platform::FileState::Missing) break;
    }
    return path;
}

void RemoveLeftovers(const std::string& folder) {
    const auto names = platform::FilesIn(folder, std::string(Extension)).value_or(std::vector<std::string>());
    for (const std::string& name : names) {
        if (IsLeftover(name)) platform::RemoveFile(folder + "\\" + name);
    }
}
