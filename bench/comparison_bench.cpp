// What it costs to compare two jobs of a million events, beside folding them as the editor does.
#include <malloc.h>

#include "bench/mixed_job.h"
#include "bench/ratio.h"
#include "comparison/compare_jobs.h"
#include "tests/support/open_in_editor.h"

namespace {

constexpr int Events = 1'000'000;
constexpr int EditedRows = 10;
constexpr double Limit = 2.0;

// Ten rows all over the job: other texts, delays and places.
Job Edited(Job job) {
    const std::size_t step = job.Events.size() / EditedRows;
    for (std::size_t i = 0; i < EditedRows; ++i) {
        JobEvent& event = job.Events[i * step + 17];
        if (i % 2 == 0) event.dx() += 3;
        for (std::size_t later = i * step + 17; i % 2 == 1 && later < job.Events.size(); ++later) {
            job.Events[later].time() += 100;
        }
    }
    return job;
}

Job Unlike(Job job) {
    for (JobEvent& event : job.Events) {
        if (event.dwType() == platform::InputMouse) event.dx() += 10'000;
    }
    return job;
}

// What lies open is what the fold wants; that it is there is no part of the measure on either side.
void Measure(const std::string& title, const Job& a, const Job& b, double limit) {
    std::vector<double> comparisons;
    std::vector<double> folds;
    for (int round = 0; round <= 15; ++round) {
        Job copies[] = {a, b};
        const double comparison =
            bench::ProcessorSeconds([&] { JobComparison(std::move(copies[0]), std::move(copies[1])); });
        double fold = 0;
        for (const Job* const job : {&a, &b}) {
            LayOpen(*job);
            fold += bench::ProcessorSeconds([] { PopuniListu("C:\\jobs\\My job.tsj", true); });
        }
        if (round == 0) continue;  // the first time the memory is new
        comparisons.push_back(comparison);
        folds.push_back(fold);
    }
    bench::Report(title + " / fold both", bench::Median(comparisons) / bench::Median(folds), limit);
}

}  // namespace

int main() {
    mallopt(M_MMAP_THRESHOLD, 1 << 30);  // memory that has been used before, and not page by page from the system
    mallopt(M_TRIM_THRESHOLD, 1 << 30);
    const Job job = MixedJob(Events);
    Measure("compare, ten edited rows", job, Edited(job), Limit);
    Measure("compare, half the rows differ", job, Unlike(job), Limit * 1.5);
    return bench::ExitCode();
}
