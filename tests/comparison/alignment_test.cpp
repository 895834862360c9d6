#include "comparison/alignment.h"

#include "support/story.h"

namespace {

using Sequence = std::vector<std::uint64_t>;

// The number of pairs, or nothing when they are not pairs of equal elements in order.
std::optional<int> PairsOf(const Sequence& a, const Sequence& b) {
    const std::vector<std::int32_t> partners = Align(a, b);
    if (partners.size() != a.size()) return std::nullopt;
    int pairs = 0;
    std::int32_t last = -1;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (partners[i] == -1) continue;
        const auto j = static_cast<std::size_t>(partners[i]);
        if (partners[i] <= last || j >= b.size() || a[i] != b[j]) return std::nullopt;
        last = partners[i];
        ++pairs;
    }
    return pairs;
}

// The longest common subsequence, by the table.
int MostPairs(const Sequence& a, const Sequence& b) {
    std::vector<std::vector<int>> best(a.size() + 1, std::vector<int>(b.size() + 1));
    for (std::size_t i = a.size(); i-- > 0;) {
        for (std::size_t j = b.size(); j-- > 0;) {
            best[i][j] = a[i] == b[j] ? 1 + best[i + 1][j + 1] : std::max(best[i + 1][j], best[i][j + 1]);
        }
    }
    return best[0][0];
}

Sequence RandomSequence(std::mt19937& random, int longest, std::uint64_t values) {
    Sequence sequence(std::uniform_int_distribution<std::size_t>(0, static_cast<std::size_t>(longest))(random));
    for (std::uint64_t& each : sequence) each = std::uniform_int_distribution<std::uint64_t>(1, values)(random);
    return sequence;
}

TEST(Align, FindsAsManyPairsAsThereCanBe) {
    std::mt19937 random(1);
    for (int round = 0; round < 4000; ++round) {
        const std::uint64_t values = 1 + static_cast<std::uint64_t>(round % 9);
        const Sequence a = RandomSequence(random, 14, values);
        const Sequence b = RandomSequence(random, 14, values);
        ASSERT_EQ(PairsOf(a, b), MostPairs(a, b)) << testing::PrintToString(a) << testing::PrintToString(b);
    }
}

// Long ones with little in common: pairs all the same, and before the test runs out of time.
TEST(Align, IsBoundedForSequencesWithLittleInCommon) {
    constexpr std::size_t count = 100'000;
    std::mt19937 random(2);
    Sequence a(count);
    Sequence b(count);
    for (std::size_t i = 0; i < count; ++i) {
        a[i] = random() % 50;
        b[i] = random() % 50 + (i % 3 == 0 ? 0 : 1000 + i);
    }
    const auto pairs = PairsOf(a, b);
    ASSERT_TRUE(pairs);
    EXPECT_GT(*pairs, 5000);
    for (std::size_t i = 0; i < count; ++i) b[i] = 1000 + i;
    EXPECT_EQ(PairsOf(a, b), 0);
}

}  // namespace
