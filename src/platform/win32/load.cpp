#include "platform/load.h"

#include <algorithm>
#include <cstdint>

#include "win32/handles.h"

namespace platform {
namespace {

struct Times {
    std::uint64_t idle = 0;
    std::uint64_t total = 0;  // kernel (which includes idle) and user
};

std::uint64_t Ticks(FILETIME time) {
    return (static_cast<std::uint64_t>(time.dwHighDateTime) << 32) | time.dwLowDateTime;
}

std::optional<Times> ReadTimes() {
    FILETIME idle, kernel, user;
    if (!GetSystemTimes(&idle, &kernel, &user)) return {};
    return Times{Ticks(idle), Ticks(kernel) + Ticks(user)};
}

}  // namespace

std::optional<int> ProcessorLoad() {
    static std::optional<Times> last;
    const std::optional<Times> before = last;
    const std::optional<Times> now = ReadTimes();
    if (!now) return {};
    if (!before || now->total < before->total) last = now;
    // The system's counts move with its tick; two calls within one tell nothing, and the interval stays open.
    if (!before || now->total <= before->total) return {};
    last = now;
    const std::uint64_t total = now->total - before->total;
    const std::uint64_t idle = std::min(total, now->idle - std::min(now->idle, before->idle));
    return static_cast<int>((total - idle) * 100 / total);
}

}  // namespace platform
