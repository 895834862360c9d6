#include "storage/held_file.h"

#include <cstdint>

#include "platform/clock.h"

namespace {

constexpr std::int64_t LongestHoldMs = 2000;
constexpr std::int64_t PauseMs = 20;

}  // namespace

platform::File OpenOnceFree(const std::string& path) {
    const std::int64_t deadline = platform::TickCount() + LongestHoldMs;
    for (;;) {
        platform::File file = platform::File::OpenForReading(path);
        if (file.Found() != platform::FileState::Held || platform::TickCount() >= deadline) return file;
        platform::Sleep(PauseMs);
    }
}
