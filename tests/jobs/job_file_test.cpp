#include "jobs/job_file.h"

#include "jobs/sample_job.h"
#include "storage/input_file.h"
#include "support/disk_faults.h"
#include "support/story.h"

namespace {

std::string Written() {
    return simulated::FileBytes(jobPath).value_or("(no file)");
}

void WriteSample() {
    WriteJob(jobPath, SampleJob());
}

Job JobLasting(std::int32_t time, std::int32_t speed, std::int32_t type = platform::InputMouse) {
    Job job;
    job.SpeedPercent = speed;
    job.Events.resize(1);
    job.Events[0].dwType() = type;
    job.Events[0].time() = time;
    return job;
}

class JobFile : public testing::Test {
protected:
    JobFile() { simulated::PutFolder("C:\\data"); }
};

TEST_F(JobFile, SampleIsWrittenByteForByte) {
    WriteSample();
    EXPECT_EQ(Written(), SampleBytes());
}

TEST_F(JobFile, WholeJobsComeToMemoryAndFromIt) {
    EXPECT_EQ(JobBytes(SampleJob()), SampleBytes());
    const std::string bytes = SampleBytes() + "old tail";
    InputFile memory("a stream", bytes);
    Job job;
    ReadJob(memory, job);
    EXPECT_EQ(Dump(job), Dump(SampleJob()));
    EXPECT_EQ(memory.Rest(), 8);
    for (std::size_t length = 0; length < SampleBytes().size(); ++length) {
        InputFile cut("a stream", std::string_view(bytes).substr(0, length));
        EXPECT_THAT([&] { ReadJob(cut, job); },
                    testing::ThrowsMessage<RuntimeFailure>(HasSubstr("'a stream' is damaged")));
    }
}

TEST_F(JobFile, EmptyJobEndsBehindItsCounts) {
    WriteJob(jobPath, Job());
    FileBytes expected;
    expected.Int32(300).Text("", 1100).Int16(0).Text("", 1000).Int32(0).Int32(100).Words(2, 0).Int32(1).Words(6, 0);
    EXPECT_EQ(Written(), expected.All());
    EXPECT_EQ(Written().size(), 2150U);
}

TEST_F(JobFile, LargeJobComesBackWhole) {
    Job job;
    for (int i = 0; i < 20'000; ++i) job.Events.push_back(SampleEvent({1, i, -i, i, 0, 0, 0}, i % 3, i, i % 3 == 0));
    for (int i = 0; i < 500; ++i) job.Strings.push_back(std::string(static_cast<std::size_t>(i * 7), 'k'));
    job.Strings.push_back(std::string(65535, 'x'));
    job.Windows.assign(300, SampleJob().Windows[0]);
    job.Chains.assign(300, SampleJob().Chains[0]);
    WriteJob(jobPath, job);
    Job read;
    ReadJob(jobPath, read);
    job.Version = 300;
    job.DurationMs = 19'999;
    EXPECT_TRUE(Dump(read) == Dump(job));  // too long to have the difference worked out
}

// A reader into a job that holds something keeps the arrays of which the file has none.
TEST_F(JobFile, ZeroAndNegativeCountsLeaveTheCallersArrays) {
    for (const std::int64_t count : {0, -1, -2147483647}) {
        SCOPED_TRACE(count);
        FileBytes file;
        file.Raw(SampleBytes().substr(0, EventCountAt)).Int32(count).Int32(count).Int32(count).Int32(count);
        simulated::PutFile(jobPath, file);
        Job job = SampleJob();
        job.Description = "old";
        ReadJob(jobPath, job);
        EXPECT_EQ(Dump(job), Dump(SampleJob()));
    }
}

TEST_F(JobFile, FixedFieldsOfFullWidth) {
    Job job = SampleJob();
    job.Description = std::string(1000, 'd');
    job.Windows[0].Caption = std::string(1025, 'c');
    job.StartProgram.ProgramPath = std::string(801, 'p');
    WriteJob(jobPath, job);
    Job read;
    ReadJob(jobPath, read);
    EXPECT_EQ(read.Description, job.Description);
    EXPECT_EQ(read.Windows[0].Caption, std::string(1024, 'c'));
    EXPECT_EQ(read.StartProgram.ProgramPath, std::string(800, 'p'));
}

// A field that was never assigned holds zero bytes.
TEST_F(JobFile, ZeroBytesArePaddingToo) {
    std::string bytes = SampleBytes();
    bytes.replace(4, 800, std::string(800, '\0'));
    bytes.replace(804, 300, std::string("x") + std::string(299, '\0'));
    simulated::PutFile(jobPath, bytes);
    Job job;
    ReadJob(jobPath, job);
    EXPECT_EQ(job.StartProgram.ProgramPath, "");
    EXPECT_EQ(job.StartProgram.CommandLine, "x");
}

TEST_F(JobFile, WhatDoesNotFitIsAFailureThatLeavesTheOldFile) {
    simulated::PutFile(jobPath, "old");
    const auto write = [](const Job& job) { return [&job] { WriteJob(jobPath, job); }; };
    Job description;
    description.Description = std::string(1001, 'd');
    EXPECT_EQ(FailureOf(write(description)), FailureKind::Range);
    Job text;
    text.Strings = {std::string(65536, 's')};
    EXPECT_EQ(FailureOf(write(text)), FailureKind::Range);
    EXPECT_EQ(FailureOf(write(JobLasting(1, 0))), FailureKind::Overflow);
    EXPECT_EQ(Written(), "old");
    EXPECT_EQ(simulated::AllFiles().size(), 1U);
}

TEST_F(JobFile, DurationIsTheLastTimeAtTheJobsSpeed) {
    struct Case {
        std::int32_t time, speed, duration;
        std::int32_t type = platform::InputMouse;
    };
    const Case cases[] = {{1300, 100, 1300},
                          {1300, 50, 2600},
                          {1, 200, 0},  // halves go to the even neighbour
                          {3, 200, 2},
                          {5, 200, 2},
                          {7, 200, 4},
                          {21'474'836, 1, 2'147'483'600},
                          {21'474'837, 1, 2'147'483'647},
                          {21'474'837, 100, 21'474'837},
                          {2'147'483'647, 100, 2'147'483'647},
                          {2'147'483'647, 1, 2'147'483'647},
                          {1000, 1001, 100},
                          {777, 100, 777, TextContinuation}};
    for (const Case& one : cases) {
        WriteJob(jobPath, JobLasting(one.time, one.speed, one.type));
        EXPECT_EQ(CheckJobHeader(jobPath).duration, one.duration) << one.time << " at " << one.speed;
    }
}

TEST_F(JobFile, RewriteJobOptionsChangesTheOptionsOnly) {
    simulated::PutFile(jobPath, SampleBytes());
    RewriteJobOptions(
        jobPath,
        {.SpeedPercent = 1001, .SkipMouseMoves = 0, .RepeatCount = 0, .SafetyLevel = 1, .SimilarWindowNames = 0});
    std::string expected = SampleBytes();
    const std::int32_t words[] = {130, 1001, 0, 1, 0, 1, 0};  // from DurationMs on
    for (std::size_t i = 0; i < 7; ++i) expected = WithInt32(expected, 2106 + 4 * i, words[i]);
    EXPECT_EQ(Written(), expected);
}

TEST_F(JobFile, SaveSurvivesEveryFault) {
    const std::string oldBytes(9000, 'o');  // longer, so that there is a tail
    SurvivesEveryFault({jobPath, oldBytes, SampleBytes() + oldBytes.substr(SampleBytes().size()), WriteSample});
    SurvivesEveryFault({jobPath, "old", SampleBytes(), WriteSample});
}

}  // namespace
