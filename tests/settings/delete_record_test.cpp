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
    DeleteHotkey(0, true);
    EXPECT_THAT(settings.Hotkeys, IsEmpty());
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

}  // namespace
