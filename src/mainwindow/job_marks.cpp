#include "mainwindow/job_marks.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <new>
#include <optional>
#include <string>
#include <vector>

#include "base/product.h"
#include "base/text.h"
#include "dictionary/dictionary.h"
#include "dictionary/sentences.h"
#include "editor/edit_job.h"
#include "findings/check_job.h"
#include "jobs/job_file.h"
#include "library/job_library.h"
#include "mainwindow/main_window_use.h"
#include "platform/boxes.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/text.h"
#include "platform/timers.h"
#include "recording/recording_state.h"
#include "replay/run_job.h"

namespace {

constexpr int TickMs = 200;
constexpr int QuietMs = 1000;    // after a filling of the list: the start of the program, or a save, comes first
constexpr int LooksAtOnce = 10;  // at files that are as they were
constexpr std::int64_t LongestFile = 32'000'000;  // bytes; what takes a second to read is not for an idle moment
constexpr std::size_t MostInBox = 8;

struct CheckedJob {
    platform::FileStamp stamp;
    std::vector<Finding> findings;
};

struct JobMarks {
    std::map<std::string, CheckedJob> checked;  // by path, in lower case
    std::uint32_t fill = 0;                     // of the list that is looked at
    int next = 0;                               // row
    std::int64_t begin = 0;                     // of the look, on the scale of TickCount
    platform::TimerId timer = 0;
} jobMarks;

std::string KeyOfRow(int row) {
    return platform::LowerCase(job_library::JobPathOfRow(row));
}

bool IsIdle() {
    return platform::TickCount() >= jobMarks.begin && mainWindowUse.IsFree() && !RecordingActive() &&
           !runState.ReplayRunning && !EditorIsOpen();
}

void Mark(int row, const std::vector<Finding>& findings) {
    const std::string mark =
        findings.empty() ? "" : Translate1("Findings of the check: %1", std::to_string(findings.size()));
    if (jobLibrary.lista_jobs.Row(row).mark != mark) jobLibrary.lista_jobs.SetMark(row, mark);
}

// Nothing of a file that another program holds: that will pass. A program on another machine is not asked for, which
// can take long.
std::optional<std::vector<Finding>> FindingsOf(const std::string& path) {
    try {
        Job job;
        ReadJob(path, job);
        CheckOptions options;
        options.looksForProgram = !Trim(job.StartProgram.ProgramPath).starts_with("\\\\");
        return CheckJob(job, options);
    } catch (const RuntimeFailure& failure) {
        if (platform::StateOf(path) != platform::FileState::Readable) return std::nullopt;
        return std::vector<Finding>{FindingOfUnreadableJob(failure)};
    } catch (const std::bad_alloc&) {
        return std::nullopt;
    }
}

// True when the job had to be read.
bool CheckRow(int row) {
    const std::string path = job_library::JobPathOfRow(row);
    const platform::FileStamp stamp = platform::StampOf(path);
    CheckedJob& known = jobMarks.checked[KeyOfRow(row)];
    const bool read = known.stamp != stamp && stamp != platform::FileStamp{} && stamp.length <= LongestFile;
    if (read) {
        if (const auto findings = FindingsOf(path)) known = {stamp, *findings};
    }
    Mark(row, known.stamp == stamp ? known.findings : std::vector<Finding>());
    return read;
}

void StopLooking() {
    platform::StopTimer(jobMarks.timer);
    jobMarks.timer = 0;
}

void Tick() {
    if (!IsIdle()) return;
    for (int looks = 0; looks < LooksAtOnce; ++looks) {
        if (jobMarks.next >= jobLibrary.lista_jobs.ListCount()) return StopLooking();
        if (CheckRow(jobMarks.next++)) return;
    }
}

// A list that is filled anew keeps its marks meanwhile.
void ShowKnownMarks() {
    for (int row = 0; row < jobLibrary.lista_jobs.ListCount(); ++row) {
        const auto known = jobMarks.checked.find(KeyOfRow(row));
        if (known != jobMarks.checked.end()) Mark(row, known->second.findings);
    }
}

}  // namespace

void CheckJobsOfList() {
    if (jobMarks.fill == jobLibrary.fills) return;
    jobMarks.fill = jobLibrary.fills;
    jobMarks.next = 0;
    jobMarks.begin = platform::TickCount() + QuietMs;
    ShowKnownMarks();
    if (jobMarks.timer == 0) jobMarks.timer = platform::StartTimer(TickMs, Tick);
}

void ShowFindingsOfRow(int row) {
    const auto known = jobMarks.checked.find(KeyOfRow(row));
    if (known == jobMarks.checked.end() || known->second.findings.empty()) return;
    const std::vector<Finding>& findings = known->second.findings;
    const std::string gap = std::string(LineBreak) + LineBreak;
    // Not in the title, which a box cuts off where it is longer than the text is wide.
    std::string text = LabelOf(Translate1("What may go wrong with the job '%1'", jobLibrary.lista_jobs.List(row)));
    for (std::size_t i = 0; i < std::min(findings.size(), MostInBox); ++i) text += gap + FindingLine(findings[i]);
    if (findings.size() > MostInBox) {
        text += gap + Translate1("There are %1 more findings.", std::to_string(findings.size() - MostInBox));
    }
    platform::ShowBox(text, ProductName, platform::BoxIcon::Warning);
}
