#include "hotkeys/hotkey_table.h"
#include "library/job_shortcut.h"
#include "library/library_stage.h"

namespace {

const std::string settingsFile = "C:\\jobs\\settings.binary";

class DeleteJob : public LibraryStage {
protected:
    DeleteJob() {
        for (const char* name : {"a", "b", "c"}) PutJob(name);
        settings.Hotkeys = {{HotkeyControl, 'A', PathOf("a")}, {HotkeyControl, 'B', PathOf("B")}};
        RegisterAllHotkeys();
    }

    static void Delete(const std::string& name, bool sure = true) {
        job_library::SelectJob(PathOf(name));
        simulated::AnswerNextBox({.yes = sure});
        job_library::DeleteJob();
    }

    static void Schedule(const std::string& name) {
        settings.Schedules.emplace_back();
        settings.Schedules.back().job_path = PathOf(name) + " ";
    }
};

TEST_F(DeleteJob, TakesFileHotkeyAndRowAndSelectsTheNext) {
    Delete("a");
    EXPECT_THAT(Boxes(), ElementsAre("Delete job?|Are you sure you want to delete job 'a'?"));
    EXPECT_THAT(libraryViewStandIn.Lista_Schedule, ElementsAre("b", "c"));
    EXPECT_EQ(jobLibrary.lista_jobs.listindex(), 0);
    EXPECT_FALSE(simulated::HotkeyRegistered(HotkeyControl, 'A'));
    EXPECT_TRUE(simulated::HotkeyRegistered(HotkeyControl, 'B'));
    EXPECT_TRUE(simulated::FileBytes(settingsFile));
    Delete("b");
    Delete("c");
    EXPECT_EQ(jobLibrary.lista_jobs.listindex(), -1);
    EXPECT_FALSE(libraryViewStandIn.jobsEditEnabled);
    job_library::DeleteJob();  // nothing is selected
    EXPECT_EQ(Boxes().size(), 3U);
}

TEST_F(DeleteJob, TakesItsSchedulesAndTellsAfterSaving) {
    for (const char* name : {"b", "a", "B"}) Schedule(name);
    bool savedBeforeTold = false;
    simulated::AnswerNextBox({.yes = true});
    simulated::AnswerNextBox({.whileOpen = [&] { savedBeforeTold = simulated::FileBytes(settingsFile).has_value(); }});
    job_library::SelectJob(PathOf("b"));
    job_library::DeleteJob();
    EXPECT_THAT(Boxes(), ElementsAre(StartsWith("Delete scheduled  job?|"),
                                     "Scheduled items deleted|2 scheduled jobs have also been deleted."));
    EXPECT_EQ(simulated::ShownBoxes()[0].icon, platform::BoxIcon::Error);
    EXPECT_TRUE(savedBeforeTold);
    ASSERT_EQ(settings.Schedules.size(), 1U);
    EXPECT_EQ(jobLibrary.lista_jobs.listindex(), 1);
}

TEST_F(DeleteJob, IsLeftAloneWhenTheUserIsNotSure) {
    Delete("a", false);
    EXPECT_TRUE(simulated::FileBytes(PathOf("a")));
    EXPECT_EQ(settings.Hotkeys.size(), 2U);
}

TEST_F(DeleteJob, KeepsItsSchedulesWhenTheFileCannotBeDeleted) {
    Schedule("a");
    simulated::LockFile(PathOf("a"));
    Delete("a");
    EXPECT_EQ(LastBox(), "Access denied|Cannot delete file:\r\nC:\\jobs\\a.tsj");
    EXPECT_EQ(settings.Schedules.size(), 1U);
    EXPECT_EQ(settings.Hotkeys.size(), 1U);
    EXPECT_EQ(Rows().size(), 3U);
}

TEST_F(DeleteJob, TakesOnlyTheShortcutThatPointsAtIt) {
    for (const char* name : {"a", "b"}) CreateJobShortcut(PathOf("a"), folders.DesktopFolder, name);
    Delete("a");
    EXPECT_FALSE(simulated::FileBytes(LinkOf("a")));
    Delete("b");
    EXPECT_TRUE(simulated::FileBytes(LinkOf("b")));
}

// The question pumps: the row that was selected may be another one when it is answered.
TEST_F(DeleteJob, DeletesTheJobThatItAskedAbout) {
    job_library::SelectJob(PathOf("b"));
    simulated::AnswerNextBox({.yes = true, .whileOpen = [] { PutJob("aa"); }});
    job_library::DeleteJob();
    EXPECT_THAT(libraryViewStandIn.Lista_Schedule, ElementsAre("a", "aa", "c"));
}

TEST_F(DeleteJob, ShowsTheChangeWhenTheSettingsCannotBeSaved) {
    simulated::SetFreeSpace(0);
    EXPECT_THROW(Delete("a"), RuntimeFailure);
    EXPECT_EQ(Rows().size(), 2U);
}

}  // namespace
