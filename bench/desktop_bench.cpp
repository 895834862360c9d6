// The figures of the real desktop: how exact waits are, how late a replay ends, what an event costs, and what a search
// costs when its window is in place. Runs on a Wine desktop (tools/bench_on_desktop.py).

#include <windows.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "bench/bench_target.h"
#include "bench/ratio.h"
#include "bench/silent_status_view.h"
#include "folding/puni_listu.h"
#include "identity/window_identity.h"
#include "jobs/job_records.h"
#include "platform/clock.h"
#include "platform/input.h"
#include "platform/pump.h"
#include "platform/window_services.h"
#include "replay/replay_events.h"
#include "replay/status_view.h"
#include "replay/target_search.h"
#include "replay/timing.h"
#include "settings/settings.h"

namespace {

std::vector<double> Sorted(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values;
}

double Quantile(const std::vector<double>& sorted, double share) {
    return sorted[static_cast<std::size_t>(share * static_cast<double>(sorted.size() - 1))];
}

// --- waits ---

void BenchWaits() {
    std::vector<double> waits;
    std::vector<double> sleeps;
    for (int round = 0; round < 100; ++round) {
        std::int64_t began = platform::Microseconds();
        TimedWait(333, false, 0);
        waits.push_back(static_cast<double>(platform::Microseconds() - began - 333'000));
        for (int i = 0; i < 3; ++i) {
            began = platform::Microseconds();
            ::Sleep(20);
            sleeps.push_back(static_cast<double>(platform::Microseconds() - began - 20'000));
        }
    }
    waits = Sorted(waits);
    sleeps = Sorted(sleeps);
    bench::Report("overshoot of TimedWait(333) / of Sleep(20), median", Quantile(waits, 0.5) / Quantile(sleeps, 0.5),
                  0.1);
    bench::Report("overshoot of TimedWait(333) / of Sleep(20), 99th percentile",
                  Quantile(waits, 0.99) / Quantile(sleeps, 0.99), 1.0);
}

// The loop asks the status view once for every mouse event.
struct MouseEventClock {
    std::vector<std::int64_t> moments;
} mouseEvents;

void NoteMouseEvent() {
    mouseEvents.moments.push_back(platform::Microseconds());
}

// --- a replay on time ---

JobEvent MoveTo(std::int32_t x, std::int32_t y, std::int32_t time) {
    JobEvent event;
    event.dwType() = platform::InputMouse;
    event.dwFlags() = MouseFlagBase + platform::MouseMove;
    event.dx() = x;
    event.dy() = y;
    event.time() = time;
    return event;
}

// How late the last event comes, in ms from the call: what ReplayEvents does before its first event counts too.
double LatenessOfReplay() {
    constexpr int Events = 500;
    constexpr int GapMs = 7;
    Job job;
    for (int i = 0; i < Events; ++i) job.Events.push_back(MoveTo(100 + i, 200, GapMs * i));
    std::vector<ActionRow> rows;
    std::string reason;
    mouseEvents.moments.clear();
    const std::int64_t began = platform::Microseconds();
    ReplayEvents(job, rows, reason, "");
    return static_cast<double>(mouseEvents.moments.back() - began) / 1000.0 - GapMs * (Events - 1);
}

void BenchLateness() {
    std::vector<double> rounds(5);
    LatenessOfReplay();  // the first run builds the dictionary and starts the display driver
    std::ranges::generate(rounds, LatenessOfReplay);
    bench::Report("lateness at the end of 500 events, ms (worst of 5)", Sorted(rounds).back(), 1.0);
}

// --- events without gaps ---

constexpr int EventCount = 100'000;
constexpr int MoveEvery = 5;       // one event in five moves the mouse, the others press or release a key
constexpr int HarmlessKey = 0x7E;  // F15: nothing listens to it
constexpr int PumpEvery = 16;

std::vector<JobEvent> GaplessEvents() {
    std::vector<JobEvent> events;
    for (int i = 0; i < EventCount; ++i) {
        if (i == 0) {
            // A wheel turn of nothing: nothing is sent before the first success, and this is one.
            events.push_back(MoveTo(100, 200, 0));
            events.back().dwFlags() = MouseFlagBase + platform::MouseWheel;
            continue;
        }
        if (i % MoveEvery == 0) {
            events.push_back(MoveTo(100 + i % 500, 200 + i % 300, 0));
            continue;
        }
        JobEvent event;
        event.dwType() = platform::InputKeyboard;
        event.KeyCode() = HarmlessKey;
        event.KeyState() = i % 2 == 0 ? 0 : platform::KeyUp;
        events.push_back(event);
    }
    return events;
}

struct Stretch {
    double all = 0;
    double first = 0;  // the first tenth, in microseconds
    double last = 0;   // the last tenth
};

double Between(std::size_t from, std::size_t to) {
    return static_cast<double>(mouseEvents.moments[to] - mouseEvents.moments[from]);
}

Stretch Measured(double all) {
    const std::size_t count = mouseEvents.moments.size();
    return {all, Between(0, count / 10), Between(count - 1 - count / 10, count - 1)};
}

Stretch ReplayWithoutGaps() {
    Job job;
    job.SpeedPercent = MaximumSpeed;
    job.Events = GaplessEvents();
    std::vector<ActionRow> rows;
    std::string reason;
    mouseEvents.moments.clear();
    const std::int64_t began = platform::Microseconds();
    ReplayEvents(job, rows, reason, "");
    return Measured(static_cast<double>(platform::Microseconds() - began));
}

void SendBare(const JobEvent& event) {
    if (event.dwType() == platform::InputMouse) {
        NoteMouseEvent();
        platform::MoveCursorTo({event.dx(), event.dy()});
        platform::SendInput(event);
    } else {
        platform::SendInput(event);
    }
}

Stretch BareLoop() {
    std::vector<JobEvent> events = GaplessEvents();
    mouseEvents.moments.clear();
    const std::int64_t began = platform::Microseconds();
    for (std::size_t i = 0; i < events.size(); ++i) {
        platform::AsyncKeyState(platform::VirtualKeyEscape);
        SendBare(events[i]);
        if (i % PumpEvery == PumpEvery - 1) platform::Pump();
    }
    return Measured(static_cast<double>(platform::Microseconds() - began));
}

void BenchGapless() {
    std::vector<double> ratios;
    std::vector<double> drifts;
    for (int round = 0; round < 3; ++round) {
        const Stretch replay = ReplayWithoutGaps();
        const Stretch bare = BareLoop();
        ratios.push_back(replay.all / bare.all);
        drifts.push_back(replay.last / replay.first);
    }
    bench::Report("100,000 events without gaps / bare loop of the same calls", Quantile(Sorted(ratios), 0.5), 1.1);
    bench::Report("the last 10,000 events / the first 10,000", Quantile(Sorted(drifts), 0.5), 1.2);
}

// --- the search ---

// What has to be asked to know that the window under the cursor is the recorded one, all the way up and still in
// place, and nothing twice.
void BareQueries() {
    platform::AsyncKeyState(platform::VirtualKeyEscape);
    const platform::WindowHandle leaf = platform::WindowAt(platform::CursorPosition());
    const std::string leafClass = platform::ClassOf(leaf);
    const std::string leafCaption = platform::CaptionOf(leaf);
    platform::PlacementOf(leaf);
    const platform::WindowHandle top = platform::ParentOf(leaf);
    const std::string topClass = platform::ClassOf(top);
    const std::string topCaption = platform::CaptionOf(top);
    platform::FindTopWindow(leafClass, leafCaption);
    platform::FindTopWindow(topClass, topCaption);
    platform::Pump();
    platform::Pump();
}

template <class Action>
double MicrosecondsOf(int times, const Action& action) {
    const std::int64_t began = platform::Microseconds();
    for (int i = 0; i < times; ++i) action();
    return static_cast<double>(platform::Microseconds() - began) / times;
}

void BenchSearch() {
    const platform::WindowHandle target = bench::StartTarget();
    MoveCursor(400, 400);
    platform::Sleep(300);
    JobEvent event;
    CaptureWindow(event, false);
    SearchRequest request;
    request.chainIndex = event.WindowChainIndex;
    std::string reason;
    const auto search = [&] {
        if (FindTarget(request, windowArrays.windows, windowArrays.chains, reason) != TargetReady) std::exit(3);
    };
    search();  // puts the window in place; from now on it is
    std::vector<double> ratios(15);
    std::ranges::generate(ratios, [&] { return MicrosecondsOf(200, search) / MicrosecondsOf(200, BareQueries); });
    bench::Report("FindTarget when all is in place / the bare window queries", Quantile(Sorted(ratios), 0.5), 1.3);
    bench::CloseTarget(target);
}

}  // namespace

int main(int count, char** words) {
    if (bench::IsTarget(count, words)) return bench::RunTarget();
    settings.Display_Executing_Status = 0;
    silentStatusView.onMouseEvent = NoteMouseEvent;
    BenchWaits();
    BenchLateness();
    BenchGapless();
    BenchSearch();
    return bench::ExitCode();
}
