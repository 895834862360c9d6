#include "platform/shortcut.h"

#include <gtest/gtest.h>

#include "contract_desktop.h"
#include "platform/files.h"

namespace {

std::string BytesOf(const std::string& path) {
    platform::File file = platform::File::OpenForReading(path);
    if (!file.IsOpen()) return "";
    std::string bytes(static_cast<std::size_t>(file.Length()), '\0');
    return file.Read(bytes.data(), file.Length()) == file.Length() ? bytes : "";
}

TEST(Shortcuts, HoldTheTargetAsPlainText) {
    const contract::TestFolder folder;
    const std::string target = folder / "My job.tsj";
    const std::string link = folder / "My job.lnk";
    platform::File::Create(target).Close();
    for (const char* description : {"first", ""}) {  // the second one over the first
        ASSERT_TRUE(platform::WriteShortcut(link, {target, folder.Path(), description}));
        EXPECT_NE(BytesOf(link).find(target), std::string::npos);
    }
    EXPECT_TRUE(platform::RemoveFile(link));
    EXPECT_TRUE(platform::RemoveFile(target));
}

TEST(Shortcuts, AreNotWrittenIntoAFolderThatIsMissing) {
    const contract::TestFolder folder;
    EXPECT_FALSE(platform::WriteShortcut(folder / "none\\a.lnk", {folder / "a.tsj", folder.Path(), ""}));
}

}  // namespace
