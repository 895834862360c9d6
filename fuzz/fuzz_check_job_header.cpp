// Any bytes at all through the header check: one of its three results, a message with every refusal and with nothing
// else, no more of the file read than its front, and a job that passes can be told from one that cannot be read.
#include <cstdint>

#include "fuzz/require.h"
#include "jobs/sample_job.h"
#include "platform/simulated/files.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    simulated::PutFile(jobPath, std::string(reinterpret_cast<const char*>(data), size));
    const std::int64_t before = simulated::BytesRead(jobPath);
    const JobHeaderCheck check = CheckJobHeader(jobPath);
    Require(simulated::BytesRead(jobPath) - before <= 2142, "the front of the file is enough");
    Require(check.result == JobHeaderCheck::Good || check.result == JobHeaderCheck::Bad, "the file is there");
    Require(check.message.empty() == (check.result == JobHeaderCheck::Good), "every refusal has its message");
    if (check.result != JobHeaderCheck::Good) return 0;
    Require(check.speed >= 1 && check.speed <= MaximumSpeed && check.repeat >= 0, "a good job has good options");
    Require(check.description.size() <= DescriptionWidth, "the description has its width");
    return 0;
}
