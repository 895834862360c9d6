#include "storage/save_file.h"

#include "storage/kept_file.h"
#include "storage/temporary_name.h"
#include "support/disk_faults.h"
#include "support/story.h"

using testing::UnorderedElementsAre;

namespace {

const std::string target = "C:\\data\\a.tsj";

void Save(const std::string& bytes) {
    SaveFile file(target);
    file.Write(bytes.data(), bytes.size());
    file.Commit();
}

std::string WordsOfFailure(const std::string& bytes) {
    try {
        Save(bytes);
    } catch (const RuntimeFailure& failure) {
        EXPECT_EQ(failure.Kind(), FailureKind::File);
        return failure.what();
    }
    return "(none)";
}

TEST(SaveFile, KeepsTheTailOfALongerFile) {
    simulated::PutFolder("C:\\data");
    Save("first");
    EXPECT_EQ(simulated::FileBytes(target), "first");
    Save("2nd");
    EXPECT_EQ(simulated::FileBytes(target), "2ndst");
    Save("the third");
    EXPECT_EQ(simulated::FileBytes(target), "the third");

    const std::string longTail(300'000, 't');  // longer than a block
    simulated::PutFile(target, longTail);
    Save("new");
    EXPECT_EQ(simulated::FileBytes(target), "new" + longTail.substr(3));
    EXPECT_THAT(simulated::AllFiles(), UnorderedElementsAre("c:\\data\\a.tsj"));
}

void SaveWithoutTail() {
    SaveFile file(target);
    file.Write("new", 3);
    file.Commit(OldTail::Goes);
}

TEST(SaveFile, SurvivesEveryFault) {
    SurvivesEveryFault({target, "old and long", "new", SaveWithoutTail});
    SurvivesEveryFault({target, "old", "newer bytes", [] { Save("newer bytes"); }});
    SurvivesEveryFault({target, "old and long", "new and long", [] { Save("new"); }});
}

TEST(SaveFile, NothingHappensWithoutCommit) {
    simulated::PutFile(target, "old");
    { SaveFile(target).Write("new", 3); }
    EXPECT_EQ(simulated::FileBytes(target), "old");
    EXPECT_EQ(simulated::AllFiles().size(), 1U);
}

// A reader that comes back again and again leaves only short gaps: they have to be met, late in the wait, too.
TEST(SaveFile, TakesItsPlaceSoonAfterTheTargetIsFree) {
    for (const auto lock : {simulated::LockFile, simulated::LockFileAgainstReaders}) {
        for (const std::int64_t duration : {1, 40, 530, 1030, 1990}) {
            SCOPED_TRACE("locked for " + std::to_string(duration) + " ms");
            simulated::PutFile(target, "old and long");
            const std::int64_t start = platform::TickCount();
            lock(target, start + duration);
            Save("new");
            EXPECT_EQ(simulated::FileBytes(target), "new and long") << "the tail of a file that could not be read";
            EXPECT_GE(platform::TickCount(), start + duration);
            EXPECT_LE(platform::TickCount(), start + duration + 20);
        }
    }
}

TEST(SaveFile, GivesUpAfterTwoSeconds) {
    for (const auto lock : {simulated::LockFile, simulated::LockFileAgainstReaders}) {
        simulated::PutFile(target, "old");
        lock(target, simulated::ForEver);
        const std::int64_t start = platform::TickCount();
        EXPECT_THAT(WordsOfFailure("new"),
                    testing::AllOf(HasSubstr(target), HasSubstr("being used by another process")));
        EXPECT_EQ(platform::TickCount(), start + 2000);
        EXPECT_EQ(simulated::FileBytes(target), "old");
        EXPECT_EQ(simulated::AllFiles().size(), 1U);
    }
}

TEST(SaveFile, AFolderInItsPlaceIsRefusedAtOnce) {
    simulated::PutFolder(target);
    const std::int64_t start = platform::TickCount();
    EXPECT_THAT(WordsOfFailure("new"), HasSubstr("Access is denied"));
    EXPECT_EQ(platform::TickCount(), start);
}

TEST(SaveFile, TellsWhyItFails) {
    EXPECT_THAT(WordsOfFailure("new"), HasSubstr("cannot find the path"));
    simulated::PutFile(target, "old");
    simulated::SetFreeSpace(2);
    EXPECT_THAT(WordsOfFailure("new"), testing::AllOf(HasSubstr(target), HasSubstr("not enough space")));
    EXPECT_EQ(simulated::AllFiles().size(), 1U);
    simulated::SetFreeSpace(1000);
    simulated::MakeReadOnly("C:\\data");
    EXPECT_THAT(WordsOfFailure("new"), HasSubstr("Access is denied"));
    EXPECT_EQ(simulated::FileBytes(target), "old");
}

TEST(SaveFile, TwoProcessesMaySaveAtOnce) {
    simulated::PutFile(target, "old");
    SaveFile first(target);
    SaveFile second(target);
    second.Write("the second", 10);
    first.Write("the first", 9);
    second.Commit();
    EXPECT_EQ(simulated::FileBytes(target), "the second");
    first.Commit();
    EXPECT_EQ(simulated::FileBytes(target), "the firstd");
    EXPECT_EQ(simulated::AllFiles().size(), 1U);
}

// Only ours, and never one of a live process: what a name says decides, and what the system holds.
TEST(TemporaryFiles, OfKilledSavesGoAtTheNextStart) {
    constexpr std::uint32_t other = 4'294'967'295U;
    simulated::LetProcessRun(other);
    const std::pair<std::string, bool> cases[] = {
        {NewTemporaryPath("C:\\data").substr(8), true},  // our number was that of a process that is gone
        {"~00000rk.tmp", true},                          // process 62
        {"~00000RM.tmp", false},
        {"~vkhsvlf.tmp", false},  // the live one
        {"~zzzzzzz.tmp", false},  // no process has such a number
        {"~0000000.tsj", false},
        {"~000000.tmp", false},
        {"~00000000.tmp", false},
        {"_00000rk.tmp", false},
        {"~0000-rs.tmp", false},
        {"a.tmp", false}};
    for (const auto& [name, goes] : cases) simulated::PutFile("C:\\data\\" + name, "left");
    simulated::PutFile("C:\\data\\~00000rl.tmp", "held");
    simulated::LockFile("C:\\data\\~00000rl.tmp");
    simulated::PutFile("C:\\data\\sub\\~00000rk.tmp", "elsewhere");
    RemoveLeftovers("C:\\data");
    for (const auto& [name, goes] : cases) {
        EXPECT_EQ(simulated::FileBytes("C:\\data\\" + name).has_value(), !goes) << name;
    }
    EXPECT_TRUE(simulated::FileBytes("C:\\data\\~00000rl.tmp"));
    EXPECT_TRUE(simulated::FileBytes("C:\\data\\sub\\~00000rk.tmp"));
    RemoveLeftovers("C:\\none");
}

TEST(KeepUnderAnotherName, FindsAFreeNameAndMovesInOneStep) {
    for (const char* name : {"a (kept).tsj", "a (kept 2).tsj", "a (kept 3).tsj"}) {
        simulated::PutFile(target, name);
        EXPECT_EQ(KeepUnderAnotherName(target), std::string("C:\\data\\") + name);
        EXPECT_EQ(simulated::FileBytes(std::string("C:\\data\\") + name), name);
        EXPECT_FALSE(simulated::FileBytes(target));
    }
    simulated::PutFile(target, "held");
    simulated::LockFile(target, platform::TickCount() + 1000);
    EXPECT_TRUE(KeepUnderAnotherName(target)) << "for a moment";
    simulated::PutFile(target, "held");
    simulated::LockFile(target);
    EXPECT_EQ(KeepUnderAnotherName(target), std::nullopt);
    EXPECT_EQ(simulated::FileBytes(target), "held");
}

}  // namespace
