#include "recording/event_array.h"

#include <algorithm>
#include <string>

#include "base/runtime_failure.h"

namespace {

// A slot that nobody fills is a mouse event without an action, in the first window chain. Zero, not the no-window
// marker: an event that was refused is saved with zeros alone.
JobEvent ZeroEvent() {
    JobEvent event;
    event.WindowChainIndex = 0;
    return event;
}

std::size_t CountOf(std::int32_t count) {
    return static_cast<std::size_t>(std::max(count, 0));
}

}  // namespace

void EventArray::Reset(std::int32_t upperBound) {
    events = {};
    Reserve(upperBound);
}

void EventArray::Reserve(std::int32_t upperBound) {
    events.Reserve(CountOf(upperBound) + 1);
}

void EventArray::Trim(std::int32_t count) {
    events.Trim(CountOf(count));
}

JobEvent& EventArray::NewSlot(std::int32_t index) {
    if (index < 0) Refuse(index);
    if (index < Size()) return (*this)[index] = ZeroEvent();
    while (Size() <= index) events.push_back(ZeroEvent());
    return events.back();
}

void EventArray::Refuse(std::int32_t index) const {
    throw RuntimeFailure(FailureKind::Range, "Recorded event " + std::to_string(index) + " does not exist (there are " +
                                                 std::to_string(Size()) + ").");
}

std::vector<JobEvent> EventArray::First(std::int32_t count) const {
    if (count > Size()) Refuse(count - 1);
    return events.First(CountOf(count));
}
