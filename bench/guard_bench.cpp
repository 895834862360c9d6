// What the guard adds to the start of a run. Runs on a Wine desktop (tools/bench_on_desktop.py).

#include <windows.h>

#include <string>
#include <vector>

#include "bench/patience.h"
#include "bench/ratio.h"
#include "bench/silent_status_view.h"
#include "guard/guard_process.h"
#include "jobs/job_file.h"
#include "platform/clock.h"
#include "replay/run_job.h"
#include "settings/settings.h"
#include "win32/guard.h"
#include "win32/handles.h"

namespace {

std::int64_t firstEvent = 0;

void NoteMouseEvent() {
    if (firstEvent == 0) firstEvent = platform::Microseconds();
}

std::string SmallJob() {
    char folder[MAX_PATH] = "";
    GetTempPathA(sizeof folder, folder);
    Job job;
    JobEvent move;
    move.dwType() = platform::InputMouse;
    move.dwFlags() = MouseFlagBase + platform::MouseMove;
    move.dx() = move.dy() = 300;
    job.Events.push_back(move);
    std::string path = folder + std::string("start bench.tsj");
    WriteJob(path, job);
    return path;
}

// From the call to the first event, in ms.
double StartOfRun(const std::string& path) {
    firstEvent = 0;
    const std::int64_t began = platform::Microseconds();
    RunJob(path, 0, "", true);
    return static_cast<double>(firstEvent - began) / 1000.0;
}

bool GuardLives() {
    return platform::GuardProcessId() != 0;
}

void KillGuard() {
    const platform::OwnedHandle guard(OpenProcess(PROCESS_TERMINATE | SYNCHRONIZE, FALSE, platform::GuardProcessId()));
    TerminateProcess(guard.Get(), 1);
    WaitForSingleObject(guard.Get(), bench::PatienceMs);
    platform::Sleep(100);
}

// A run that finds its guard alive starts none.
void BenchGuard() {
    const std::string path = SmallJob();
    StartOfRun(path);
    std::vector<double> with;
    std::vector<double> without;
    for (int round = 0; round < 15; ++round) {
        bench::WaitFor(GuardLives, "the guard");
        platform::Sleep(200);  // it has come up
        without.push_back(StartOfRun(path));
        KillGuard();
        with.push_back(StartOfRun(path));
    }
    std::printf("start of a run: %.2f ms with the guard, %.2f ms without\n", bench::Median(with),
                bench::Median(without));
    bench::Report("start of a run with the guard, against without, ms", bench::Median(with) - bench::Median(without),
                  5.0);
    DeleteFileA(path.c_str());
}

}  // namespace

int main() {
    if (const auto guard = GuardCommandOfThisProcess()) return RunGuard(*guard);
    settings.Display_Executing_Status = 0;
    silentStatusView.onMouseEvent = NoteMouseEvent;
    BenchGuard();
    return bench::ExitCode();
}
