// What the program asks of the memory while a meter lives: the largest single allocation, to catch readers that believe
// a count in a file, and how much more it holds than before. Linking allocation_meter.cpp puts the global operator new
// under watch.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>

struct AllocationWatch {
    bool on = false;
    std::size_t largest = 0;
    std::int64_t held = 0;  // bytes
    std::size_t refused = std::numeric_limits<std::size_t>::max();
};
inline AllocationWatch allocationWatch;

class AllocationMeter {
public:
    AllocationMeter() { allocationWatch = {.on = true}; }
    ~AllocationMeter() { allocationWatch.on = false; }
    AllocationMeter(const AllocationMeter&) = delete;
    AllocationMeter& operator=(const AllocationMeter&) = delete;

    static std::size_t Largest() { return allocationWatch.largest; }
    static std::int64_t Held() { return allocationWatch.held; }
};

// While it lives, there is no memory for a piece of `size` bytes or more.
class LackOfMemory {
public:
    explicit LackOfMemory(std::size_t size) { allocationWatch.refused = size; }
    ~LackOfMemory() { allocationWatch = {}; }
    LackOfMemory(const LackOfMemory&) = delete;
    LackOfMemory& operator=(const LackOfMemory&) = delete;
};
