// Job files: a whole job read and written, and the quick check of the front of a file that fills the job list.
// docs/job_format.md tells the bytes. Nothing here pumps; a save sleeps for up to two seconds while another program
// holds the file. Who shows the jobs is told by whoever saves one.
#pragma once

#include <cstdint>
#include <string>

#include "jobs/job_records.h"

// Reads the whole file; values are not judged. An array whose count in the file is zero or negative is left as the
// caller had it, so a fresh `job` is what a reader of one file wants. A missing or cut file, and a count that the
// file cannot hold, are file failures; `job` is then as it was.
void ReadJob(const std::string& path, Job& job);

// The same for a job that is a part of a file.
class InputFile;
void ReadJob(InputFile& file, Job& job);

// Whether the version is known, and every option one that the job page can have set: what a quick check of a damaged
// file goes by.
bool HeaderIsGood(const JobHeader& job);

// Writes `job` over `path` in one step. Version and DurationMs are the writer's own. When a longer file stood there,
// its tail stays behind the new bytes. Paths, captions and the like that are too long for their field are cut. A
// description of more than 1000 characters or a string of more than 65535 is a range failure, and a duration beyond 32
// bits an overflow failure; the old file stays as it was, as it does after a file failure.
void WriteJob(const std::string& path, const Job& job);

// The bytes that WriteJob writes. Fails alike.
std::string JobBytes(const Job& job);

// What DurationMs tells for a job that ends at `lastTime`: a number that 32 bits cannot hold is the largest that they
// can. An overflow failure for a speed of 0, unless the time is 0, too.
std::int32_t DurationAtSpeed(std::int32_t lastTime, std::int32_t speedPercent);

// The options of the job page.
struct JobOptions {
    std::int32_t SpeedPercent = 100;
    std::int32_t SkipMouseMoves = 0;
    std::int32_t RepeatCount = 1;
    std::int32_t SafetyLevel = 0;
    std::int32_t SimilarWindowNames = 0;
};

// Reads the job and writes it with these options; everything else stays. Fails as ReadJob and WriteJob do.
void RewriteJobOptions(const std::string& path, const JobOptions& options);

struct JobHeaderCheck {
    static constexpr int Good = 1;
    static constexpr int Held = 0;  // another program has it just now: nothing is known of it but its name
    static constexpr int Missing = -1;
    static constexpr int Bad = -2;  // damaged, or from a newer version

    int result = Bad;
    std::string description;
    std::int32_t duration = 0;  // ms
    std::int32_t speed = 0;
    std::int32_t skipMoves = 0;
    std::int32_t repeat = 0;
    std::int32_t safety = 0;
    std::int32_t similarNames = 0;
    std::string message;  // the text to show when the result is not Good
};

// Reads at most 2142 bytes and judges the options. A file that is cut behind them passes. Never throws, and does
// not wait for a file that is held.
JobHeaderCheck CheckJobHeader(const std::string& path);
