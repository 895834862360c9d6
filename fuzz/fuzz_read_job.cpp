// Any bytes at all as a job file: they are read or refused with a file failure; memory stays in proportion to the file;
// and a job that was read and can be written is read back the same.
#include <cstdint>

#include "base/runtime_failure.h"
#include "fuzz/require.h"
#include "jobs/sample_job.h"
#include "platform/simulated/files.h"
#include "support/allocation_meter.h"

namespace {

// A string takes at least two bytes in the file and 32 in memory, and its array grows by doubling.
constexpr std::size_t LargestPerByte = 32;

bool Reads(Job& job, std::size_t size) {
    const AllocationMeter meter;
    bool read = true;
    try {
        ReadJob(jobPath, job);
    } catch (const RuntimeFailure& failure) {
        Require(failure.Kind() == FailureKind::File, "a refusal is a file failure");
        read = false;
    }
    Require(meter.Largest() <= 4096 + LargestPerByte * size, "memory in proportion to the file");
    Require(simulated::OpenFiles() == 0, "the file is closed");
    return read;
}

void WriteAndReadBack(Job& job) {
    try {
        WriteJob(jobPath, job);
    } catch (const RuntimeFailure& failure) {
        Require(failure.Kind() == FailureKind::Overflow, "only the duration may be unfit to be written");
        return;
    }
    Job again;
    ReadJob(jobPath, again);
    job.Version = again.Version;
    job.DurationMs = again.DurationMs;
    Require(Dump(job) == Dump(again), "what was written is read back");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    simulated::PutFile(jobPath, std::string(reinterpret_cast<const char*>(data), size));
    Job job;
    if (Reads(job, size)) WriteAndReadBack(job);
    return 0;
}
