#include "support/allocation_meter.h"

#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <new>

namespace {

AllocationWatch& watch = allocationWatch;

std::int64_t SizeOf(void* block) {
    return static_cast<std::int64_t>(malloc_usable_size(block));
}

}  // namespace

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
