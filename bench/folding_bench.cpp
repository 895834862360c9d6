// What an event costs to fold in a long job, against what it costs in a short one: a job a hundred times as long may
// not be more than a hundred times as much work.

#include <cstdio>
#include <string>
#include <vector>

#include "bench/ratio.h"
#include "folding/puni_listu.h"
#include "tests/support/job_builder.h"
#include "tests/support/open_in_editor.h"

namespace {

constexpr int ShortJob = 10'000;
constexpr int LongJob = 1'000'000;
constexpr double Limit = 1.25;

constexpr int Enter = 13;
constexpr int LeftShift = 160;

const JobBuilder::Level edit{"Edit", "", 15};

// Typing with named keys and a held modifier, moves, clicks and the wheel, in three windows.
Job MixedJob(int events) {
    const JobBuilder::Level tops[] = {{"Notepad", "Untitled"}, {"Calc", "Calculator"}, {"Progman", "Program Manager"}};
    JobBuilder job;
    for (int round = 0; round < events / 39; ++round) {  // of 39 events each
        job.InWindow(edit, tops[round % 3]).KeyDown(LeftShift).KeyDown(LeftShift).Type("hello").KeyUp(LeftShift);
        job.Type(" x").Key(Enter);
        for (int move = 0; move < 13; ++move) job.Move(move, round % 500);
        job.Click(Left, 13, 13).Wheel(120).Wheel(-120).Click(Right, 5, 5).Wheel(60);
    }
    return job.Built();
}

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

template <class Fold>
void Measure(const char* title, Job (*make)(int), const Fold& fold) {
    const Job longJob = make(LongJob);
    const Job shortJob = make(ShortJob);
    const double longTime = bench::Seconds([&] { fold(longJob); });
    std::printf("%-60s %6.0f ns an event\n", title, longTime * 1e9 / static_cast<double>(longJob.Events.size()));
    const std::size_t times = longJob.Events.size() / shortJob.Events.size();
    bench::ReportRatio(
        std::string(title) + ", long / short", [&] { fold(longJob); },
        [&] {
            for (std::size_t i = 0; i < times; ++i) fold(shortJob);
        },
        Limit);
}

void MeasureBoth(const char* replayTitle, const char* editorTitle, Job (*make)(int)) {
    Measure(replayTitle, make, [](const Job& job) { FoldForReplay(job); });
    Measure(editorTitle, make, [](const Job& job) { OpenInEditor(job); });
}

}  // namespace

// No list of jobs is on show here.

int main() {
    MeasureBoth("run, mixed", "editor, mixed", MixedJob);
    MeasureBoth("run, one row of keys", "editor, one row of keys", SingleRowJob);
    MeasureBoth("run, one row of notches", "editor, one row of notches", WheelJob);
    return bench::ExitCode();
}
