// The largest single allocation of the program while a meter lives, to catch readers that believe a count in a file.
// Linking allocation_meter.cpp puts the global operator new under watch.
#pragma once

#include <cstddef>

class AllocationMeter {
public:
    AllocationMeter();
    ~AllocationMeter();
    AllocationMeter(const AllocationMeter&) = delete;
    AllocationMeter& operator=(const AllocationMeter&) = delete;

    std::size_t Largest() const;
};
