#include "library/job_library.h"

#include "dictionary/dictionary.h"
#include "library/library_stage.h"
#include "platform/registry.h"

namespace {

using JobLibraryList = LibraryStage;

TEST_F(JobLibraryList, HasARowForEachJobInTheOrderOfTheNames) {
    PutJob("beta", 12'345);
    PutJob("Alpha", 99, "Fills the form");
    PutJob("gamma", 60'000);
    simulated::PutFile("C:\\jobs\\settings.binary", "no job");
    job_library::FillJobList();
    EXPECT_THAT(Rows(),
                ElementsAre("Alpha: Fills the form", "beta: Duration: 12.3 seconds", "gamma: Duration: 60.0 seconds"));
    EXPECT_THAT(libraryViewStandIn.Lista_Schedule, ElementsAre("Alpha", "beta", "gamma"));
    EXPECT_EQ(jobLibrary.lista_jobs.listindex(), 0);
    EXPECT_TRUE(libraryViewStandIn.jobsEditEnabled);
    EXPECT_EQ(libraryViewStandIn.dataFolder, "C:\\jobs");
    EXPECT_EQ(job_library::JobPathOfRow(1), PathOf("beta"));
    EXPECT_THROW(job_library::JobPathOfRow(3), RuntimeFailure);
}

TEST_F(JobLibraryList, OfAnEmptyOrMissingFolderIsEmpty) {
    for (const char* folder : {"C:\\jobs", "C:\\none"}) {
        folders.DataFolder = folder;
        libraryViewStandIn.jobsEditEnabled = true;
        job_library::FillJobList();
        EXPECT_THAT(Rows(), IsEmpty());
        EXPECT_FALSE(libraryViewStandIn.jobsEditEnabled);
    }
}

TEST_F(JobLibraryList, TellsABadFileAtEveryFillAndGoesOn) {
    PutJob("good");
    simulated::PutFile(PathOf("bad"), std::string(10, 'x'));
    for (const std::size_t boxes : {1U, 2U}) {
        job_library::FillJobList();
        EXPECT_EQ(Boxes().size(), boxes);
        EXPECT_EQ(LastBox(), "Cannot load job file|Job file: 'C:\\jobs\\bad.tsj' is corrupted and cannot be loaded.");
        EXPECT_EQ(simulated::ShownBoxes().back().icon, platform::BoxIcon::Error);
        EXPECT_EQ(Rows().size(), 1U);
    }
}

// It is a job all the same: a backup that goes through the folder must not thin out the list.
TEST_F(JobLibraryList, KeepsTheRowOfAJobThatAnotherProgramHolds) {
    PutJob("a");
    PutJob("b", 12'345);
    simulated::LockFileAgainstReaders(PathOf("b"));
    job_library::FillJobList();
    EXPECT_THAT(Rows(), ElementsAre("a: Duration: 0.0 seconds", "b: In use by another program"));
    EXPECT_THAT(simulated::ShownBoxes(), IsEmpty());
}

// A box pumps, and what arrives there may fill the list, as the end of a recording does.
TEST_F(JobLibraryList, FilledAnewBehindABoxHasEachJobOnce) {
    PutJob("good");
    PutJob("other");
    simulated::PutFile(PathOf("bad"), "x");
    simulated::AnswerNextBox({.whileOpen = [] { PutJob("new"); }});
    job_library::FillJobList();
    EXPECT_THAT(libraryViewStandIn.Lista_Schedule, ElementsAre("good", "new", "other"));
    EXPECT_EQ(Rows().size(), 3U);
    EXPECT_EQ(jobLibrary.lista_jobs.listindex(), 1);  // what was saved meanwhile stays selected
}

TEST_F(JobLibraryList, ShowsASavedJob) {
    PutJob("a");
    PutJob("b");
    EXPECT_EQ(jobLibrary.lista_jobs.listindex(), 1);
    job_library::SelectJob("c:\\JOBS\\A.tsj");
    EXPECT_EQ(jobLibrary.lista_jobs.listindex(), 0);
    job_library::SelectJob("c:\\JOBS\\c.tsj");
    EXPECT_EQ(jobLibrary.lista_jobs.listindex(), 0);
}

TEST_F(JobLibraryList, TellsWhetherTheProgramStartsWithWindows) {
    job_library::FillJobList();
    EXPECT_FALSE(libraryViewStandIn.startsWithWindows);
    const std::string expected = "\"C:\\PROGRAM FILES\\Tessarine\\TESSARINE.exe\" -startup";
    platform::WriteRegistry("Software\\Microsoft\\Windows\\CurrentVersion\\Run", "Tessarine", expected);
    job_library::FillJobList();
    EXPECT_TRUE(libraryViewStandIn.startsWithWindows);
    folders.ProgramFolder = "D:\\Tessarine";
    job_library::FillJobList();
    EXPECT_FALSE(libraryViewStandIn.startsWithWindows);
}

TEST(SecondLine, DropsWhatIsBelowATenth) {
    const std::pair<std::int32_t, const char*> cases[] = {
        {0, "0.0"}, {99, "0.0"}, {100, "0.1"}, {1999, "1.9"}, {-99, "0.0"}, {-150, "-0.1"}, {-12'345, "-12.3"}};
    for (const auto& [duration, text] : cases) {
        EXPECT_EQ(job_library::SecondLine({"Takes:", "s"}, "", duration), "Takes: " + std::string(text) + " s");
    }
    SetLanguage(LanguageGerman);
    EXPECT_EQ(job_library::SecondLine(job_library::TranslatedDurationWords(), "", 12'345), "Dauer: 12,3 Sekunden");
}

}  // namespace
