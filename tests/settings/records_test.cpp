// What becomes of hotkeys, schedules and recent jobs, one at a time.
#include <array>

#include "settings/recent_jobs.h"
#include "settings/sample_settings.h"
#include "support/story.h"

namespace {

TEST(DeleteHotkey, MovesLaterRecordsDownAndSavesIfAsked) {
    PutJobs();
    settings.Hotkeys = {{1, 'A', "a"}, {1, 'B', "b"}, {1, 'C', "c"}};
    DeleteHotkey(1, true);
    ASSERT_THAT(settings.Hotkeys, SizeIs(2));
    EXPECT_EQ(settings.Hotkeys[1].virtual_key, 'C');
    EXPECT_FALSE(simulated::FileBytes(settingsPath));
    DeleteHotkey(0, false);
    EXPECT_TRUE(simulated::FileBytes(settingsPath));
    settings.Hotkeys.resize(2);
    EXPECT_THROW(DeleteHotkey(2, true), RuntimeFailure);
}

TEST(DeleteHotkey, RefusesWhatIsNotThere) {
    PutJobs();
    DeleteHotkey(0, false);
    EXPECT_THAT(LastBox(), EndsWith("|Error deleting hotkeys. There are no registered hotkeys to delete."));
    settings.Hotkeys.resize(1);
    DeleteHotkey(1, false);
    EXPECT_THAT(LastBox(), EndsWith("|Error deleting hotkey!"));
    EXPECT_THAT(settings.Hotkeys, SizeIs(1));
    EXPECT_FALSE(simulated::FileBytes(settingsPath));
}

TEST(DeleteSchedule, RefusesWhatIsNotThere) {
    DeleteSchedule(0);
    EXPECT_THAT(LastBox(), EndsWith("|Error deleting list element. There are no elements in list."));
    settings.Schedules.resize(1);
    DeleteSchedule(-1);
    EXPECT_THAT(LastBox(), EndsWith("|Error deleting hotkey!"));
    DeleteSchedule(0);
    EXPECT_THAT(settings.Schedules, IsEmpty());
    EXPECT_THAT(Boxes(), SizeIs(2));
}

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
