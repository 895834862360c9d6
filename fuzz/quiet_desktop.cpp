#include "fuzz/quiet_desktop.h"

#include <chrono>
#include <map>

#include "platform/clock.h"
#include "platform/load.h"
#include "platform/processes.h"
#include "platform/pump.h"
#include "platform/registry.h"
#include "platform/timers.h"

namespace {

struct QuietClock {
    std::int64_t microseconds = 0;
    std::int64_t wallAtStart = 0;  // seconds since 1970, as those before
} quietClock;

struct QuietTimers {
    int last = 0;
    std::map<platform::TimerId, std::function<void()>> handlers;
} quietTimers;

}  // namespace

namespace quiet {

void SetWallClock(std::int64_t seconds) {
    quietClock.wallAtStart = seconds - quietClock.microseconds / 1'000'000;
}

std::int64_t WallClock() {
    return quietClock.wallAtStart + quietClock.microseconds / 1'000'000;
}

void TickAllTimers() {
    const auto handlers = quietTimers.handlers;
    for (const auto& [timer, handler] : handlers) {
        if (quietTimers.handlers.contains(timer)) handler();
    }
}

void StopAllTimers() {
    quietTimers = {};
}

}  // namespace quiet

namespace platform {

bool StartProgram(const std::string&, int) {
    return false;
}

std::uint32_t OwnProcess() {
    return 1;
}

bool ProcessRuns(std::uint32_t) {
    return false;
}

std::int64_t Microseconds() {
    return quietClock.microseconds;
}

std::int64_t TickCount() {
    return quietClock.microseconds / 1000;
}

void Sleep(std::int64_t milliseconds) {
    quietClock.microseconds += milliseconds * 1000;
}

LocalTime LocalNow() {
    using namespace std::chrono;
    const sys_seconds now{seconds(quiet::WallClock())};
    const year_month_day date{floor<days>(now)};
    const hh_mm_ss time{now - floor<days>(now)};
    return {static_cast<int>(date.year()),
            static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day())),
            static_cast<int>(time.hours().count()),
            static_cast<int>(time.minutes().count()),
            static_cast<int>(time.seconds().count())};
}

std::string ShortDateText() {
    return "a date";
}

TimerId StartTimer(int, std::function<void()> handler) {
    quietTimers.handlers[++quietTimers.last] = std::move(handler);
    return quietTimers.last;
}

void StopTimer(TimerId timer) {
    quietTimers.handlers.erase(timer);
}

void Pump() {}

std::optional<int> ProcessorLoad() {
    return 0;
}

std::optional<std::string> ReadRegistry(const std::string&, const std::string&) {
    return std::nullopt;
}

bool WriteRegistry(const std::string&, const std::string&, const std::string&) {
    return false;
}

}  // namespace platform
