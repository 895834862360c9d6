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

}  // namespace

// The memory of the recording before serves again.
void EventArray::Reset(std::int32_t upperBound) {
    for (std::vector<JobEvent>& block : blocks) block.clear();
    size = 0;
    Reserve(upperBound);
}

// The memory is asked for here and touched only when its slots are taken, so that this is quick for any length.
void EventArray::Reserve(std::int32_t upperBound) {
    const std::size_t wanted = static_cast<std::size_t>(std::max(upperBound, 0)) / BlockSize + 1;
    while (blocks.size() < wanted) blocks.emplace_back().reserve(BlockSize);
}

void EventArray::Trim(std::int32_t count) {
    if (count >= size) return;
    const auto kept = static_cast<std::size_t>(std::max(count, 0));
    blocks.resize(kept / BlockSize + 1);
    blocks.back().resize(kept % BlockSize);
    size = count;
}

JobEvent& EventArray::NewSlot(std::int32_t index) {
    if (index < 0) Refuse(index);
    if (index < size) return At(index) = ZeroEvent();
    for (; size <= index; ++size) {
        Reserve(size);
        blocks[static_cast<std::size_t>(size) / BlockSize].push_back(ZeroEvent());
    }
    return At(index);
}

void EventArray::Refuse(std::int32_t index) const {
    throw RuntimeFailure(FailureKind::Range, "Recorded event " + std::to_string(index) + " does not exist (there are " +
                                                 std::to_string(size) + ").");
}

std::vector<JobEvent> EventArray::First(std::int32_t count) const {
    std::vector<JobEvent> events;
    events.reserve(static_cast<std::size_t>(std::max(count, 0)));
    for (std::int32_t i = 0; i < count; ++i) events.push_back((*this)[i]);
    return events;
}
