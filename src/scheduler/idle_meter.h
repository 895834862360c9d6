// Tells when the machine has settled after its start: when the sum of at most 30 idle samples in a row, each at least
// 45 percent, is above 2600. An idle machine has settled with the 27th; one busy sample starts the count again.
#pragma once

#include <deque>

class IdleMeter {
public:
    // Percent of the time since the sample before in which the processor was idle. True when the machine has settled.
    bool Add(int idle_now);

private:
    std::deque<int> idle_samples;  // oldest first
    int idle_sum = 0;
};
