#include "platform/clock.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "contract_desktop.h"

namespace {

// The least that `measure` gives in several goes: what the operation itself costs, on a machine that is also busy
// with other work.
template <class Measure>
std::int64_t LeastOf(int goes, const Measure& measure) {
    std::int64_t least = measure();
    for (int go = 1; go < goes; ++go) least = std::min(least, measure());
    return least;
}

TEST(Clock, CountsWholeMillisecondsOfTheSameOrigin) {
    for (int round = 0; round < 200; ++round) {
        const std::int64_t before = platform::Microseconds();
        const std::int64_t tick = platform::TickCount();
        const std::int64_t after = platform::Microseconds();
        ASSERT_LE(before / 1000, tick);
        ASSERT_LE(tick, after / 1000);
        if (round % 20 == 0) platform::Sleep(1);
    }
}

TEST(Clock, SleepIsNeverShortAndHardlyLong) {
    for (const std::int64_t milliseconds : {1, 2, 3, 7, 16, 50}) {
        const std::int64_t late = LeastOf(5, [&] {
            const std::int64_t start = platform::Microseconds();
            platform::Sleep(milliseconds);
            const std::int64_t slept = platform::Microseconds() - start;
            EXPECT_GE(slept, milliseconds * 1000);
            return slept - milliseconds * 1000;
        });
        EXPECT_LE(late, contract::Desktop().clockIsReal ? 200 : 0) << milliseconds << " ms";
    }
}

// Forty slices of 7 ms: laid on deadlines they end where one long sleep would.
TEST(Clock, SlicesOnDeadlinesDoNotAddUpTheirLateness) {
    const std::int64_t late = LeastOf(3, [] {
        std::int64_t deadline = platform::Microseconds();
        for (int slice = 0; slice < 40; ++slice) {
            deadline += 7000;
            platform::SleepUntil(deadline);
            EXPECT_GE(platform::Microseconds(), deadline);
        }
        return platform::Microseconds() - deadline;
    });
    EXPECT_LE(late, contract::Desktop().clockIsReal ? 200 : 0);
}

TEST(Clock, LocalTimeIsADateAndMovesWithTheTick) {
    const auto secondOfDay = [](const platform::LocalTime& time) {
        return time.hour * 3600 + time.minute * 60 + time.second;
    };
    const platform::LocalTime start = platform::LocalNow();
    EXPECT_GE(start.year, 2000);
    EXPECT_TRUE(start.month >= 1 && start.month <= 12 && start.day >= 1 && start.day <= 31);
    platform::Sleep(1100);
    const int moved = (secondOfDay(platform::LocalNow()) - secondOfDay(start) + 86400) % 86400;
    EXPECT_GE(moved, 1);
    EXPECT_LE(moved, 60);
    EXPECT_NE(platform::ShortDateText().find(std::to_string(start.day)), std::string::npos);
}

}  // namespace
