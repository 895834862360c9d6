// What it costs to check a job of a million events, beside reading and folding it.
#include <filesystem>

#include "bench/mixed_job.h"
#include "bench/posix_files.h"
#include "bench/ratio.h"
#include "findings/check_job.h"
#include "folding/puni_listu.h"
#include "jobs/job_file.h"

namespace {

constexpr int Events = 1'000'000;
constexpr double Limit = 1.3;
const std::string path = "C:\\Long.tsj";

void Check() {
    Job job;
    ReadJob(path, job);
    CheckJob(job);
}

void Measure(const std::string& title, const Job& job) {
    WriteJob(path, job);
    bench::ReportRatio(
        title + " / read and fold", Check, [] { FoldForReplay(path); }, Limit);
}

// A fault in every third row, so that all of them are numbered.
Job FaultyJob() {
    Job job = MixedJob(Events);
    for (std::size_t i = 0; i < job.Events.size(); i += 20) {
        if (job.Events[i].WindowChainIndex >= 0) job.Events[i].WaitForWindow = 300;
    }
    return job;
}

}  // namespace

int main(int argumentCount, char** arguments) {
    return posix_files::RunBench(argumentCount, arguments, "findings_bench", [] {
        Measure("check a good job", MixedJob(Events));
        Measure("check a job with 20,000 findings", FaultyJob());
    });
}
