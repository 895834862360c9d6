// The failures that the simulated disk promises: every test of a save rests on them.
#include <gmock/gmock.h>

#include "platform/files.h"
#include "platform/simulated/files.h"

using platform::File;
using testing::ElementsAre;
using testing::Optional;

namespace {

const std::string path = "C:\\Data\\A.tsj";

TEST(SimulatedFiles, LetterCaseOfPathsIsIgnored) {
    simulated::PutFile(path, "x");
    simulated::PutFile("C:\\Data\\Sub\\c.tsj", "y");
    simulated::PutFile("C:\\Data\\B.TSJ", "z");
    simulated::PutFile("C:\\Data\\b.txt", "z");
    EXPECT_TRUE(platform::FileExists("c:\\dATA\\a.TSJ"));
    EXPECT_FALSE(platform::FileExists("c:\\data"));
    EXPECT_TRUE(platform::FolderExists("c:\\data\\"));
    EXPECT_THAT(platform::FilesIn("c:\\data", ".tsj"), Optional(ElementsAre("A.tsj", "B.TSJ")));
    EXPECT_EQ(platform::FilesIn("c:\\none", ".tsj"), std::nullopt);
}

TEST(SimulatedFiles, UnflushedBytesAreTornByAPowerCut) {
    simulated::PutFolder("C:\\Data");
    File file = File::Create(path);
    EXPECT_TRUE(file.Write("safe", 4) && file.Flush() && file.Write("torn", 4));
    simulated::FailAtOperation(1, simulated::Fault::PowerCut);
    EXPECT_FALSE(file.Close());
    EXPECT_FALSE(platform::FileExists(path));
    simulated::RestartDisk();
    EXPECT_EQ(simulated::FileBytes(path), "safeto");
}

TEST(SimulatedFiles, AFullDiskAndADyingWriteKeepAPart) {
    simulated::PutFolder("C:\\Data");
    simulated::SetFreeSpace(6);
    File file = File::Create(path);
    EXPECT_TRUE(file.Write("1234", 4));
    EXPECT_FALSE(file.Write("5678", 4));
    EXPECT_EQ(simulated::FileBytes(path), "123456");
    EXPECT_TRUE(file.Seek(0) && file.Write("abcdef", 6));  // needs no new room
    simulated::FailAtOperation(1);
    EXPECT_TRUE(file.Seek(0) == false && file.Seek(0));
    simulated::FailAtOperation(1);
    EXPECT_FALSE(file.Write("XXXX", 4));
    EXPECT_EQ(simulated::FileBytes(path), "XXcdef");
}

TEST(SimulatedFiles, WhoHoldsAFileKeepsItsPlace) {
    simulated::PutFile(path, "old");
    simulated::PutFile("C:\\Data\\new", "new");
    {
        File reader = File::OpenForReading(path);
        EXPECT_EQ(platform::MoveFileOver("C:\\Data\\new", path), platform::MoveResult::Busy);
        EXPECT_FALSE(platform::RemoveFile(path));
        EXPECT_EQ(simulated::OpenFiles(), 1);
    }
    EXPECT_EQ(simulated::OpenFiles(), 0);
    simulated::LockFile(path);
    EXPECT_FALSE(File::Create(path).IsOpen());
    EXPECT_TRUE(File::OpenForReading(path).IsOpen());
    simulated::LockFile(path, 0);
    EXPECT_EQ(platform::MoveFileOver("C:\\Data\\new", path), platform::MoveResult::Done);
    EXPECT_EQ(simulated::FileBytes(path), "new");
    EXPECT_EQ(simulated::AllFiles().size(), 1U);
}

}  // namespace
