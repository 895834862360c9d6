#include "support/allocation_meter.h"

#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <new>

namespace {

struct Watch {
    bool on = false;
    std::size_t largest = 0;
    std::int64_t held = 0;
    std::size_t refused = std::numeric_limits<std::size_t>::max();
};
Watch watch;

std::int64_t SizeOf(void* block) {
    return static_cast<std::int64_t>(malloc_usable_size(block));
}

}  // namespace

AllocationMeter::AllocationMeter() {
    watch.on = true;
    watch.largest = 0;
    watch.held = 0;
}

AllocationMeter::~AllocationMeter() {
    watch.on = false;
}

std::size_t AllocationMeter::Largest() const {
    return watch.largest;
}

std::int64_t AllocationMeter::Held() const {
    return watch.held;
}

LackOfMemory::LackOfMemory(std::size_t size) {
    watch.refused = size;
}

LackOfMemory::~LackOfMemory() {
    watch.refused = std::numeric_limits<std::size_t>::max();
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    if (size >= watch.refused) return nullptr;
    void* const block = std::malloc(size > 0 ? size : 1);
    if (watch.on) {
        watch.largest = std::max(watch.largest, size);
        watch.held += SizeOf(block);
    }
    return block;
}

void* operator new(std::size_t size) {
    if (void* const block = operator new(size, std::nothrow)) return block;
    throw std::bad_alloc();
}

void operator delete(void* block) noexcept {
    if (watch.on && block != nullptr) watch.held -= SizeOf(block);
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept {
    operator delete(block);
}
