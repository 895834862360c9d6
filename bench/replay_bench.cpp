// What the replay loop adds to the calls that it makes: a job of moves, keys and wheel turns at maximum speed on the
// simulated desktop, against a bare loop of the same calls of the platform.

#include "replay/replay_events.h"

#include <cstdlib>

#include "bench/plain_events.h"
#include "bench/ratio.h"
#include "bench/silent_status_view.h"
#include "platform/input.h"
#include "platform/pump.h"
#include "platform/window_services.h"
#include "replay/target_search.h"
#include "replay/timing.h"
#include "settings/settings.h"
#include "simulated/desktop.h"

namespace {

constexpr int EventCount = 1'000'000;
constexpr std::size_t PumpEvery = 16;

// A wheel turn of nothing comes first: nothing is sent before the first success.
Job MixedJob() {
    Job job = JobForElement();
    job.Events.push_back(Mouse(platform::MouseWheel, 0));
    for (int i = 0; static_cast<int>(job.Events.size()) < EventCount; ++i) {
        job.Events.push_back(Mouse(platform::MouseMove, i));
        job.Events.push_back(Mouse(platform::MouseMove, i + 1));
        job.Events.push_back(Key(0, i));
        job.Events.push_back(Key(platform::KeyUp, i));
    }
    return job;
}

// Keys into one edit control, which are looked after at High: the foreground is asked for at each.
Job KeysJob(std::int32_t safetyLevel, platform::WindowHandle edit, platform::WindowHandle top) {
    Job job;
    job.SpeedPercent = MaximumSpeed;
    job.SafetyLevel = safetyLevel;
    job.Windows.push_back({platform::PlacementOf(edit), "", "Edit", 15});
    job.Windows.push_back({platform::PlacementOf(top), "", "Target", 0});
    WindowChain chain;
    chain.Depth = 1;
    chain.Path[1] = 1;
    job.Chains.push_back(chain);
    for (int i = 0; static_cast<int>(job.Events.size()) < EventCount; ++i) {
        job.Events.push_back(Key(0, i));
        job.Events.push_back(Key(platform::KeyUp, i));
    }
    return job;
}

void Replay(Job& job) {
    std::vector<ActionRow> rows;
    std::string reason;
    if (ReplayEvents(job, rows, reason, "") != 1) std::abort();
}

void SendMouse(const JobEvent& event) {
    platform::MoveCursorTo({event.dx(), event.dy()});
    platform::SendInput(event);
}

void BareLoop(Job& job) {
    for (std::size_t i = 0; i < job.Events.size(); ++i) {
        JobEvent& event = job.Events[i];
        platform::AsyncKeyState(platform::VirtualKeyEscape);
        if (event.dwType() == platform::InputMouse) {
            SendMouse(event);
        } else {
            platform::SendInput(event);
        }
        if (i % PumpEvery == PumpEvery - 1) platform::Pump();
    }
}

}  // namespace

int main() {
    simulated::KeepJournals(false);
    const TargetWindow window;
    settings.Display_Executing_Status = 0;
    Job job = MixedJob();
    bench::ReportRatio(
        "replay at maximum speed / the same calls", [&] { Replay(job); }, [&] { BareLoop(job); }, 2.0, 7);
    Job watched = KeysJob(SafetyHigh, window.edit, window.top);
    Job unwatched = KeysJob(SafetyLow, window.edit, window.top);
    const auto type = [&](Job& keys) {
        simulated::SetText(window.edit, "");
        Replay(keys);
    };
    bench::ReportRatio(
        "keys into one window, foreground checked / not checked", [&] { type(watched); }, [&] { type(unwatched); }, 1.2,
        7);
    return bench::ExitCode();
}
