#include "settings/recent_jobs.h"

#include <gtest/gtest.h>

#include <array>

#include "settings/settings.h"

namespace {

using Jobs = std::array<std::string, 5>;

TEST(AddRecentJob, PutsTheJobFirst) {
    struct Case {
        Jobs before;
        std::string added;
        Jobs after;
    };
    const Case cases[] = {
        {{}, "a", {"a"}},
        {{"a", "b"}, "a", {"a", "b"}},
        {{"a", "b", "c", "d", "e"}, "c", {"c", "a", "b", "d", "e"}},
        {{"a", "b", "c", "d", "e"}, "e", {"e", "a", "b", "c", "d"}},
        {{"a", "b", "c", "d", "e"}, "f", {"f", "a", "b", "c", "d"}},
        {{"a", "b"}, "A", {"A", "a", "b"}},
    };
    for (const Case& one : cases) {
        settings.RecentJobs = one.before;
        AddRecentJob(one.added);
        EXPECT_EQ(settings.RecentJobs, one.after) << one.added;
    }
}

}  // namespace
