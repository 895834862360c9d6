#include "storage/kept_file.h"

#include <cstdint>

#include "platform/clock.h"
#include "platform/files.h"

namespace {

constexpr std::int64_t LongestHoldMs = 2000;
constexpr std::int64_t PauseMs = 20;
constexpr int MostKept = 1000;

std::string OtherName(const std::string& path, int number) {
    const std::size_t dot = path.rfind('.');
    const std::string mark = number == 1 ? " (kept)" : " (kept " + std::to_string(number) + ")";
    return path.substr(0, dot) + mark + path.substr(dot);
}

// No value when all are taken, as all are of which a folder that is out of reach will not tell.
std::optional<std::string> FreeName(const std::string& path) {
    for (int number = 1; number <= MostKept; ++number) {
        const std::string name = OtherName(path, number);
        if (platform::StateOf(name) == platform::FileState::Missing) return name;
    }
    return std::nullopt;
}

}  // namespace

std::optional<std::string> KeepUnderAnotherName(const std::string& path) {
    const std::optional<std::string> name = FreeName(path);
    if (!name) return std::nullopt;
    const std::int64_t deadline = platform::TickCount() + LongestHoldMs;
    platform::MoveResult result = platform::MoveFileOver(path, *name);
    while (result == platform::MoveResult::Busy && platform::TickCount() < deadline) {
        platform::Sleep(PauseMs);
        result = platform::MoveFileOver(path, *name);
    }
    if (result != platform::MoveResult::Done) return std::nullopt;
    return name;
}
