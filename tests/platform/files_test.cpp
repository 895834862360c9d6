#include "platform/files.h"

#include <gtest/gtest.h>

#include "contract_desktop.h"
#include "platform/clock.h"
#include "platform/shortcut.h"

using contract::HeldFile;
using contract::TestFolder;
using platform::File;
using platform::FileState;
using platform::MoveResult;

namespace {

void Put(const std::string& path, const std::string& bytes) {
    File file = File::Create(path);
    ASSERT_TRUE(file.IsOpen()) << path;
    ASSERT_TRUE(file.Write(bytes.data(), static_cast<std::int64_t>(bytes.size())));
    ASSERT_TRUE(file.Flush());
    ASSERT_TRUE(file.Close());
}

std::string Get(const std::string& path) {
    File file = File::OpenForReading(path);
    if (!file.IsOpen()) return "(none)";
    std::string bytes(static_cast<std::size_t>(file.Length()) + 10, '?');
    const std::int64_t count = file.Read(bytes.data(), static_cast<std::int64_t>(bytes.size()));
    return count < 0 ? "(unreadable)" : bytes.substr(0, static_cast<std::size_t>(count));
}

TEST(Files, GiveBackWhatWasWritten) {
    const TestFolder folder;
    const std::string path = folder / "a.tsj";
    std::string bytes(100'000, '\0');
    for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<char>(i * 7 + i / 256);
    Put(path, bytes);
    EXPECT_EQ(Get(path), bytes);
    Put(path, "short");
    EXPECT_EQ(Get(path), "short") << "an existing file is emptied first";
    EXPECT_EQ(Get(folder / "A.TSJ"), "short") << "letter case is ignored";
}

TEST(Files, StampsTellThatAFileWasWritten) {
    const TestFolder folder;
    const std::string path = folder / "a.tsj";
    EXPECT_EQ(platform::StampOf(path), platform::FileStamp{});
    Put(path, "old");
    const platform::FileStamp before = platform::StampOf(path);
    EXPECT_EQ(before.length, 3);
    EXPECT_EQ(Get(path), "old");
    EXPECT_EQ(platform::StampOf(path), before) << "reading is no change";
    platform::Sleep(20);
    Put(path, "new");
    EXPECT_NE(platform::StampOf(path), before);
}

TEST(Files, PositionsAndLengths) {
    const TestFolder folder;
    const std::string path = folder / "positions";
    Put(path, "0123456789");
    File file = File::OpenForReading(path);
    char bytes[20] = "";
    EXPECT_EQ(file.Length(), 10);
    EXPECT_TRUE(file.Seek(7));
    EXPECT_EQ(file.Read(bytes, 2), 2);
    EXPECT_EQ(std::string(bytes, 2), "78");
    EXPECT_EQ(file.Read(bytes, 20), 1) << "fewer only at the end";
    EXPECT_EQ(file.Read(bytes, 20), 0);
    EXPECT_TRUE(file.Seek(100));
    EXPECT_EQ(file.Read(bytes, 1), 0);
    EXPECT_FALSE(file.Write("x", 1)) << "open for reading";

    File written = File::Create(folder / "gap");
    EXPECT_TRUE(written.Write("abc", 3) && written.Seek(5) && written.Write("f", 1) && written.Seek(0) &&
                written.Write("A", 1));
    EXPECT_EQ(written.Length(), 6);
    written = File();
    EXPECT_EQ(Get(folder / "gap"), std::string("Abc\0\0f", 6));
}

TEST(Files, WhatIsNoFileFailsWithWords) {
    const TestFolder folder;
    EXPECT_FALSE(File::OpenForReading(folder / "none").IsOpen());
    EXPECT_FALSE(platform::LastFileError().empty());
    EXPECT_FALSE(File::Create(folder / "missing\\file").IsOpen());
    EXPECT_FALSE(File::OpenForReading(folder.Path()).IsOpen()) << "a folder is no file";
    for (const std::string& path :
         {folder / "none", folder / "missing\\file", folder / "a?b", folder / std::string(300, 'x'), folder.Path(),
          std::string("Q:\\none"), std::string()}) {
        EXPECT_EQ(platform::StateOf(path), FileState::Missing) << path;
    }
    EXPECT_FALSE(platform::RemoveFile(folder / "none"));
    EXPECT_FALSE(platform::CopyFileOver(folder / "none", folder / "copy"));
    EXPECT_EQ(platform::MoveFileOver(folder / "none", folder / "moved"), MoveResult::Failed);
    EXPECT_FALSE(platform::FilesIn(folder / "missing", ".tsj").has_value());

    Put(folder / "from", "new");  // and a folder is no place for a file
    EXPECT_EQ(platform::MoveFileOver(folder / "from", folder.Path()), MoveResult::Failed);
    EXPECT_FALSE(platform::CopyFileOver(folder / "from", folder.Path()));
    EXPECT_FALSE(platform::RemoveFile(folder.Path()));
    EXPECT_FALSE(File::Create(folder.Path()).IsOpen());
    EXPECT_EQ(Get(folder / "from"), "new");
}

TEST(Files, FoldersAreMadeOneLevelAtATime) {
    const TestFolder folder;
    EXPECT_TRUE(platform::FolderExists(folder.Path()));
    EXPECT_TRUE(platform::FolderExists(folder.Path() + "\\"));
    EXPECT_TRUE(platform::FolderExists("C:\\"));
    EXPECT_FALSE(platform::FolderExists(""));
    EXPECT_FALSE(platform::FolderExists(folder / "none"));
    EXPECT_FALSE(platform::MakeFolder(folder.Path()));
    EXPECT_FALSE(platform::MakeFolder(folder / "one\\two"));
    Put(folder / "file", "x");
    EXPECT_FALSE(platform::FolderExists(folder / "file"));
    EXPECT_FALSE(platform::MakeFolder(folder / "file"));
}

TEST(Files, CopiesAndMovesTakeThePlaceOfWhatWasThere) {
    const TestFolder folder;
    Put(folder / "from", "new");
    Put(folder / "to", "old and longer");
    EXPECT_TRUE(platform::CopyFileOver(folder / "from", folder / "to"));
    EXPECT_EQ(Get(folder / "to"), "new");
    EXPECT_EQ(Get(folder / "from"), "new");
    Put(folder / "from", "newer");
    EXPECT_EQ(platform::MoveFileOver(folder / "from", folder / "to"), MoveResult::Done);
    EXPECT_EQ(Get(folder / "to"), "newer");
    EXPECT_EQ(platform::StateOf(folder / "from"), FileState::Missing);
    EXPECT_EQ(platform::MoveFileOver(folder / "to", folder / "fresh"), MoveResult::Done) << "nothing there before";
    EXPECT_EQ(Get(folder / "fresh"), "newer");
    EXPECT_TRUE(platform::RemoveFile(folder / "fresh"));
    EXPECT_EQ(platform::StateOf(folder / "fresh"), FileState::Missing);
}

TEST(Files, AHeldTargetIsBusyAndStaysWhole) {
    const TestFolder folder;
    Put(folder / "from", "new");
    Put(folder / "to", "old");
    {
        const HeldFile held(folder / "to");
        EXPECT_EQ(platform::MoveFileOver(folder / "from", folder / "to"), MoveResult::Busy);
        EXPECT_FALSE(platform::LastFileError().empty());
        EXPECT_EQ(Get(folder / "to"), "old") << "it can be read meanwhile";
        EXPECT_EQ(platform::StateOf(folder / "TO"), FileState::Readable);
        EXPECT_EQ(Get(folder / "from"), "new");
        EXPECT_FALSE(File::Create(folder / "to").IsOpen());
        EXPECT_FALSE(platform::RemoveFile(folder / "to"));
        EXPECT_FALSE(platform::CopyFileOver(folder / "from", folder / "to"));
        EXPECT_EQ(Get(folder / "to"), "old");
    }
    EXPECT_EQ(platform::MoveFileOver(folder / "from", folder / "to"), MoveResult::Done);
    EXPECT_EQ(Get(folder / "to"), "new");
}

TEST(Files, HeldAgainstReadersIsNotMissing) {
    const TestFolder folder;
    Put(folder / "a", "bytes");
    {
        const HeldFile held(folder / "a", contract::Readers::KeptOut);
        const File file = File::OpenForReading(folder / "a");
        EXPECT_FALSE(file.IsOpen());
        EXPECT_EQ(file.Found(), FileState::Held);
        EXPECT_EQ(platform::StateOf(folder / "A"), FileState::Held);
    }
    File file = File::OpenForReading(folder / "a");
    const File moved = std::move(file);
    EXPECT_EQ(moved.Found(), FileState::Readable);
    EXPECT_EQ(Get(folder / "a"), "bytes");
}

TEST(Files, OneWriterAtATime) {
    const TestFolder folder;
    File writer = File::Create(folder / "shared");
    ASSERT_TRUE(writer.Write("abc", 3));
    EXPECT_FALSE(File::Create(folder / "shared").IsOpen());
    EXPECT_EQ(Get(folder / "shared"), "abc") << "readers are let in";
    File moved = std::move(writer);
    EXPECT_FALSE(writer.IsOpen());  // NOLINT: what moving leaves behind is part of the contract
    EXPECT_TRUE(moved.Write("d", 1));
    EXPECT_TRUE(moved.Close());
    EXPECT_FALSE(moved.IsOpen());
    EXPECT_TRUE(File::Create(folder / "shared").IsOpen());
}

TEST(Files, AreListedByExtensionInOrder) {
    const TestFolder folder;
    for (const char* name : {"b.tsj", "A.TSJ", "c.tsj_old", "d.txt", "_e.tsj", "a b.tsj", ".tsj", "tsj", "Z.tsj"}) {
        Put(folder / name, "x");
    }
    const auto names = platform::FilesIn(folder.Path(), ".tsj");
    ASSERT_TRUE(names.has_value());
    EXPECT_EQ(*names, (std::vector<std::string>{".tsj", "_e.tsj", "a b.tsj", "A.TSJ", "b.tsj", "Z.tsj"}));
    EXPECT_EQ(platform::FilesIn(folder.Path(), ".none"), std::vector<std::string>());
}

TEST(Shortcuts, HoldTheTargetAsPlainText) {
    const contract::TestFolder folder;
    const std::string target = folder / "My job.tsj";
    const std::string link = folder / "My job.lnk";
    platform::File::Create(target).Close();
    for (const char* description : {"first", ""}) {  // the second one over the first
        ASSERT_TRUE(platform::WriteShortcut(link, {target, folder.Path(), description}));
        EXPECT_NE(Get(link).find(target), std::string::npos);
    }
    EXPECT_TRUE(platform::RemoveFile(link));
    EXPECT_TRUE(platform::RemoveFile(target));
}

}  // namespace
