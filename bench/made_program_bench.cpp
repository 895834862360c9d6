// A made program with a job of a million events, from its start to its first input, against reading the same job.
#include <stdexcept>
#include <string>

#include "bench/posix_files.h"
#include "bench/ratio.h"
#include "bench/silent_status_view.h"
#include "jobs/job_file.h"
#include "makeexe/make_executable.h"
#include "runner/run_made.h"
#include "settings/folders.h"
#include "simulated/desktop.h"
#include "storage/save_file.h"
#include "tests/support/job_builder.h"
#include "tests/support/least_program.h"

namespace {

constexpr int Events = 1'000'000;
const std::string jobPath = "C:\\Long.tsj";
const std::string madePath = "C:\\Long.exe";

struct FirstInput : std::runtime_error {
    FirstInput() : std::runtime_error("the first input") {}
};

// Long jobs are made of moves, which come 60 to 125 times a second: here a word and a click to 12 seconds of them. A
// move comes first, so that no search stands before the first input.
Job RecordedJob() {
    constexpr int Moves = 985;
    JobBuilder job;
    const JobBuilder::Level edit{"Edit", "", 15};
    for (int round = 0; round < Events / 1000; ++round) {
        for (int move = 0; move < Moves; ++move) job.Move(move, round);
        job.InWindow(edit, {"Notepad", "Untitled"}).Click(Left, 13, 13).Type("hello").Wheel(120);
    }
    return job.Built();
}

void WriteBoth() {
    WriteJob(jobPath, RecordedJob());
    SaveFile runner("C:\\execreator.bin");
    const std::string program = LeastProgram();
    runner.Write(program.data(), program.size());
    runner.Commit();
    folders.ProgramFolder = "C:";
    simulated::AnswerNextFileToSave(madePath);
    MakeExe(jobPath);
}

void RunToFirstInput() {
    try {
        RunMade(madePath);
        posix_files::Stop("the first input did not come");
    } catch (const FirstInput&) {
    }
}

void Measure() {
    WriteBoth();
    silentStatusView.onMouseEvent = [] { throw FirstInput(); };
    bench::ReportRatio(
        "made program, first input / read the job", RunToFirstInput,
        [] {
            Job job;
            ReadJob(jobPath, job);
        },
        1.5);
}

}  // namespace

int main(int argumentCount, char** arguments) {
    return posix_files::RunBench(argumentCount, arguments, "made-program-bench", Measure);
}
