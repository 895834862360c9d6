// Any bytes at all as a made program: its job is read or refused with a file failure; what is taken for the job lies in
// the file; and memory stays in proportion to it.
#include <cstdint>

#include "base/runtime_failure.h"
#include "fuzz/require.h"
#include "makeexe/made_executable.h"
#include "platform/simulated/files.h"
#include "support/allocation_meter.h"

namespace {

const std::string madePath = "C:\\made.exe";

// A string takes at least two bytes in the file and 32 in memory, and its array grows by doubling.
constexpr std::size_t LargestPerByte = 32;

void Read(std::size_t size) {
    const AllocationMeter meter;
    try {
        const MadeExecutable made = ReadMadeExecutable(madePath);
        Require(made.language >= 1 && made.language <= 4, "a language that there is");
        const MadeLayout layout = LayoutOf(madePath);
        Require(layout.runnerLength > 0 && layout.jobLength > 0, "both parts are there");
        Require(layout.runnerLength + 2 + layout.jobLength <= static_cast<std::int64_t>(size), "within the file");
    } catch (const RuntimeFailure& failure) {
        Require(failure.Kind() == FailureKind::File, "a refusal is a file failure");
    }
    Require(meter.Largest() <= 4096 + LargestPerByte * size, "memory in proportion to the file");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    simulated::PutFile(madePath, std::string(reinterpret_cast<const char*>(data), size));
    Read(size);
    Require(simulated::OpenFiles() == 0, "the file is closed");
    return 0;
}
