// Records from the members that the text gives. What is lacking, does not belong there or contradicts itself is a file
// failure: a sentence that tells what to do, without the place.
#pragma once

#include "jobs/job_records.h"
#include "jobtext/members.h"

extern const MemberRules EventRules;
extern const MemberRules WindowRules;
extern const MemberRules ChainRules;

// The text as a whole.
extern const MemberRules JobRules;
enum JobMember : std::size_t {
    FormatMember,
    CodePageMember,
    VersionMember,
    ProgramPathMember,
    CommandLineMember,
    WindowStyleMember,
    DescriptionMember,
    DurationMember,
    SpeedMember,
    SkipMovesMember,
    CapsLockMember,
    RepeatMember,
    SafetyMember,
    SimilarMember,
    JobBytesMember,
    EventCountMember,
    StringCountMember,
    WindowCountMember,
    ChainCountMember,
    StringsMember,
    EventsMember,
    WindowsMember,
    ChainsMember,
    TailMember,
    JobMemberCount
};
static_assert(JobMemberCount <= MostMembers);

JobEvent EventOf(const MemberValues& values);
WindowSignature WindowOf(const MemberValues& values);
WindowChain ChainOf(const MemberValues& values);

// Without DurationMs, unless it is given.
JobHeader HeaderOf(const MemberValues& values);

// The record's bytes in a file, with the runs that the text gives beside its members; `rules` has a member "bytes".
template <class Record>
void ImageOf(const Record& record, MemberRules rules, const MemberValues& values, std::string& image);

[[noreturn]] void FailInText(const std::string& sentence);
std::string InQuotes(std::string_view name);
