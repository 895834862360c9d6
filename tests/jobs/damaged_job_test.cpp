// Job files that are not what they should be: the reader may refuse them, but it may not crash, hang, believe a count,
// or leave its caller with half a job.
#include "jobs/sample_job.h"
#include "support/allocation_meter.h"
#include "support/story.h"

namespace {

enum class Outcome { Read, Refused };

// A job from `bytes`. Refused: the failure names the file, and the job is as it was.
Outcome Read(const std::string& bytes, Job& job) {
    simulated::PutFile(jobPath, bytes);
    const std::string before = Dump(job);
    AllocationMeter meter;
    try {
        ReadJob(jobPath, job);
    } catch (const RuntimeFailure& failure) {
        EXPECT_LE(meter.Largest(), 1024 + 2 * bytes.size());
        EXPECT_EQ(failure.Kind(), FailureKind::File);
        EXPECT_THAT(failure.what(), HasSubstr(jobPath));
        EXPECT_EQ(Dump(job), before);
        return Outcome::Refused;
    }
    EXPECT_LE(meter.Largest(), 1024 + 2 * bytes.size());
    return Outcome::Read;
}

Outcome Read(const std::string& bytes) {
    Job job;
    return Read(bytes, job);
}

TEST(DamagedJob, MissingFileIsAFailureThatNamesIt) {
    Job job;
    EXPECT_THAT([&] { ReadJob("C:\\none.tsj", job); }, testing::ThrowsMessage<RuntimeFailure>(testing::AllOf(
                                                           HasSubstr("C:\\none.tsj"), HasSubstr("cannot find"))));
}

TEST(DamagedJob, CutAnywhereIsRefused) {
    const std::string whole = SampleBytes();
    Job job = SampleJob();
    for (std::size_t length = 0; length < whole.size(); ++length) {
        ASSERT_EQ(Read(whole.substr(0, length), job), Outcome::Refused) << "cut at " << length;
        ASSERT_FALSE(HasFailure()) << "cut at " << length;
    }
    EXPECT_EQ(Read(whole + "tail of a longer file", job), Outcome::Read);
}

TEST(DamagedJob, EveryByteAlteredIsReadOrRefused) {
    const std::string whole = SampleBytes();
    for (std::size_t at = 0; at < whole.size(); ++at) {
        for (const int alteration : {0x01, 0x7F, 0x80, 0xFF}) {
            std::string bytes = whole;
            bytes[at] = static_cast<char>(bytes[at] ^ alteration);
            Read(bytes);
            ASSERT_FALSE(HasFailure()) << "byte " << at << " ^ " << alteration;
        }
    }
}

TEST(DamagedJob, StringThatReachesBehindTheEndIsRefused) {
    std::string bytes = SampleBytes().substr(0, EventCountAt);
    bytes += FileBytes().Int32(0).Int32(1).Int16(0xFFFF).Raw(std::string(65534, 's')).All();
    EXPECT_EQ(Read(bytes), Outcome::Refused);
    EXPECT_EQ(Read(bytes + "s" + FileBytes().Words(2, 0).All()), Outcome::Read);
}

TEST(DamagedJob, ReadFailureIsAFailure) {
    for (int operation = 2; operation <= 3; ++operation) {  // the first is the opening, which is tried again
        simulated::PutFile(jobPath, SampleBytes());
        simulated::FailAtOperation(operation);
        Job job;
        EXPECT_THROW(ReadJob(jobPath, job), RuntimeFailure) << operation;
        EXPECT_EQ(simulated::OpenFiles(), 0);
    }
}

}  // namespace
