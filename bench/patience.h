// Waiting for what another program does, and not for ever.
#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "platform/clock.h"

namespace bench {

inline constexpr int PatienceMs = 60'000;

// Ends the bench with a word when it does not come.
template <class Condition>
void WaitFor(const Condition& condition, const char* what) {
    const std::int64_t end = platform::TickCount() + PatienceMs;
    while (!condition()) {
        if (platform::TickCount() > end) {
            std::printf("The bench waits in vain for %s.\n", what);
            std::exit(3);
        }
        platform::Sleep(10);
    }
}

}  // namespace bench
