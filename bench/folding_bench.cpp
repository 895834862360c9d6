// What an event costs to fold in a long job, against what it costs in a short one: a job a hundred times as long may
// not be more than a hundred times as much work.

#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "bench/mixed_job.h"
#include "bench/ratio.h"
#include "folding/puni_listu.h"
#include "tests/support/job_builder.h"
#include "tests/support/open_in_editor.h"

namespace {

constexpr int ShortJob = 10'000;
constexpr int LongJob = 1'000'000;
constexpr double Limit = 1.25;
constexpr int Rounds = 15;

constexpr int LeftShift = 160;

const JobBuilder::Level edit{"Edit", "", 15};

// One row from end to end: characters with a modifier pressed and released all the way.
Job SingleRowJob(int events) {
    JobBuilder job;
    job.InWindow(edit, {"Notepad", "Untitled"});
    for (int i = 0; i < events / 10; ++i) job.KeyDown(LeftShift).Type("abc").KeyDown(LeftShift).Key(LeftShift);
    return job.Built();
}

// One row of notches.
Job WheelJob(int events) {
    JobBuilder job;
    job.InWindow(edit, {"Notepad", "Untitled"});
    for (int i = 0; i < events; ++i) job.Wheel(i % 3 == 0 ? 120 : -120);
    return job.Built();
}

// The long job, or as many short ones with as many events in all. Both lie in memory from end to end, so that neither
// is read from a cache that is too small for the other.
class Jobs {
public:
    Jobs(Job (*make)(int), int count) {
        const Job job = make(LongJob / count);
        jobs.assign(static_cast<std::size_t>(count), job);
    }

    std::size_t Events() const { return jobs.size() * jobs.front().Events.size(); }

    void FoldForRun() {
        for (const Job& job : jobs) FoldForReplay(job);
    }

    // Opened, as PopuniListu folds what it finds open. That is no part of the fold.
    void Open() {
        open.resize(jobs.size());
        for (std::size_t i = 0; i < jobs.size(); ++i) {
            std::swap(editState, open[i]);
            LayOpen(jobs[i]);
            std::swap(editState, open[i]);
        }
    }

    void FoldInEditor() {
        for (EditState& state : open) {
            std::swap(editState, state);
            PopuniListu("C:\\jobs\\My job.tsj", true);
            std::swap(editState, state);
        }
    }

private:
    std::vector<Job> jobs;
    std::vector<EditState> open;
};

// What an event costs in the long job against what it costs in the short ones.
template <class Prepare, class Fold>
void Measure(const std::string& title, Jobs& longJob, Jobs& shortJobs, const Prepare& prepare, const Fold& fold) {
    std::vector<double> longTimes;
    std::vector<double> shortTimes;
    for (int round = 0; round <= Rounds; ++round) {
        prepare(shortJobs);
        const double shortTime = bench::ProcessorSeconds([&] { fold(shortJobs); });
        prepare(longJob);
        const double longTime = bench::ProcessorSeconds([&] { fold(longJob); });
        if (round == 0) continue;  // the first time the memory is new
        shortTimes.push_back(shortTime / static_cast<double>(shortJobs.Events()));
        longTimes.push_back(longTime / static_cast<double>(longJob.Events()));
    }
    const double longTime = bench::Median(longTimes);
    std::printf("%-44s %6.0f ns an event\n", title.c_str(), longTime * 1e9);
    bench::Report(title + ", long / short", longTime / bench::Median(shortTimes), Limit);
}

void MeasureBoth(const std::string& title, Job (*make)(int)) {
    Jobs longJob(make, 1);
    Jobs shortJobs(make, LongJob / ShortJob);
    Measure(
        "run, " + title, longJob, shortJobs, [](Jobs&) {}, [](Jobs& jobs) { jobs.FoldForRun(); });
    Measure(
        "editor, " + title, longJob, shortJobs, [](Jobs& jobs) { jobs.Open(); },
        [](Jobs& jobs) { jobs.FoldInEditor(); });
}

}  // namespace

// No list of jobs is on show here.

int main() {
    MeasureBoth("mixed", MixedJob);
    MeasureBoth("one row of keys", SingleRowJob);
    MeasureBoth("one row of notches", WheelJob);
    return bench::ExitCode();
}
