#include "mainwindow/recent_menu.h"

#include "hotkeys/hotkey_view.h"
#include "settings/settings.h"
#include "support/shell_stand_in.h"
#include "support/story.h"

namespace {

class RecentJobsMenu : public testing::Test {
protected:
    RecentJobsMenu() {
        for (const char* path : {"C:\\a.tsj", "C:\\b.tsj", "C:\\d.tsj"}) simulated::PutFile(path, "");
        settings.RecentJobs = {"C:\\a.tsj", "C:\\gone.tsj", "C:\\b.tsj", "", "C:\\d.tsj"};
        FillRecentJobsMenu();
    }
};

TEST_F(RecentJobsMenu, HasAnItemForEachJobThatIsStillThere) {
    EXPECT_THAT(recentMenu.run_last_job, ElementsAre("a", "b", "d"));
    EXPECT_THAT(settings.RecentJobs, ElementsAre("C:\\a.tsj", "C:\\b.tsj", "C:\\d.tsj", "", ""));
}

TEST_F(RecentJobsMenu, KeepsAJobThatAnotherProgramHolds) {
    simulated::LockFileAgainstReaders("C:\\a.tsj");
    FillRecentJobsMenu();
    EXPECT_THAT(recentMenu.run_last_job, ElementsAre("a", "b", "d"));
    run_last_job(0);
    EXPECT_THAT(shellStandIn.calls, ElementsAre("RunJob C:\\a.tsj")) << "which says what is the matter";
}

TEST_F(RecentJobsMenu, RunsAJobAsAButtonDoesAndAHotkeyWithoutABlock) {
    run_last_job(1);
    hotkey_view::StartJob("C:\\d.tsj");
    EXPECT_THAT(shellStandIn.calls, ElementsAre("RunJob C:\\b.tsj", "RunJob C:\\d.tsj without input block"));
    EXPECT_THROW(run_last_job(5), RuntimeFailure);
}

TEST_F(RecentJobsMenu, DropsAJobAtTheFirstFailedTry) {
    simulated::LosePath("C:\\a.tsj");
    run_last_job(0);
    EXPECT_TRUE(shellStandIn.calls.empty());
    ASSERT_EQ(simulated::ShownBoxes().size(), 1U);
    EXPECT_EQ(simulated::ShownBoxes()[0].text, "File 'C:\\a.tsj' cannot be found. Cannot execute job");
    EXPECT_EQ(simulated::ShownBoxes()[0].title, "File not found");
    EXPECT_THAT(recentMenu.run_last_job, ElementsAre("b", "d"));
    EXPECT_EQ(settings.RecentJobs[2], "");
}

}  // namespace
