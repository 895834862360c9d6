#include "support/allocation_meter.h"

#include <cstdlib>
#include <new>

namespace {

struct Watch {
    bool on = false;
    std::size_t largest = 0;
};
Watch watch;

}  // namespace

AllocationMeter::AllocationMeter() {
    watch = {true, 0};
}

AllocationMeter::~AllocationMeter() {
    watch.on = false;
}

std::size_t AllocationMeter::Largest() const {
    return watch.largest;
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    if (watch.on && size > watch.largest) watch.largest = size;
    return std::malloc(size > 0 ? size : 1);
}

void* operator new(std::size_t size) {
    if (void* const block = operator new(size, std::nothrow)) return block;
    throw std::bad_alloc();
}

void operator delete(void* block) noexcept {
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept {
    std::free(block);
}
