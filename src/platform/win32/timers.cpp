#include "platform/timers.h"

#include <algorithm>
#include <map>
#include <memory>

#include "base/runtime_failure.h"
#include "platform/pump.h"
#include "win32/failure_guard.h"
#include "win32/handles.h"

namespace platform {
namespace {

struct Timer {
    TimerId id = 0;
    std::function<void()> handler;
};

std::map<UINT_PTR, Timer> timers;  // by the system's number
TimerId lastId = 0;

void CALLBACK Tick(HWND, UINT, UINT_PTR systemId, DWORD) noexcept {
    const auto found = timers.find(systemId);
    if (found == timers.end()) return;                              // stopped with a tick in the queue
    GuardedCall([handler = found->second.handler] { handler(); });  // a copy: the handler may stop its own timer
}

}  // namespace

TimerId StartTimer(int intervalMs, std::function<void()> handler) {
    const UINT_PTR systemId = SetTimer(nullptr, 0, static_cast<UINT>(std::max(intervalMs, 1)), Tick);
    if (systemId == 0) return 0;
    timers[systemId] = {++lastId, std::move(handler)};
    return lastId;
}

void StopTimer(TimerId timer) {
    const auto found =
        std::find_if(timers.begin(), timers.end(), [&](const auto& entry) { return entry.second.id == timer; });
    if (found == timers.end()) return;
    KillTimer(nullptr, found->first);
    timers.erase(found);
}

void CallFromPump(std::function<void()> call) {
    const auto timer = std::make_shared<TimerId>(0);
    *timer = StartTimer(1, [timer, once = std::move(call)] {
        StopTimer(*timer);
        once();
    });
    if (*timer == 0) throw RuntimeFailure(FailureKind::Memory, "Windows has no timer left.");
}

}  // namespace platform
