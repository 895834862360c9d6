// The job editor on a job of a million events, without its window: what it costs to open it, to change it and to scroll
// it, against the plain work that there is no way round.
#include <malloc.h>

#include <filesystem>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "bench/mixed_job.h"
#include "bench/posix_files.h"
#include "bench/ratio.h"
#include "editor/edit_job.h"
#include "editor/job_changes.h"
#include "editor/row_edits.h"
#include "folding/popuni_listu.h"
#include "folding/row_texts.h"
#include "jobs/job_file.h"
#include "settings/folders.h"
#include "tests/support/allocation_meter.h"

namespace {

constexpr int Events = 1'000'000;
constexpr int EventsOfRound = 39;  // of a mixed job, which makes six rows of them
constexpr int RowsOfRound = 6;
constexpr std::int32_t PageRows = 40;
constexpr int PagesAtOnce = 500;
constexpr int Rounds = 15;

const std::string path = "C:\\jobs\\Long.tsj";

std::int32_t RowCount() {
    return static_cast<std::int32_t>(editState.RowIndex.size());
}

void ShowPage(std::int32_t top) {
    for (std::int32_t row = top; row < top + PageRows; ++row) RowColumns(row);
}

void Close() {
    if (EditorIsOpen()) EditorHasClosed();
}

void OpenToFirstPage(const std::string& jobPath) {
    Close();
    if (editJob(jobPath) == 0) posix_files::Stop("open");
    ShowPage(0);
}

void ReadAndFold() {
    Job job;
    ReadJob(path, job);
    FoldedRows rows;
    FoldEvents({job.Events, job.Strings, job.Windows, job.Chains}, rows, &job.Events);
}

// The memory of both comes from what has been used before, and not page by page from the system.
void MeasureOpening() {
    bench::ReportRatio(
        "open a job, first page / read and fold", [] { OpenToFirstPage(path); },
        [] {
            Close();
            ReadAndFold();
        },
        1.2);
}

std::int64_t BytesOfJob() {
    const AllocationMeter meter;
    Job job;
    ReadJob(path, job);
    return meter.Held();
}

void MeasureMemory() {
    Close();
    const std::int64_t job = BytesOfJob();
    const AllocationMeter meter;
    OpenToFirstPage(path);
    const auto count = static_cast<double>(editState.EditEvents.size());
    const double more = static_cast<double>(meter.Held() - job) - count * sizeof(JobEvent);
    bench::Report("memory beside job and pristine copy, bytes an event", more / count, 24);
}

// What a deletion cannot do without: both arrays copied once, and a fold.
class PlainDeletion {
public:
    PlainDeletion() : edited(editState.EditEvents), pristine(editState.PristineEvents), rows(editState) {}

    void operator()() {
        std::copy(editState.PristineEvents.begin(), editState.PristineEvents.end(), pristine.begin());
        std::copy(pristine.begin(), pristine.end(), edited.begin());
        ClearRows(rows);
        FoldEvents({edited, editState.Strings, editState.Windows, editState.Chains}, rows, &edited);
    }

private:
    std::vector<JobEvent> edited;
    std::vector<JobEvent> pristine;
    FoldedRows rows;
};

void MeasureDeletionAndUndo() {
    OpenToFirstPage(path);
    PlainDeletion plain;
    std::vector<double> plainTimes;
    std::vector<double> deletions;
    std::vector<double> undos;
    const std::int32_t row = RowCount() / 2;
    for (int round = 0; round <= Rounds; ++round) {
        const double plainTime = bench::ProcessorSeconds(std::ref(plain));
        const double deletion = bench::ProcessorSeconds([&] {
            RemoveRows(row, row);
            RowsHaveChanged(row, row);
        });
        const double undo = bench::ProcessorSeconds(Undo);
        if (round == 0) continue;
        plainTimes.push_back(plainTime);
        deletions.push_back(deletion);
        undos.push_back(undo);
    }
    const double deletion = bench::Median(deletions);
    bench::Report("delete a row / copy both arrays, fold", deletion / bench::Median(plainTimes), 1.5);
    bench::Report("take the deletion back / delete", bench::Median(undos) / deletion, 1.5);
}

void AddToEveryTime(std::int32_t by) {
    for (JobEvent& event : editState.EditEvents) event.time() += by;
    for (JobEvent& event : editState.PristineEvents) event.time() += by;
}

void MeasureDelay() {
    OpenToFirstPage(path);
    std::int32_t delay = GetDelay(0);
    bench::ReportRatio(
        "change the first delay / add to every time", [&] { SetNewDelay(0, 0, ++delay); },
        [&] { AddToEveryTime(1), ++delay; }, 1.5);
}

// Page by page through the job, and from its end back to its beginning.
void Scroll(EditState& job, std::int32_t& top) {
    std::swap(editState, job);
    for (int page = 0; page < PagesAtOnce; ++page) {
        ShowPage(top);
        top = (top + PageRows) % (RowCount() - PageRows);
    }
    std::swap(editState, job);
}

EditState JobOfRows(int rowCount) {
    WriteJob(path, MixedJob(rowCount / RowsOfRound * EventsOfRound + EventsOfRound));
    OpenToFirstPage(path);
    return std::exchange(editState, {});
}

void MeasureScrolling() {
    EditState shortJob = JobOfRows(100);
    EditState longJob = JobOfRows(100'000);
    std::int32_t topOfShort = 0;
    std::int32_t topOfLong = 0;
    bench::ReportRatio(
        "scroll a page, 100,000 rows / 100 rows", [&] { Scroll(longJob, topOfLong); },
        [&] { Scroll(shortJob, topOfShort); }, 1.1);
}

}  // namespace

int main(int argumentCount, char** arguments) {
    mallopt(M_MMAP_THRESHOLD, 1 << 30);
    mallopt(M_TRIM_THRESHOLD, 1 << 30);
    return posix_files::RunBench(argumentCount, arguments, "editor_bench", [] {
        std::filesystem::create_directories(posix_files::RealPath("C:\\jobs"));
        folders.DataFolder = "C:\\jobs";
        WriteJob(path, MixedJob(Events));
        MeasureOpening();
        MeasureMemory();
        MeasureDeletionAndUndo();
        MeasureDelay();
        MeasureScrolling();
    });
}
