#include "storage/held_file.h"

#include <cstdint>

#include "platform/clock.h"

namespace {

constexpr std::int64_t LongestHoldMs = 2000;
constexpr std::int64_t HoldPauseMs = 20;

}  // namespace

void WaitWhileHeld(const std::function<bool()>& isHeld) {
    const std::int64_t deadline = platform::TickCount() + LongestHoldMs;
    while (isHeld() && platform::TickCount() < deadline) platform::Sleep(HoldPauseMs);
}

platform::File OpenOnceFree(const std::string& path) {
    platform::File file;
    WaitWhileHeld([&] {
        file = platform::File::OpenForReading(path);
        return file.Found() == platform::FileState::Held;
    });
    return file;
}
