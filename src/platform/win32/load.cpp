#include "platform/load.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

#include "win32/handles.h"
#include "win32/system_library.h"
// After <windows.h>, which it needs.
#include <pdh.h>

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

std::optional<int> LoadBySystemTimes() {
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

// The performance counter of the first processor, under the name that it has in a Windows of any language. Wine has
// none.
class ProcessorTime {
public:
    ProcessorTime() {
        const auto open = Find<decltype(&PdhOpenQueryA)>("PdhOpenQueryA");
        const auto add = Find<decltype(&PdhAddEnglishCounterA)>("PdhAddEnglishCounterA");
        if (open == nullptr || add == nullptr || collect == nullptr || format == nullptr) return;
        if (open(nullptr, 0, &query) != ERROR_SUCCESS) return;
        there = add(query, "\\Processor(0)\\% Processor Time", 0, &counter) == ERROR_SUCCESS &&
                collect(query) == ERROR_SUCCESS;  // the base of the first reading
    }

    bool IsThere() const { return there; }

    std::optional<int> Load() const {
        PDH_FMT_COUNTERVALUE value{};
        if (collect(query) != ERROR_SUCCESS) return {};
        if (format(counter, PDH_FMT_DOUBLE, nullptr, &value) != ERROR_SUCCESS) return {};
        return static_cast<int>(std::lround(std::clamp(value.doubleValue, 0.0, 100.0)));
    }

private:
    template <class Function>
    static Function Find(const char* name) {
        return SystemFunction<Function>("pdh.dll", name);
    }

    decltype(&PdhCollectQueryData) collect = Find<decltype(&PdhCollectQueryData)>("PdhCollectQueryData");
    decltype(&PdhGetFormattedCounterValue) format =
        Find<decltype(&PdhGetFormattedCounterValue)>("PdhGetFormattedCounterValue");
    PDH_HQUERY query = nullptr;
    PDH_HCOUNTER counter = nullptr;
    bool there = false;
};

}  // namespace

std::optional<int> ProcessorLoad() {
    static const ProcessorTime processorTime;
    static bool first = true;
    if (!processorTime.IsThere()) return LoadBySystemTimes();
    if (std::exchange(first, false)) return {};
    return processorTime.Load();
}

}  // namespace platform
