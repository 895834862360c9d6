#include "jobs/job_file.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

#include "base/arithmetic.h"
#include "base/product.h"
#include "base/runtime_failure.h"
#include "base/text.h"
#include "dictionary/dictionary.h"
#include "jobs/job_access.h"
#include "jobs/job_fields.h"
#include "storage/input_file.h"
#include "storage/output_file.h"

namespace {

// Every save says so, whatever the program's version: the layout has not changed since.
constexpr std::int32_t WrittenVersion = 300;

constexpr std::int32_t OldestVersion = 300;

// Sizes `array` from its count in the file. A count of zero or less leaves what the caller had.
template <class Record>
void ReadArray(InputFile& file, std::int32_t count, std::vector<Record>& array) {
    if (count > 0) array = file.ReadArray<Record>(count);
}

void ReadStrings(InputFile& file, std::int32_t count, std::vector<std::string>& strings) {
    if (count <= 0) return;
    file.RequireRoom(count, sizeof(std::uint16_t));
    strings.clear();
    for (std::int32_t i = 0; i < count; ++i) strings.push_back(file.ReadString());
}

void ReadArrays(InputFile& file, Job& job) {
    const std::int32_t eventCount = file.Count();
    const std::int32_t stringCount = file.Count();
    ReadStrings(file, stringCount, job.Strings);
    ReadArray(file, eventCount, job.Events);
    ReadArray(file, file.Count(), job.Windows);
    ReadArray(file, file.Count(), job.Chains);
}

// Moves what was read to the caller; arrays that the file did not fill stay as they are there.
template <class Record>
void HandOver(std::vector<Record>& from, std::vector<Record>& to) {
    if (!from.empty()) to = std::move(from);
}

JobHeader HeaderToWrite(const Job& job) {
    if (job.Description.size() > DescriptionWidth) {
        throw RuntimeFailure(FailureKind::Range, "The description of the job is longer than " +
                                                     std::to_string(DescriptionWidth) + " characters.");
    }
    JobHeader header = job;
    header.Version = WrittenVersion;
    header.DurationMs = DurationAtSpeed(job.Events.empty() ? 0 : job.Events.back().time(), job.SpeedPercent);
    return header;
}

void WriteWhole(RecordOutput& file, const Job& job) {
    file.Write(HeaderToWrite(job));
    file.WriteCount(job.Events.size());
    file.WriteCount(job.Strings.size());
    for (const std::string& text : job.Strings) file.WriteString(text);
    file.WriteArray(job.Events);
    file.WriteCount(job.Windows.size());
    file.WriteArray(job.Windows);
    file.WriteCount(job.Chains.size());
    file.WriteArray(job.Chains);
}

// The front of a file up to the arrays. Fewer bytes when the file is shorter.
struct FileFront {
    std::array<char, 2142> bytes;
    std::int64_t size = 0;
    platform::FileState state = platform::FileState::Missing;
};

FileFront ReadFront(const std::string& path) {
    FileFront front;
    platform::File file = platform::File::OpenForReading(path);
    front.state = file.Found();
    if (file.IsOpen()) front.size = std::max<std::int64_t>(0, file.Read(front.bytes.data(), front.bytes.size()));
    return front;
}

bool IsFlag(std::int32_t value) {
    return value == 0 || value == 1;
}

}  // namespace

// At a low speed a long job lasts longer than the field can hold, and is told to last as long as that.
std::int32_t DurationAtSpeed(std::int32_t lastTime, std::int32_t speedPercent) {
    constexpr double Longest = std::numeric_limits<std::int32_t>::max();
    if (lastTime == 0) return 0;
    if (speedPercent == 0) throw RuntimeFailure(FailureKind::Overflow, "A job cannot have a speed of 0 percent.");
    return RoundHalfEven(std::clamp(lastTime * 100.0 / speedPercent, -Longest, Longest));
}

bool HeaderIsGood(const JobHeader& job) {
    const std::int16_t style = job.StartProgram.WindowStyle;
    return job.Version >= OldestVersion && job.Version <= ProductVersionNumber && style >= 0 && style <= 3 &&
           job.SpeedPercent >= 1 && job.SpeedPercent <= MaximumSpeed && IsFlag(job.SkipMouseMoves) &&
           IsFlag(job.CapsLockState) && job.RepeatCount >= 0 && job.SafetyLevel >= SafetyHigh &&
           job.SafetyLevel <= SafetyLow && IsFlag(job.SimilarWindowNames);
}

namespace {

// "3.1.7" for 307: the middle number is the rounded tenth, on purpose.
std::string VersionText(std::int32_t version) {
    const std::int32_t tenths = RoundHalfEven(version / 10.0);
    return std::to_string(version / 100) + "." + std::to_string(tenths % 10) + "." + std::to_string(version % 10);
}

std::string NewerMessage(const std::string& path, std::int32_t version) {
    return Translate1("Job file: '%1' was created with newer version of Tessarine than you are currently using.",
                      path) +
           LineBreak + Translate1("Job file version: %1", VersionText(version)) + LineBreak +
           Translate1("You are using Tessarine version: %1", ProductVersion) + LineBreak +
           Translate("Please download the latest version of Tessarine to open this job.");
}

JobHeaderCheck Refused(int result, const std::string& message) {
    JobHeaderCheck check;
    check.result = result;
    check.message = message;
    return check;
}

JobHeaderCheck Corrupted(const std::string& path) {
    return Refused(JobHeaderCheck::Bad, "Job file: '" + path + "' is corrupted and cannot be loaded.");
}

JobHeaderCheck Accepted(JobHeader& job) {
    JobHeaderCheck check;
    check.result = JobHeaderCheck::Good;
    check.description = std::move(job.Description);
    check.duration = job.DurationMs;
    check.speed = job.SpeedPercent;
    check.skipMoves = job.SkipMouseMoves;
    check.repeat = job.RepeatCount;
    check.safety = job.SafetyLevel;
    check.similarNames = job.SimilarWindowNames;
    return check;
}

// The version comes first: of a newer file nothing else is looked at, and it may be shorter.
JobHeaderCheck JudgeFront(const FileFront& front, const std::string& path) {
    if (front.size < 4) return Corrupted(path);
    const auto version = little_endian::Load<std::int32_t>(front.bytes.data());
    if (version < OldestVersion || version > 900) return Corrupted(path);
    if (version > ProductVersionNumber) return Refused(JobHeaderCheck::Bad, NewerMessage(path, version));
    if (front.size < static_cast<std::int64_t>(RecordSize<JobHeader>())) return Corrupted(path);
    JobHeader job;
    RecordReader reader(front.bytes.data());
    Fields(reader, job);
    return HeaderIsGood(job) ? Accepted(job) : Corrupted(path);
}

}  // namespace

void ReadJob(const std::string& path, Job& job) {
    InputFile file(path);
    ReadJob(file, job);
}

void ReadJob(InputFile& file, Job& job) {
    Job fresh;
    file.Read<JobHeader>(fresh);
    ReadArrays(file, fresh);
    HandOver(fresh.Strings, job.Strings);
    HandOver(fresh.Events, job.Events);
    HandOver(fresh.Windows, job.Windows);
    HandOver(fresh.Chains, job.Chains);
    static_cast<JobHeader&>(job) = std::move(static_cast<JobHeader&>(fresh));
}

void WriteJob(const std::string& path, const Job& job) {
    OutputFile file(path);
    WriteWhole(file, job);
    file.Commit();
}

std::string JobBytes(const Job& job) {
    OutputBlocks file;
    WriteWhole(file, job);
    return file.Joined();
}

void RewriteJobOptions(const std::string& path, const JobOptions& options) {
    Job job;
    ReadJob(path, job);
    job.SpeedPercent = options.SpeedPercent;
    job.SkipMouseMoves = options.SkipMouseMoves;
    job.RepeatCount = options.RepeatCount;
    job.SafetyLevel = options.SafetyLevel;
    job.SimilarWindowNames = options.SimilarWindowNames;
    WriteJob(path, job);
}

JobHeaderCheck CheckJobHeader(const std::string& path) {
    const FileFront front = ReadFront(path);
    switch (front.state) {
        case platform::FileState::Missing:
            return Refused(JobHeaderCheck::Missing, "File: '" + path + "' cannot be found.");
        case platform::FileState::Held:
            return Refused(JobHeaderCheck::Held, TextOfHeldFile(path));
        case platform::FileState::Readable:
            break;
    }
    return JudgeFront(front, path);
}
