// As much of a desktop as the file readers ask for, beside the simulated files: boxes that are not kept, no registry,
// and a clock that moves only in sleeps. A fuzzer runs millions of inputs in one process; nothing may pile up.
#include "platform/boxes.h"
#include "platform/clock.h"
#include "platform/processes.h"
#include "platform/registry.h"

namespace {

struct QuietClock {
    std::int64_t microseconds = 0;
} quietClock;

}  // namespace

namespace platform {

void ShowBox(const std::string&, const std::string&, BoxIcon) {}

bool AskYesNo(const std::string&, const std::string&, BoxIcon) {
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

std::optional<std::string> ReadRegistry(const std::string&, const std::string&) {
    return std::nullopt;
}

bool WriteRegistry(const std::string&, const std::string&, const std::string&) {
    return false;
}

}  // namespace platform
