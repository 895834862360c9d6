// What stands behind the runner in a made executable: two bytes for the language, and a job file. Nothing marks the
// place: it is where the runner ends, as its own headers (PE, the format of Windows programs) say. Nothing here pumps.
#pragma once

#include <cstdint>
#include <string>

#include "jobs/job_records.h"

inline constexpr std::int64_t LanguageSize = sizeof(std::int16_t);

// Where the parts lie in the file, in bytes. A certificate that was put behind all of it, when somebody signed the made
// executable, is no part of the job.
struct MadeLayout {
    std::int64_t runnerLength = 0;
    std::int64_t jobLength = 0;  // behind the runner and the two bytes
};

// A file failure for a file that cannot be read, that is no program, or that ends with the runner.
MadeLayout LayoutOf(const std::string& path);

struct MadeExecutable {
    std::int16_t language = 0;  // 1 to 4
    Job job;
};

// Reads the job and its language. A file failure, too, for a job that is cut, has a version or options that no job
// has, or an unknown language; an index in it that leads nowhere is found by the run.
MadeExecutable ReadMadeExecutable(const std::string& path);
