#include "replay/click_spacing.h"

#include <cstdlib>

#include "identity/live_chain.h"
#include "platform/clock.h"
#include "platform/input.h"
#include "platform/window_services.h"

namespace {

constexpr std::int64_t MicrosecondsPerMs = 1000;
constexpr int TickStepMs =
    16;  // the system stamps input with a tick that moves in steps: two can seem this much closer

bool RecordedApart(std::int32_t firstMs, std::int32_t secondMs) {
    return std::abs(std::int64_t{secondMs} - firstMs) > platform::DoubleClickTime();
}

bool WithinReach(std::int32_t a, std::int32_t b, std::int32_t size) {
    return 2 * std::abs(std::int64_t{a} - b) <= size;
}

// Of a window and all that it lies in.
std::vector<platform::WindowPlacement> PlacementsFrom(platform::WindowHandle window) {
    std::vector<platform::WindowPlacement> placements;
    LiveChain chain(window);
    for (std::int32_t level = 0; chain.Handle(level) != 0; ++level) {
        placements.push_back(platform::PlacementOf(chain.Handle(level)));
    }
    return placements;
}

}  // namespace

std::int32_t ClickSpacing::HoldBack(const JobEvent& event) {
    next.button = event.dwFlags() == DoubleClickFlags ? platform::MouseLeftDown : event.dwFlags() - MouseFlagBase;
    next.data = next.button == platform::MouseXDown ? event.mouseData() : 0;
    next.pass = pass;
    next.recordedMs = event.mouseTime();
    next.position = platform::CursorPosition();
    next.window = platform::WindowAt(next.position);
    if (!last || !OnOneSpot(*last, next)) return 0;
    if (last->pass == pass && !RecordedApart(last->recordedMs, next.recordedMs)) return 0;
    const std::int64_t earliest =
        last->sentAt + (platform::DoubleClickTime() + TickStepMs) * MicrosecondsPerMs + MicrosecondsPerMs - 1;
    const std::int64_t hold = (earliest - platform::Microseconds()) / MicrosecondsPerMs;
    if (hold <= 0) return 0;
    next.placements = PlacementsFrom(next.window);
    return static_cast<std::int32_t>(hold);
}

bool ClickSpacing::NothingMoved() const {
    return platform::CursorPosition() == next.position && platform::WindowAt(next.position) == next.window &&
           PlacementsFrom(next.window) == next.placements;
}

void ClickSpacing::Sent() {
    last = next;
    last->sentAt = platform::Microseconds();
}

bool ClickSpacing::OnOneSpot(const Press& a, const Press& b) {
    const platform::Size size = platform::DoubleClickSize();
    return a.button == b.button && a.data == b.data && a.window == b.window &&
           WithinReach(a.position.x, b.position.x, size.width) && WithinReach(a.position.y, b.position.y, size.height);
}
