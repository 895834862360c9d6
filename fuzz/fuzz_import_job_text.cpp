// Any bytes at all as the text of a job: they are imported or refused with a sentence that names the line; memory stays
// in proportion to the text; and the job that they tell is exported and imported to the same bytes.
#include <cstdint>

#include "base/runtime_failure.h"
#include "fuzz/require.h"
#include "jobtext/job_text.h"
#include "storage/input_file.h"
#include "support/allocation_meter.h"

namespace {

// A chain of ten bytes of text takes a kilobyte in the file; what is read is kept in blocks of 256 KB.
constexpr std::size_t LargestPerByte = 128;
constexpr std::size_t LargestBlock = 300'000;

bool Imports(std::string_view text, std::string& job) {
    job.clear();
    try {
        ImportJob("a.json", text, [&job](std::string_view block) { job += block; });
    } catch (const RuntimeFailure& failure) {
        Require(failure.Kind() == FailureKind::File, "a refusal is a file failure");
        Require(std::string_view(failure.what()).starts_with("'a.json', line "), "it names the line");
        Require(job.empty(), "nothing of a refused text is handed over");
        return false;
    }
    return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    std::string job;
    {
        const AllocationMeter meter;
        const bool imports = Imports(text, job);
        Require(meter.Largest() <= LargestBlock + LargestPerByte * size, "memory in proportion to the text");
        if (!imports) return 0;
    }
    std::string exported;
    InputFile file("a.tsj", job);
    ExportJob(file, [&exported](std::string_view block) { exported += block; });
    std::string again;
    Require(Imports(exported, again), "what was exported is imported");
    Require(again == job, "the job comes back the same");
    return 0;
}
