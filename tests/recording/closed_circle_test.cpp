// The circle closes: what a user does is recorded through the real hooks, saved, read, and replayed on a desktop that
// is as it was at the start, and the replay does to it what the user did.
//
//     TESSARINE_SEED=417 closed_circle_tests
//
// plays one session and tells what it holds.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <optional>

#include "jobs/job_file.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/pump.h"
#include "random_user.h"
#include "recording/recording_session.h"
#include "replay/run_job.h"
#include "settings/settings.h"
#include "simulated/desktop.h"
#include "support/recording_view_stand_in.h"

namespace {

constexpr std::uint32_t Sessions = 1500;
constexpr int PauseBreak = 19;
constexpr std::uint32_t WithoutMovesEach = 5;
const std::string JobPath = "C:\\Data\\circle.tsj";

// One thing that a replay has to do.
struct Step {
    platform::InputRecord record;  // times and positions left out
    platform::Point position;      // of the mouse
    std::string window;            // "" where a job knows none
    std::int64_t notBefore = 0;    // ms after the start
    bool doubleClick = false;
};

bool IsMouse(const platform::InputRecord& record) {
    return record.dwType() == platform::InputMouse;
}

std::int32_t ActionOf(const platform::InputRecord& record) {
    return record.dwFlags() & ~platform::MouseAbsolute;
}

bool IsMove(const platform::InputRecord& record) {
    return IsMouse(record) && ActionOf(record) == platform::MouseMove;
}

platform::InputRecord Bare(platform::InputRecord record) {
    if (!IsMouse(record)) return record;
    record.dx() = record.dy() = 0;
    record.dwFlags() = ActionOf(record);
    return record;
}

// --- what is to come ---

// The rules by which a session becomes steps. All that a job loses by design stands here:
//  - without the option for moves, moves;
//  - of a double click, the times of its halves, a pixel between them, and the place of the moves between them; its
//    records carry the mouse data of the first event of the job, at which nobody looks;
//  - of the Scroll Lock key, everything but that the left button goes down and up, once for a held key;
//  - the window that a move passes over. (That of a release is compared: it is where its press and its drag led to.)
class Script {
public:
    Script(const UserSession& userSession, std::int64_t start) : session(userSession), startTick(start) {}

    std::vector<Step> Steps();

private:
    const JournalRange* RangeAt(const std::vector<JournalRange>& ranges) const;
    void AddInput(const simulated::InputEntry& entry);
    void AddDoubleClick(const JournalRange& range);
    void AddScrollLock();
    void Add(const Step& step) { steps.push_back(step); }

    const UserSession& session;
    const std::int64_t startTick;
    std::size_t place = 0;
    std::vector<Step> steps;
};

std::vector<Step> Script::Steps() {
    const auto& journal = simulated::HandJournal();
    while (place < journal.size()) {
        if (const JournalRange* range = RangeAt(session.doubleClicks)) {
            AddDoubleClick(*range);
            place = range->end;
        } else if (const JournalRange* held = RangeAt(session.scrollLocks)) {
            AddScrollLock();
            place = held->end;
        } else {
            AddInput(journal[place++]);
        }
    }
    return steps;
}

const JournalRange* Script::RangeAt(const std::vector<JournalRange>& ranges) const {
    for (const JournalRange& range : ranges) {
        if (range.begin == place) return &range;
    }
    return nullptr;
}

void Script::AddInput(const simulated::InputEntry& entry) {
    const bool move = IsMove(entry.record);
    if (move && settings.Capture_Mouse_Moves == 0) return;
    Add({Bare(entry.record), entry.position, move ? "" : NameOf(entry.window), entry.time - startTick});
}

void Script::AddDoubleClick(const JournalRange& range) {
    const auto& journal = simulated::HandJournal();
    Step step{Bare(journal[range.begin].record), journal[range.begin].position, NameOf(journal[range.begin].window),
              journal[range.begin].time - startTick, true};
    Add(step);
    for (std::size_t i = range.begin; i < range.end; ++i) {
        if (IsMove(journal[i].record)) AddInput(journal[i]);
    }
}

void Script::AddScrollLock() {
    for (const std::int32_t action : {platform::MouseLeftDown, platform::MouseLeftUp}) {
        Step step;
        step.record.dwFlags() = action;
        Add(step);
    }
}

// --- what came ---

// Walks through the journal of a replay and holds it against the steps.
class Comparison {
public:
    Comparison(const std::vector<Step>& wantedSteps, std::int64_t start) : steps(wantedSteps), startTick(start) {}

    // Nothing when all is as it should be.
    std::optional<std::string> FirstDifference();

private:
    std::optional<std::string> Compare(const Step& step);
    std::optional<std::string> TakeMoveTo(const Step& step);
    std::optional<std::string> TakeInput(const Step& step, std::int32_t action);
    std::string At(const std::string& what) const { return "entry " + std::to_string(place) + ": " + what; }

    const std::vector<Step>& steps;
    const std::int64_t startTick;
    const std::vector<simulated::InputEntry>& journal = simulated::Journal();
    std::size_t place = 0;
};

std::optional<std::string> Comparison::FirstDifference() {
    for (std::size_t i = 0; i < steps.size(); ++i) {
        if (const auto difference = Compare(steps[i])) return "step " + std::to_string(i) + ", " + *difference;
    }
    // Behind the last step the cursor goes back to where it was.
    if (place + 1 != journal.size() || !IsMove(journal.back().record)) return At("something follows the last step");
    return std::nullopt;
}

std::optional<std::string> Comparison::Compare(const Step& step) {
    if (IsMouse(step.record)) {
        if (const auto difference = TakeMoveTo(step)) return difference;
    }
    if (!step.doubleClick) return TakeInput(step, step.record.dwFlags());
    for (int half = 0; half < 2; ++half) {
        Step click = step;
        if (half == 1) click.window.clear();  // the first half may have opened or closed something
        if (const auto difference = TakeInput(click, platform::MouseLeftDown)) return difference;
        click.window.clear();
        if (const auto difference = TakeInput(click, platform::MouseLeftUp)) return difference;
    }
    return std::nullopt;
}

// Every mouse event is preceded by a move to its place.
std::optional<std::string> Comparison::TakeMoveTo(const Step& step) {
    if (place >= journal.size()) return At("the replay ends too early");
    const simulated::InputEntry& entry = journal[place++];
    if (!IsMove(entry.record) || entry.position != step.position) return At("no move to the place of the next event");
    return std::nullopt;
}

std::optional<std::string> Comparison::TakeInput(const Step& step, std::int32_t action) {
    if (place >= journal.size()) return At("the replay ends too early");
    const simulated::InputEntry& entry = journal[place++];
    platform::InputRecord wanted = step.record;
    if (IsMouse(wanted)) {
        wanted.dwFlags() = action;
        if (entry.position != step.position) return At("another position");
    }
    if (step.doubleClick) wanted.mouseData() = entry.record.mouseData();
    if (Bare(entry.record).word != wanted.word) return At("another input");
    if (!step.window.empty() && NameOf(entry.window) != step.window) {
        return At("for " + NameOf(entry.window) + " and not for " + step.window);
    }
    if (entry.time - startTick < step.notBefore - 1) return At("too early");  // a millisecond for rounding
    return std::nullopt;
}

// --- the circle ---

struct Recorded {
    std::vector<Step> steps;
    std::vector<std::pair<std::string, std::string>> texts;
};

void StopAndSave() {
    recordingViewStandIn.saveAs = [] { WriteJob(JobPath, RecordedJob()); };
    simulated::UserTaps(PauseBreak);
    platform::Pump();
}

Recorded Record(std::uint32_t seed) {
    BuildDesktop();
    StartRecording();
    const std::int64_t start = platform::TickCount();
    const UserSession session = PlayUser(seed);
    Recorded recorded{Script(session, start).Steps(), TextsOnDesktop()};
    StopAndSave();
    return recorded;
}

using Texts = std::vector<std::pair<std::string, std::string>>;

std::optional<std::string> TextDifference(const Texts& typed, const Texts& replayed) {
    if (typed == replayed) return std::nullopt;
    std::string told = "other texts in the fields:";
    for (const auto& [name, text] : typed) told += "\n  typed    " + name + ": " + text;
    for (const auto& [name, text] : replayed) told += "\n  replayed " + name + ": " + text;
    return told;
}

void TellJournal(const char* what, const std::vector<simulated::InputEntry>& journal, std::int64_t start) {
    std::printf("%s\n", what);
    int place = 0;
    for (const simulated::InputEntry& entry : journal) {
        const bool mouse = IsMouse(entry.record);
        std::printf("%5d %7lld %-5s %6d %3d  at %4d,%4d%s  %s\n", place++, static_cast<long long>(entry.time - start),
                    mouse ? "mouse" : "key", mouse ? ActionOf(entry.record) : entry.record.KeyCode() & 0xFFFF,
                    mouse ? entry.record.mouseData() : entry.record.KeyState(), entry.position.x, entry.position.y,
                    entry.doubleClick ? " double" : "", NameOf(entry.window).c_str());
    }
}

bool TellsAll() {
    return std::getenv("TESSARINE_TELL") != nullptr;
}

// Nothing when the circle closes.
std::optional<std::string> Circle(std::uint32_t seed) {
    settings.Display_Recording_Window = 0;
    settings.Display_Executing_Status = 0;
    settings.Capture_Mouse_Moves = seed % WithoutMovesEach == 0 ? 0 : 1;
    platform::MakeFolder("C:\\Data");
    const Recorded recorded = Record(seed);
    if (TellsAll()) TellJournal("the user:", simulated::HandJournal(), 0);
    BuildDesktop();
    simulated::ClearJournals();
    const std::int64_t start = platform::TickCount();
    if (TellsAll()) std::atexit([] { TellJournal("the replay:", simulated::Journal(), 0); });
    if (const std::int32_t passes = RunJob(JobPath, 0, "", true); passes != 1) {
        const auto& boxes = simulated::ShownBoxes();
        return "RunJob gave " + std::to_string(passes) + (boxes.empty() ? "" : ": " + boxes.back().text);
    }
    simulated::RunFor(1000);  // for what is still to open
    if (const auto difference = Comparison(recorded.steps, start).FirstDifference()) return difference;
    if (recorded.steps.empty()) return "the user did nothing";
    return TextDifference(recorded.texts, TextsOnDesktop());
}

// Tells of a difference and of the way back to it. True when there is none.
bool TellCircle(std::uint32_t seed) {
    const std::optional<std::string> difference = Circle(seed);
    if (difference) std::printf("TESSARINE_SEED=%u: %s\n", seed, difference->c_str());
    std::fflush(stdout);
    return !difference;
}

// The desktop of a process cannot be made as new, so each session has a process of its own.
bool CircleInItsOwnProcess(std::uint32_t seed) {
    std::fflush(stdout);
    const pid_t child = fork();
    if (child == 0) _exit(TellCircle(seed) ? 0 : 1);
    int status = 0;
    if (child < 0 || waitpid(child, &status, 0) != child) return false;
    if (!WIFEXITED(status)) std::printf("TESSARINE_SEED=%u: ended by signal %d\n", seed, WTERMSIG(status));
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

TEST(ClosedCircle, EverySessionIsReplayedAsItWas) {
    if (const char* seed = std::getenv("TESSARINE_SEED")) {
        EXPECT_TRUE(TellCircle(static_cast<std::uint32_t>(std::strtoul(seed, nullptr, 10))));
        return;
    }
    std::printf("seeds 1 to %u\n", Sessions);
    std::uint32_t failed = 0;
    for (std::uint32_t seed = 1; seed <= Sessions; ++seed) {
        if (!CircleInItsOwnProcess(seed)) ++failed;
    }
    EXPECT_EQ(failed, 0U) << "of " << Sessions << " sessions; each is played again by its line above";
}

}  // namespace
