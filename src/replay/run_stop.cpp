#include "replay/run_stop.h"

#include <atomic>

#include "platform/clock.h"

namespace {

std::int64_t stopTick = 0;
std::atomic<bool> interrupted = false;

}  // namespace

void StopRunAt(std::int64_t tick) {
    stopTick = tick;
}

void InterruptRun() {
    interrupted = true;
}

StopReason RunStopReason() {
    if (interrupted) return StopReason::Interrupted;
    return stopTick != 0 && platform::TickCount() >= stopTick ? StopReason::TimeIsUp : StopReason::None;
}
