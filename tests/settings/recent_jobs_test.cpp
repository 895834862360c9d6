#include "settings/recent_jobs.h"

#include <gtest/gtest.h>

#include <array>

#include "settings/settings.h"

namespace {

using Jobs = std::array<std::string, 5>;

TEST(AddRecentJob, PutsTheJobFirst) {
    const std::tuple<Jobs, std::string, Jobs> cases[] = {
        {{}, "a", {"a"}},
        {{"a", "b"}, "a", {"a", "b"}},
        {{"a", "b", "c", "d", "e"}, "c", {"c", "a", "b", "d", "e"}},
        {{"a", "b", "c", "d", "e"}, "e", {"e", "a", "b", "c", "d"}},
        {{"a", "b", "c", "d", "e"}, "f", {"f", "a", "b", "c", "d"}},
        {{"a", "b"}, "A", {"A", "a", "b"}},
    };
    for (const auto& [before, added, after] : cases) {
        settings.RecentJobs = before;
        AddRecentJob(added);
        EXPECT_EQ(settings.RecentJobs, after) << added;
    }
}

}  // namespace
