// What the program asks of the memory while a meter lives: the largest single allocation, to catch readers that believe
// a count in a file, and how much more it holds than before. Linking allocation_meter.cpp puts the global operator new
// under watch.
#pragma once

#include <cstddef>
#include <cstdint>

class AllocationMeter {
public:
    AllocationMeter();
    ~AllocationMeter();
    AllocationMeter(const AllocationMeter&) = delete;
    AllocationMeter& operator=(const AllocationMeter&) = delete;

    std::size_t Largest() const;
    std::int64_t Held() const;  // bytes
};

// While it lives, there is no memory for a piece of `size` bytes or more.
class LackOfMemory {
public:
    explicit LackOfMemory(std::size_t size);
    ~LackOfMemory();
    LackOfMemory(const LackOfMemory&) = delete;
    LackOfMemory& operator=(const LackOfMemory&) = delete;
};
