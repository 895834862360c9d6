#include "jobs/sample_job.h"

#include "support/story.h"

namespace {

const std::string corrupted = "Job file: '" + jobPath + "' is corrupted and cannot be loaded.";

JobHeaderCheck Check(const std::string& bytes) {
    simulated::PutFile(jobPath, bytes);
    return CheckJobHeader(jobPath);
}

TEST(CheckJobHeader, JudgesEachOption) {
    constexpr std::size_t speed = 2110, skipMoves = 2114, capsLock = 2118, repeat = 2122, safety = 2126, similar = 2130;
    const std::tuple<std::size_t, std::int64_t, bool> cases[] = {
        {0, 299, false},      {0, 300, true},           {0, 306, true},       {0, 901, false},
        {0, -1, false},       {speed, 0, false},        {speed, 1, true},     {speed, 1001, true},
        {speed, 1002, false}, {skipMoves, 2, false},    {skipMoves, 0, true}, {capsLock, -127, false},
        {capsLock, 2, false}, {repeat, -1, false},      {repeat, 0, true},    {safety, -1, false},
        {safety, 3, false},   {similar, 2, false},      {similar, 0, true},   {2106, -5, true},
        {2134, -1, true},     {2138, 0x7FFFFFFF, true},
    };
    for (const auto& [offset, value, good] : cases) {
        const JobHeaderCheck check = Check(WithInt32(SampleBytes(), offset, value));
        EXPECT_EQ(check.result, good ? 1 : -2) << value << " at " << offset;
        EXPECT_EQ(check.message, good ? "" : corrupted) << value << " at " << offset;
    }
    for (const int style : {-1, 0, 3, 4}) {
        const std::string bytes = SampleBytes().replace(1104, 2, FileBytes().Int16(style).All());
        EXPECT_EQ(Check(bytes).result, style == 0 || style == 3 ? 1 : -2) << style;
    }
}

TEST(CheckJobHeader, LooksAtTheFrontOnly) {
    EXPECT_EQ(Check(SampleBytes()).result, 1);
    EXPECT_LE(simulated::BytesRead(jobPath), 2142);
    for (std::size_t length = 0; length < 2134; ++length) {
        ASSERT_EQ(Check(SampleBytes().substr(0, length)).message, corrupted) << length;
    }
    EXPECT_EQ(Check(SampleBytes().substr(0, 2134)).result, 1);
}

TEST(CheckJobHeader, MissingFile) {
    const JobHeaderCheck check = CheckJobHeader("C:\\none.tsj");
    EXPECT_EQ(check.result, -1);
    EXPECT_EQ(check.message, "File: 'C:\\none.tsj' cannot be found.");
}

TEST(CheckJobHeader, TellsTheVersionOfANewerFile) {
    const auto message = [](const std::string& version) {
        return "Job file: '" + jobPath +
               "' was created with newer version of Tessarine than you are currently using.\r\n"
               "Job file version: " +
               version + "\r\nYou are using Tessarine version: 3.0.6\r\n" +
               "Please download the latest version of Tessarine to open this job.";
    };
    // The middle number is a rounded tenth, halves to the even neighbour: 30.7 counts as 31, 31.5 and 32.5 as 32.
    const std::pair<int, const char*> versions[] = {{307, "3.1.7"}, {310, "3.1.0"}, {315, "3.2.5"},
                                                    {325, "3.2.5"}, {399, "3.0.9"}, {900, "9.0.0"}};
    for (const auto& [version, text] : versions) {
        const JobHeaderCheck check = Check(FileBytes().Int32(version));
        EXPECT_EQ(check.result, -2) << version;
        EXPECT_EQ(check.message, message(text)) << version;
    }
}

TEST(CheckJobHeader, NeverThrows) {
    for (int operation = 1; operation <= 3; ++operation) {
        simulated::PutFile(jobPath, SampleBytes());
        simulated::FailAtOperation(operation);
        EXPECT_NO_THROW(CheckJobHeader(jobPath)) << operation;
    }
}

}  // namespace
