#include "shell/data_folder.h"

#include "platform/files.h"
#include "platform/registry.h"
#include "settings/folders.h"
#include "support/library_view_stand_in.h"
#include "support/options_view_stand_in.h"
#include "support/story.h"
#include "support/wording.h"

using testing::Optional;
using testing::ResultOf;

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

TEST_F(DataFolder, OneLevelIsMadeAndNoMore) {
    folders.DataFolder = "C:\\none\\Tessarine";
    EnsureDataFolder();
    EXPECT_FALSE(platform::FolderExists("C:\\none\\Tessarine"));
}

TEST_F(DataFolder, ProbeForWritingIsNotLeftBehind) {
    EXPECT_TRUE(IsFolderWritable("C:\\Docs"));
    EXPECT_FALSE(IsFolderWritable("C:\\none"));
    simulated::MakeReadOnly("C:\\Docs");
    EXPECT_FALSE(IsFolderWritable("C:\\Docs"));
    EXPECT_THAT(simulated::AllFiles(), IsEmpty());
}

class MovingDataFolder : public DataFolder {
protected:
    MovingDataFolder() {
        simulated::PutFile(oldFolder + "\\settings.binary", "settings");
        simulated::PutFile(oldFolder + "\\A.tsj", "job a");
        simulated::PutFile(oldFolder + "\\B.TSJ", "job b");
        simulated::PutFile(oldFolder + "\\A.log", "log");
        simulated::PutFile(newFolder + "\\a.tsj", "another, and longer");
        folders.DataFolder = oldFolder;
        platform::WriteRegistry(key, "DataDir", oldFolder);
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

const auto moved = ElementsAre("c:\\docs\\tessarine\\a.log", "d:\\x\\a.tsj", "d:\\x\\b.tsj", "d:\\x\\settings.binary");

TEST_F(MovingDataFolder, YesMovesJobsAndSettings) {
    Choose({newFolder}, true);
    EXPECT_THAT(simulated::AllFiles(), moved);
    EXPECT_EQ(simulated::FileBytes("D:\\x\\A.tsj"), "job a");
    ExpectInForce(newFolder);
    EXPECT_EQ(optionsViewStandIn.shownFolder, newFolder);
    EXPECT_EQ(libraryViewStandIn.dataFolder, newFolder) << "the list is filled anew";
    EXPECT_THAT(Boxes(),
                ElementsAre("Move Files?|Would you like to move all of the jobs and settings to the new location?\r\n"
                            "Old location: C:\\Docs\\Tessarine\r\nNew location: D:\\x"));
    EXPECT_THAT(simulated::BrowsedFolders(),
                ElementsAre(std::pair<std::string, std::string>(
                    "Select new folder where your jobs and settings will be stored.", oldFolder)));
}

TEST_F(MovingDataFolder, IsAskedAboutInEveryLanguage) {
    for (const int language : AllLanguages) {
        SetLanguage(language);
        Choose({"D:\\", newFolder}, false);
        EXPECT_THAT(FaultsOfLastBox(), IsEmpty());
        EXPECT_THAT(simulated::BrowsedFolders().back().first, ResultOf(FaultsOf, IsEmpty()));
        Choose({oldFolder}, false);
    }
    EXPECT_THAT(platform::ToUtf8(LastBox()), StartsWith("Déplacer les fichiers\u00A0?|Voulez-vous "));
    EXPECT_THAT(platform::ToUtf8(LastBox()),
                EndsWith("emplacement\u00A0?\r\nAncien emplacement\u00A0: D:\\x\r\nNouvel emplacement\u00A0: "
                         "C:\\Docs\\Tessarine"));
}

TEST_F(MovingDataFolder, NoChangesTheFolderOnly) {
    Choose({newFolder}, false);
    EXPECT_THAT(simulated::AllFiles(), SizeIs(5));
    ExpectInForce(newFolder);
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
    EXPECT_THAT(simulated::AllFiles(), SizeIs(5));
}

TEST_F(MovingDataFolder, FolderThatTheListRefusesIsTakenWithoutAQuestion) {
    optionsViewStandIn.refusesFolders = true;
    Choose({newFolder});
    EXPECT_THAT(Boxes(), IsEmpty());
    ExpectInForce(newFolder);
}

TEST_F(MovingDataFolder, FailedMoveKeepsTheOldFolderInForce) {
    simulated::LockFile(newFolder + "\\a.tsj");
    Choose({newFolder}, true);
    EXPECT_EQ(LastBox(), "Cannot change folder|An error occured while trying to move files");
    ExpectInForce(oldFolder);
    EXPECT_EQ(libraryViewStandIn.dataFolder, "");
}

// Whatever fails, and wherever: no job is on neither side.
TEST_F(MovingDataFolder, NoFailureLosesAFile) {
    bool struck = true;
    for (std::int64_t operation = 1; struck; ++operation) {
        for (const char* name : {"settings.binary", "A.tsj", "B.TSJ"}) {
            simulated::PutFile(oldFolder + "\\" + name, name);
            simulated::LosePath(newFolder + "\\" + name);
        }
        const std::int64_t before = simulated::FileOperations();
        simulated::FailAtOperation(operation);
        MoveFiles(oldFolder, newFolder);
        struck = simulated::FileOperations() - before >= operation;
        for (const char* name : {"settings.binary", "A.tsj", "B.TSJ"}) {
            EXPECT_TRUE(simulated::FileBytes(oldFolder + "\\" + name) == name ||
                        simulated::FileBytes(newFolder + "\\" + name) == name)
                << name << " at operation " << operation;
        }
    }
    EXPECT_THAT(simulated::AllFiles(), moved);
}

}  // namespace
