#include "shell/data_folder.h"

#include "dictionary/dictionary.h"
#include "jobs/job_file.h"
#include "platform/files.h"
#include "platform/registry.h"
#include "platform/text.h"
#include "settings/folders.h"
#include "settings/settings.h"
#include "support/library_view_stand_in.h"
#include "support/options_view_stand_in.h"
#include "support/story.h"

using testing::Optional;

namespace {

constexpr const char* key = "Software\\Tessarine";
const std::string oldFolder = "C:\\Docs\\Tessarine";
const std::string newFolder = "D:\\x";

std::optional<std::string> Registered() {
    return platform::ReadRegistry(key, "DataDir");
}

class DataFolder : public testing::Test {
protected:
    DataFolder() {
        folders.PersonalFolder = "C:\\Docs";
        simulated::PutFolder("C:\\Docs");
    }
};

TEST_F(DataFolder, DefaultIsAmongTheDocumentsAndRegistered) {
    ResolveDataFolder();
    EXPECT_EQ(folders.DataFolder, oldFolder);
    EXPECT_THAT(Registered(), Optional(oldFolder));
    EXPECT_FALSE(platform::FolderExists(oldFolder));
    EnsureDataFolder();
    EXPECT_TRUE(platform::FolderExists(oldFolder));
    EnsureDataFolder();
}

TEST_F(DataFolder, RegisteredFolderCountsWhileItExists) {
    simulated::PutFolder("E:\\stick\\jobs");
    platform::WriteRegistry(key, "DataDir", "E:\\stick\\jobs\\");
    ResolveDataFolder();
    EXPECT_EQ(folders.DataFolder, "E:\\stick\\jobs");
    simulated::LosePath("E:\\stick");
    ResolveDataFolder();
    EXPECT_EQ(folders.DataFolder, oldFolder);
    EXPECT_THAT(Registered(), Optional(oldFolder));
}

std::string BytesOfJob(const std::string& description) {
    Job job;
    job.Description = description;
    WriteJob("C:\\Docs\\new.tsj", job);
    return simulated::FileBytes("C:\\Docs\\new.tsj").value_or("");
}

class MovingDataFolder : public DataFolder {
protected:
    MovingDataFolder() { folders.DesktopFolder = "C:\\Desktop"; }

    // Two jobs and what hangs on them; in the new folder another job of the same name.
    void SetUp() override {
        for (const char* path : {"C:\\Docs", "D:\\x", "C:\\Desktop"}) simulated::LosePath(path);
        for (const char* path : {"C:\\Docs", "D:\\x", "C:\\Desktop"}) simulated::PutFolder(path);
        simulated::PutFile(oldFolder + "\\A.tsj", jobA);
        simulated::PutFile(oldFolder + "\\B.TSJ", jobB);
        simulated::PutFile(oldFolder + "\\A.log", "log");
        simulated::PutFile("C:\\Desktop\\A.lnk", "to " + oldFolder + "\\A.tsj");
        simulated::PutFile(newFolder + "\\a.tsj", another);
        folders.DataFolder = oldFolder;
        platform::WriteRegistry(key, "DataDir", oldFolder);
        settings = {};
        settings.Hotkeys = {{HotkeyControl, 'A', "c:\\docs\\tessarine\\A.tsj"}, {HotkeyControl, 'C', Elsewhere}};
        settings.Schedules.resize(1);
        settings.Schedules[0].job_path = oldFolder + "\\B.TSJ";
        settings.Schedules[0].log_path = oldFolder + "\\B.log";
        settings.RecentJobs = {Elsewhere, oldFolder + "\\B.TSJ", "", "", oldFolder + "\\sub\\A.tsj"};
        simulated::PutFile(Elsewhere, jobB);
        SaveSettings();
    }

    const std::string jobA = BytesOfJob("a"), jobB = BytesOfJob("b"), another = BytesOfJob("another");
    static constexpr const char* Elsewhere = "E:\\jobs\\c.tsj";

    // As the next start finds it.
    static void Restart() {
        simulated::RestartDisk();
        ResolveDataFolder();
        settings = {};
        LoadSettings();
    }

    static std::string InForce(const std::string& name) {
        return simulated::FileBytes(folders.DataFolder + "\\" + name).value_or("(none)");
    }

    // Looks for another folder until one will do, and answers whether the files are to go there.
    void Choose(const std::vector<std::string>& chosen, std::optional<bool> move = std::nullopt) {
        for (const std::string& folder : chosen) simulated::AnswerNextFolder(folder);
        if (move) simulated::AnswerNextBox({.yes = *move});
        ChangeDataFolder();
    }

    void ExpectInForce(const std::string& folder) {
        EXPECT_EQ(folders.DataFolder, folder);
        EXPECT_THAT(Registered(), Optional(folder));
    }
};

const auto moved = ElementsAre("c:\\desktop\\a.lnk", "c:\\docs\\tessarine\\a.log", "d:\\x\\a (kept).tsj",
                               "d:\\x\\a.tsj", "d:\\x\\b.tsj", "d:\\x\\settings.binary", "e:\\jobs\\c.tsj");
constexpr std::size_t AllFilesThere = 7;

TEST_F(MovingDataFolder, YesMovesJobsAndSettings) {
    Choose({newFolder}, true);
    EXPECT_THAT(simulated::AllFiles(), moved);
    EXPECT_EQ(simulated::FileBytes("D:\\x\\A.tsj"), jobA);
    ExpectInForce(newFolder);
    EXPECT_EQ(optionsViewStandIn.shownFolder, newFolder);
    EXPECT_EQ(libraryViewStandIn.dataFolder, newFolder) << "the list is filled anew";
    EXPECT_EQ(simulated::FileBytes("D:\\x\\A (kept).tsj"), another) << "nobody's job is written over";
    EXPECT_THAT(simulated::FileBytes("C:\\Desktop\\A.lnk").value_or(""), HasSubstr("D:\\x\\A.tsj"));
    EXPECT_THAT(Boxes(),
                ElementsAre("Move Files?|Would you like to move all of the jobs and settings to the new location?\r\n"
                            "Old location: C:\\Docs\\Tessarine\r\nNew location: D:\\x"));
    EXPECT_THAT(simulated::BrowsedFolders(),
                ElementsAre(std::pair<std::string, std::string>(
                    "Select new folder where your jobs and settings will be stored.", oldFolder)));
}

TEST_F(MovingDataFolder, NoChangesTheFolderOnly) {
    SetLanguage(LanguageFrench);
    Choose({newFolder}, false);
    EXPECT_THAT(platform::ToUtf8(LastBox()), StartsWith("Déplacer les fichiers\u00A0?|Voulez-vous "));
    EXPECT_THAT(simulated::AllFiles(), SizeIs(AllFilesThere));
    ExpectInForce(newFolder);
    EXPECT_EQ(settings.Hotkeys[0].job_path, "c:\\docs\\tessarine\\A.tsj") << "where the job still is";
}

TEST_F(MovingDataFolder, CancelChangesNothing) {
    simulated::AnswerNextFolder(std::nullopt);
    ChangeDataFolder();
    ExpectInForce(oldFolder);
    EXPECT_THAT(Boxes(), IsEmpty());
    EXPECT_EQ(libraryViewStandIn.dataFolder, "");
}

TEST_F(MovingDataFolder, RootsAndReadOnlyFoldersAreRefusedUntilOneWillDo) {
    simulated::PutFolder("C:\\locked");
    simulated::MakeReadOnly("C:\\locked");
    Choose({"D:\\", "C:\\locked", newFolder});
    EXPECT_THAT(
        Boxes(),
        ElementsAre("Invalid folder selection|Selecting root folder is not allowed. Please select another folder.",
                    "Access denied|Writing data to folder 'C:\\locked' failed. Please select another folder",
                    StartsWith("Move Files?|")));
    EXPECT_EQ(simulated::ShownBoxes()[0].icon, platform::BoxIcon::Error);
    ExpectInForce(newFolder);
}

TEST_F(MovingDataFolder, SameFolderInAnotherCaseIsRegisteredWithoutAQuestion) {
    Choose({"c:\\DOCS\\tessarine"});
    EXPECT_THAT(Boxes(), IsEmpty());
    ExpectInForce("c:\\DOCS\\tessarine");
    EXPECT_THAT(simulated::AllFiles(), SizeIs(AllFilesThere));
}

TEST_F(MovingDataFolder, FolderThatTheListRefusesIsTakenWithoutAQuestion) {
    optionsViewStandIn.refusesFolders = true;
    Choose({newFolder});
    EXPECT_THAT(Boxes(), IsEmpty());
    ExpectInForce(newFolder);
}

TEST_F(MovingDataFolder, TakesHotkeysSchedulesLogPathsAndRecentJobsAlong) {
    Choose({newFolder}, true);
    for (int start = 0; start < 2; ++start) {
        ASSERT_THAT(settings.Hotkeys, SizeIs(2));
        EXPECT_EQ(settings.Hotkeys[0].job_path, newFolder + "\\A.tsj");
        EXPECT_EQ(settings.Hotkeys[1].job_path, Elsewhere);
        ASSERT_THAT(settings.Schedules, SizeIs(1));
        EXPECT_EQ(settings.Schedules[0].job_path, newFolder + "\\B.TSJ");
        EXPECT_EQ(settings.Schedules[0].log_path, newFolder + "\\B.log");
        EXPECT_THAT(settings.RecentJobs,
                    ElementsAre(Elsewhere, newFolder + "\\B.TSJ", "", "", oldFolder + "\\sub\\A.tsj"));
        Restart();
    }
    EXPECT_EQ(folders.DataFolder, newFolder);
}

TEST_F(MovingDataFolder, KeepsTheSettingsOfAFolderThatWasInUseBefore) {
    simulated::PutFile(newFolder + "\\settings.binary", "of an earlier time");
    Choose({newFolder}, false);
    SaveSettings();
    EXPECT_EQ(InForce("settings (kept).binary"), "of an earlier time");
    EXPECT_EQ(settings.Hotkeys.size(), 2U);
}

TEST_F(MovingDataFolder, ThatCannotBeCopiedOrRegisteredKeepsTheOldFolderInForce) {
    const auto files = simulated::AllFiles();
    const std::pair<std::string, std::function<void()>> obstacles[] = {
        {"a target that is held", [] { simulated::LockFile(newFolder + "\\a.tsj"); }},
        {"a job that is held", [] { simulated::LockFileAgainstReaders(oldFolder + "\\a.tsj"); }},
        {"a full disk", [] { simulated::SetFreeSpace(6); }},
        {"the registry", [] { simulated::RefuseRegistry(); }}};
    for (const auto& [name, obstruct] : obstacles) {
        SCOPED_TRACE(name);
        SetUp();
        obstruct();
        Choose({newFolder}, true);
        EXPECT_EQ(LastBox(), "Cannot change folder|An error occured while trying to move files");
        ExpectInForce(oldFolder);
        EXPECT_EQ(libraryViewStandIn.dataFolder, "");
        EXPECT_EQ(settings.Schedules[0].job_path, oldFolder + "\\B.TSJ");
        for (const std::string& file : files) EXPECT_TRUE(simulated::FileBytes(file)) << file;
        simulated::SetFreeSpace(1'000'000);
    }
    Choose({newFolder}, false);
    EXPECT_EQ(LastBox(), "Cannot change folder|The new location cannot be stored in the registry.");
    ExpectInForce(oldFolder);
}

TEST_F(MovingDataFolder, TellsWhatItCouldNotRemove) {
    simulated::LockFile(oldFolder + "\\A.tsj");
    Choose({newFolder}, true);
    ExpectInForce(newFolder);
    EXPECT_EQ(InForce("A.tsj"), jobA);
    EXPECT_TRUE(std::ranges::any_of(Boxes(), [](const std::string& box) {
        return box.starts_with("Move Files|") && box.ends_with(":\r\n" + oldFolder + "\\A.tsj");
    }));
}

// Whatever fails, and wherever, or the power with it: each job is in at least one folder, and the folder that is in
// force at the next start holds all of them, with everything that hangs on them.
TEST_F(MovingDataFolder, NoFailureLosesAnything) {
    for (const simulated::Fault fault : {simulated::Fault::Failure, simulated::Fault::PowerCut}) {
        bool struck = true;
        std::int64_t operation = 1;
        for (; struck; ++operation) {
            SCOPED_TRACE("operation " + std::to_string(operation));
            SetUp();
            const std::int64_t before = simulated::FileOperations();
            simulated::FailAtOperation(operation, fault);
            Choose({newFolder}, true);
            struck = simulated::FileOperations() - before >= operation;
            Restart();
            EXPECT_EQ(InForce("A.tsj"), jobA);
            EXPECT_EQ(InForce("B.tsj"), jobB);
            EXPECT_TRUE(std::ranges::any_of(simulated::AllFiles(), [this](const std::string& file) {
                return simulated::FileBytes(file) == another;
            }));
            ASSERT_THAT(settings.Hotkeys, SizeIs(2));
            EXPECT_EQ(platform::StateOf(settings.Hotkeys[0].job_path), platform::FileState::Readable);
            ASSERT_THAT(settings.Schedules, SizeIs(1));
            EXPECT_EQ(platform::StateOf(settings.Schedules[0].job_path), platform::FileState::Readable);
            if (HasFailure()) return;
        }
        EXPECT_THAT(simulated::AllFiles(), moved);
        EXPECT_GE(operation, 40) << "so many operations has a move at least";
    }
}

}  // namespace
