// What a report costs a run at maximum speed: each row's moments, searches and verdict are taken down on the way.
#include <cstdlib>

#include "bench/plain_events.h"
#include "bench/ratio.h"
#include "folding/puni_listu.h"
#include "platform/input.h"
#include "platform/window_services.h"
#include "replay/replay_events.h"
#include "replay/target_search.h"
#include "settings/settings.h"
#include "simulated/desktop.h"
#include "tsj_desktop/run_report.h"

namespace {

constexpr std::size_t EventCount = 200'000;
constexpr int KeysInARow = 8;
constexpr int MovesInARow = 10;

JobEvent Aimed(JobEvent event) {
    event.WindowChainIndex = 0;
    return event;
}

// A wheel turn of nothing comes first: nothing is sent before the first success. Then rows of turns, moves and keys.
Job JobOfRows() {
    Job job = JobForElement();
    job.Events.push_back(Aimed(Mouse(platform::MouseWheel, 0)));
    for (int i = 0; job.Events.size() < EventCount; ++i) {
        for (int move = 0; move < MovesInARow; ++move) job.Events.push_back(Mouse(platform::MouseMove, i + move));
        job.Events.push_back(Aimed(Mouse(platform::MouseMiddleDown, i)));
        job.Events.push_back(Mouse(platform::MouseMiddleUp, i));
        for (int key = 0; key < KeysInARow; ++key) {
            job.Events.push_back(Key(0, i));
            job.Events.push_back(Key(platform::KeyUp, i));
        }
    }
    return job;
}

void Replay(Job& job, const std::vector<ActionRow>& folded, RunListener* listener) {
    runListener = listener;
    std::vector<ActionRow> rows = folded;
    std::string reason;
    if (ReplayEvents(job, rows, reason, "") != 1) std::abort();
    runListener = nullptr;
}

}  // namespace

int main() {
    simulated::KeepJournals(false);
    const TargetWindow window;
    settings.Display_Executing_Status = 0;
    Job job = JobOfRows();
    const std::vector<ActionRow> rows = FoldForReplay(job);
    bench::ReportRatio(
        "a run with a report / without",
        [&] {
            simulated::SetText(window.edit, "");
            RunReport report;
            Replay(job, rows, &report);
            if (report.rows.back().verdict != Verdict::Ok) std::abort();
        },
        [&] {
            simulated::SetText(window.edit, "");
            Replay(job, rows, nullptr);
        },
        1.1);
    return bench::ExitCode();
}
