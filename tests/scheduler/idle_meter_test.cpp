#include "scheduler/idle_meter.h"

#include "support/story.h"

namespace {

// After how many of these samples the machine counts as settled; 0 when it does not.
int SettledAfter(const std::vector<std::pair<int, int>>& runs) {
    IdleMeter meter;
    int samples = 0;
    for (const auto& [count, idle] : runs) {
        for (int i = 0; i < count; ++i) {
            ++samples;
            if (meter.Add(idle)) return samples;
        }
    }
    return 0;
}

TEST(IdleMeter, SettlesByTheSumOfItsWindow) {
    EXPECT_EQ(SettledAfter({{100, 100}}), 27);
    EXPECT_EQ(SettledAfter({{26, 100}, {1, 0}, {100, 100}}), 54) << "a busy sample starts anew";
    EXPECT_EQ(SettledAfter({{25, 100}, {1, 44}, {100, 100}}), 53);
    EXPECT_EQ(SettledAfter({{30, 87}}), 30) << "2610 with the 30th";
    EXPECT_EQ(SettledAfter({{1000, 86}}), 0) << "2580 and no more";
    EXPECT_EQ(SettledAfter({{30, 45}, {30, 100}}), 53) << "7 old samples of 45 and 23 of 100 make 2615";
    EXPECT_EQ(SettledAfter({{1, 45}, {29, 88}}), 0) << "2597";
    EXPECT_EQ(SettledAfter({{1, 45}, {30, 88}}), 31) << "the 45 has left, and 88 has come";
}

}  // namespace
