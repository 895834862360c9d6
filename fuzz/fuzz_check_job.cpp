// Any bytes at all as a job file: whatever can be read can be checked, and every finding is worded and stands at a row
// that there is.
#include <cstddef>
#include <cstdint>
#include <string>

#include "base/runtime_failure.h"
#include "findings/check_job.h"
#include "fuzz/require.h"
#include "jobs/job_file.h"
#include "platform/simulated/files.h"

namespace {

const std::string jobPath = "C:\\data\\sample.tsj";

std::vector<Finding> FindingsOf(const std::string& path) {
    Job job;
    try {
        ReadJob(path, job);
    } catch (const RuntimeFailure& failure) {
        return {FindingOfUnreadableJob(failure)};
    }
    const std::vector<Finding> findings = CheckJob(job);
    for (const Finding& finding : findings) {
        Require(finding.event < static_cast<std::int64_t>(job.Events.size()), "the event exists");
        Require(finding.row >= 0 && (finding.event >= 0 || finding.row == 0), "the row belongs to the event");
    }
    return findings;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    simulated::PutFile(jobPath, std::string(reinterpret_cast<const char*>(data), size));
    for (const Finding& finding : FindingsOf(jobPath)) {
        Require(!WhatIsWrong(finding).empty() && !WhatToDo(finding).empty(), "a finding has its words");
        Require(FindingLine(finding).find("%1") == std::string::npos || !finding.detail.empty(), "words are filled in");
    }
    return 0;
}
