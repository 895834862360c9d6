// The failures that the simulated disk promises: every test of a save rests on them.
#include <gtest/gtest.h>

#include "platform/files.h"
#include "platform/simulated/files.h"

using platform::File;

namespace {

const std::string path = "C:\\Data\\A.tsj";

TEST(SimulatedFiles, UnflushedBytesAreTornByAPowerCut) {
    simulated::PutFolder("C:\\Data");
    File file = File::Create(path);
    EXPECT_TRUE(file.Write("safe", 4) && file.Flush() && file.Write("torn", 4));
    simulated::FailAtOperation(1, simulated::Fault::PowerCut);
    EXPECT_FALSE(file.Close());
    EXPECT_NE(platform::StateOf(path), platform::FileState::Readable);
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

}  // namespace
