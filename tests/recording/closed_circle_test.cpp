// The circle closes: what a user does is recorded through the real hooks, saved, read, and replayed on a desktop that
// is as it was at the start, and the replay does to it what the user did. On another desktop it does so, too, or ends
// with a failure that names the reason.
//
//     TESSARINE_SEED=417 closed_circle_tests --gtest_filter=*AsItWas
//
// plays one session, and with TESSARINE_TELL=1 tells all that happened in it. TESSARINE_SESSIONS and TESSARINE_FROM
// sweep through others than the usual seeds (see tools/circle.sh).
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>

#include "jobs/job_file.h"
#include "other_desktop.h"
#include "platform/files.h"
#include "random_user.h"
#include "recording/recording_session.h"
#include "replay/run_job.h"
#include "replay/target_search.h"
#include "settings/settings.h"
#include "support/recording_view_stand_in.h"
#include "support/story.h"

namespace {

constexpr std::uint32_t Sessions = 1500;
constexpr int PauseBreak = 19;
constexpr std::uint32_t WithoutMovesEach = 5;
const std::string JobPath = "C:\\Data\\circle.tsj";

// Nothing when all is as it should be.
using Difference = std::optional<std::string>;

// One thing that a replay has to do.
struct Step {
    platform::InputRecord record;  // times and positions left out
    platform::Point position;      // of the mouse
    platform::Point place;         // the same within the window
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

    std::vector<Step> Steps() {
        while (place < journal.size()) {
            if (const JournalRange* range = RangeAt(session.doubleClicks)) {
                AddDoubleClick(range->end);
            } else if (const JournalRange* held = RangeAt(session.scrollLocks)) {
                for (const std::int32_t action : {platform::MouseLeftDown, platform::MouseLeftUp}) {
                    steps.emplace_back().record.dwFlags() = action;
                }
                place = held->end;
            } else {
                AddInput(journal[place++]);
            }
        }
        return steps;
    }

private:
    const JournalRange* RangeAt(const std::vector<JournalRange>& ranges) const {
        const auto found = std::ranges::find(ranges, place, &JournalRange::begin);
        return found == ranges.end() ? nullptr : &*found;
    }
    Step StepOf(const simulated::InputEntry& entry) const {
        return {Bare(entry.record), entry.position, entry.place, NameOf(entry.window), entry.time - startTick};
    }
    void AddInput(const simulated::InputEntry& entry) {
        if (!IsMove(entry.record)) return steps.push_back(StepOf(entry));
        if (settings.Capture_Mouse_Moves == 0) return;
        steps.push_back(StepOf(entry));
        steps.back().window.clear();
    }
    void AddDoubleClick(std::size_t end) {
        steps.push_back(StepOf(journal[place]));
        steps.back().doubleClick = true;
        for (; place < end; ++place) {
            if (IsMove(journal[place].record)) AddInput(journal[place]);
        }
    }

    const UserSession& session;
    const std::int64_t startTick;
    const std::vector<simulated::InputEntry>& journal = simulated::HandJournal();
    std::size_t place = 0;
    std::vector<Step> steps;
};

// --- what came ---

// How exactly a replay has to do what the user did.
enum class Exactness {
    SameDesktop,  // every input to the same window
    High,         // every press, key and wheel turn to the same window, presses to the same place in it
    Medium,       // to the same top-level window
};

// "editor" of "editor.text", "twin.editor" of "twin.editor.text".
std::string ProgramOf(const std::string& name) {
    const bool twin = name.starts_with("twin.");
    return name.substr(0, name.find('.', twin ? 5 : 0));
}

bool IsRelease(const platform::InputRecord& record) {
    constexpr std::int32_t Releases =
        platform::MouseLeftUp | platform::MouseRightUp | platform::MouseMiddleUp | platform::MouseXUp;
    return IsMouse(record) ? (ActionOf(record) & Releases) != 0 : (record.KeyState() & platform::KeyUp) != 0;
}

// Walks through the journal of a replay and holds it against the steps.
class Comparison {
public:
    Comparison(const std::vector<Step>& wantedSteps, std::int64_t start, Exactness wantedExactness)
        : steps(wantedSteps), startTick(start), exactness(wantedExactness) {}

    // Nothing when all is as it should be. Of a run that was broken off, what was sent until then has to be right; it
    // then let go of what it held.
    Difference FirstDifference(bool brokenOff);

private:
    Difference Compare(const Step& step);
    Difference TakeMoveTo(const Step& step);
    Difference TakeInput(const Step& step, std::int32_t action);
    Difference WrongWindow(const Step& step, const simulated::InputEntry& entry) const;
    bool OnlyReleasesFollow() const;
    std::string At(const std::string& what) const { return "entry " + std::to_string(place) + ": " + what; }

    const std::vector<Step>& steps;
    const std::int64_t startTick;
    const Exactness exactness;
    const std::vector<simulated::InputEntry>& journal = simulated::Journal();
    std::size_t place = 0;
};

Difference Comparison::FirstDifference(bool brokenOff) {
    for (std::size_t i = 0; i < steps.size(); ++i) {
        const auto difference = Compare(steps[i]);
        if (brokenOff && OnlyReleasesFollow()) return std::nullopt;
        if (difference) return "step " + std::to_string(i) + ", " + *difference;
    }
    // Behind the last step the cursor goes back to where it was.
    if (!brokenOff && place + 1 == journal.size() && IsMove(journal.back().record)) return std::nullopt;
    return At("something follows the last step");
}

bool Comparison::OnlyReleasesFollow() const {
    for (std::size_t i = place; i < journal.size(); ++i) {
        if (!IsRelease(journal[i].record)) return false;
    }
    return true;
}

Difference Comparison::Compare(const Step& step) {
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

// Every mouse event is preceded by a move to its place, and by another one when it had to wait.
Difference Comparison::TakeMoveTo(const Step& step) {
    if (place >= journal.size()) return At("the replay ends too early");
    const simulated::InputEntry& entry = journal[place];
    if (!IsMove(entry.record) || entry.position != step.position) return At("no move to the place of the next event");
    ++place;
    while (exactness != Exactness::SameDesktop && !IsMove(step.record) && place < journal.size() &&
           IsMove(journal[place].record) && journal[place].position == step.position) {
        ++place;
    }
    return std::nullopt;
}

Difference Comparison::TakeInput(const Step& step, std::int32_t action) {
    if (place >= journal.size()) return At("the replay ends too early");
    const simulated::InputEntry& entry = journal[place];
    platform::InputRecord wanted = step.record;
    if (IsMouse(wanted)) {
        wanted.dwFlags() = action;
        if (entry.position != step.position) return At("another position");
    }
    if (step.doubleClick) wanted.mouseData() = entry.record.mouseData();
    if (Bare(entry.record).word != wanted.word) return At("another input");
    if (auto wrong = WrongWindow(step, entry)) return At(*wrong);
    if (entry.time - startTick < step.notBefore - 1) return At("too early");  // a millisecond for rounding
    ++place;
    return std::nullopt;
}

// A job knows no window of a release: it goes where its press went, or where a drag has led to.
Difference Comparison::WrongWindow(const Step& step, const simulated::InputEntry& entry) const {
    const bool exact = exactness == Exactness::SameDesktop;
    if (step.window.empty() || (!exact && IsRelease(entry.record))) return std::nullopt;
    const std::string name = NameOf(entry.window);
    const bool same = exactness == Exactness::Medium ? ProgramOf(name) == ProgramOf(step.window) : name == step.window;
    if (!same) return "for " + name + " and not for " + step.window;
    const bool press = IsMouse(entry.record) && ActionOf(entry.record) != platform::MouseWheel;
    if (exactness == Exactness::High && press && entry.place != step.place) {
        return "at " + std::to_string(entry.place.x) + "," + std::to_string(entry.place.y) + " in " + name +
               " and not at " + std::to_string(step.place.x) + "," + std::to_string(step.place.y);
    }
    return std::nullopt;
}

// --- the circle ---

void TellJournal(const char* what, const std::vector<simulated::InputEntry>& journal) {
    std::printf("%s\n", what);
    int place = 0;
    for (const simulated::InputEntry& entry : journal) {
        const bool mouse = IsMouse(entry.record);
        std::printf("%5d %7lld %-5s %6d %3d  at %4d,%4d%s  %s\n", place++, static_cast<long long>(entry.time),
                    mouse ? "mouse" : "key", mouse ? ActionOf(entry.record) : entry.record.KeyCode() & 0xFFFF,
                    mouse ? entry.record.mouseData() : entry.record.KeyState(), entry.position.x, entry.position.y,
                    entry.doubleClick ? " double" : "", NameOf(entry.window).c_str());
    }
}

bool TellsAll() {
    return std::getenv("TESSARINE_TELL") != nullptr;
}

using Texts = std::vector<std::pair<std::string, std::string>>;

struct Recorded {
    std::vector<Step> steps;
    Texts texts;
};

void StopAndSave(std::int32_t safetyLevel) {
    recordingViewStandIn.saveAs = [safetyLevel] {
        Job job = RecordedJob();
        job.SafetyLevel = safetyLevel;
        WriteJob(JobPath, job);
    };
    simulated::UserTaps(PauseBreak);
    platform::Pump();
}

Recorded Record(std::uint32_t seed, std::int32_t safetyLevel) {
    settings.Display_Recording_Window = 0;
    settings.Display_Executing_Status = 0;
    settings.Capture_Mouse_Moves = seed % WithoutMovesEach == 0 ? 0 : 1;
    platform::MakeFolder("C:\\Data");
    BuildDesktop();
    StartRecording();
    const std::int64_t start = platform::TickCount();
    const UserSession session = PlayUser(seed);
    Recorded recorded{Script(session, start).Steps(), TextsOnDesktop()};
    StopAndSave(safetyLevel);
    if (TellsAll()) TellJournal("the user:", simulated::HandJournal());
    return recorded;
}

Difference TextDifference(const Texts& typed, const Texts& replayed) {
    if (typed == replayed) return std::nullopt;
    std::string told = "other texts in the fields:";
    for (const auto& [name, text] : typed) told += "\n  typed    " + name + ": " + text;
    for (const auto& [name, text] : replayed) told += "\n  replayed " + name + ": " + text;
    return told;
}

// A program that is still to open has no field, one that got nothing an empty one.
Texts Written(Texts texts) {
    std::erase_if(texts, [](const auto& text) { return text.second.empty(); });
    return texts;
}

// Plays the job of the recording. What it gave, and the text of a failure without the name of the job.
std::int32_t Replay(std::string& reason) {
    simulated::ClearJournals();
    const std::int32_t passes = RunJob(JobPath, 0, "", true);
    if (TellsAll()) TellJournal("the replay:", simulated::Journal());
    const auto& boxes = simulated::ShownBoxes();
    const std::string text = boxes.empty() ? "" : boxes.back().text;
    reason = text.substr(std::min(text.find('\n'), text.size() - 1) + 1);
    simulated::RunFor(1000);  // for what is still to open
    return passes;
}

// Nothing when the circle closes.
Difference SameDesktop(std::uint32_t seed) {
    const Recorded recorded = Record(seed, SafetyHigh);
    if (recorded.steps.empty()) return "the user did nothing";
    BuildDesktop();
    const std::int64_t start = platform::TickCount();
    std::string reason;
    if (const std::int32_t passes = Replay(reason); passes != 1) {
        return "RunJob gave " + std::to_string(passes) + ": " + reason;
    }
    Comparison comparison(recorded.steps, start, Exactness::SameDesktop);
    if (const auto difference = comparison.FirstDifference(false)) return difference;
    return TextDifference(recorded.texts, TextsOnDesktop());
}

// Nothing when every window got what it got in the recording, or all was right until a failure that names its reason.
Difference OtherDesktop(std::uint32_t seed) {
    const bool high = seed % 2 == 0;
    const Recorded recorded = Record(seed, high ? SafetyHigh : SafetyMedium);
    BuildOtherDesktop(seed);
    const std::int64_t start = platform::TickCount();
    std::string reason;
    const std::int32_t passes = Replay(reason);
    if (TellsAll()) std::printf("RunJob gave %d: %s\n", passes, reason.c_str());
    if (passes != 1 && reason.empty()) return "RunJob gave " + std::to_string(passes) + " and no reason";
    Comparison comparison(recorded.steps, start, high ? Exactness::High : Exactness::Medium);
    if (const auto difference = comparison.FirstDifference(passes != 1)) return difference;
    if (!high || passes != 1) return std::nullopt;
    return TextDifference(Written(recorded.texts), Written(TextsOnDesktop()));
}

// --- many of them ---

using Circle = Difference (*)(std::uint32_t seed);

// Tells of a difference and of the way back to it. True when there is none.
bool TellCircle(Circle circle, std::uint32_t seed) {
    const Difference difference = circle(seed);
    if (difference) std::printf("TESSARINE_SEED=%u: %s\n", seed, difference->c_str());
    std::fflush(stdout);
    return !difference;
}

// The desktop of a process cannot be made as new, so each session has a process of its own.
bool CircleInItsOwnProcess(Circle circle, std::uint32_t seed) {
    std::fflush(stdout);
    const pid_t child = fork();
    if (child == 0) _exit(TellCircle(circle, seed) ? 0 : 1);
    int status = 0;
    if (child < 0 || waitpid(child, &status, 0) != child) return false;
    if (!WIFEXITED(status)) std::printf("TESSARINE_SEED=%u: ended by signal %d\n", seed, WTERMSIG(status));
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

// Shared by the processes of a sweep.
struct Tally {
    std::atomic<std::uint32_t> played{0};
    std::atomic<std::uint32_t> failed{0};
};

void Work(Circle circle, std::uint32_t first, std::uint32_t end, std::uint32_t step, Tally& tally) {
    for (std::uint32_t seed = first; seed < end; seed += step) {
        if (!CircleInItsOwnProcess(circle, seed)) ++tally.failed;
        ++tally.played;
    }
}

// One worker on each core. Tells of the progress twice a minute.
std::uint32_t Sweep(Circle circle, std::uint32_t from, std::uint32_t sessions) {
    std::printf("seeds %u to %u\n", from, from + sessions - 1);
    std::fflush(stdout);
    void* const shared = mmap(nullptr, sizeof(Tally), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (shared == MAP_FAILED) return sessions;
    Tally& tally = *new (shared) Tally;
    const std::uint32_t cores = std::max(std::thread::hardware_concurrency(), 1U);
    for (std::uint32_t worker = 0; worker < cores; ++worker) {
        if (fork() != 0) continue;
        Work(circle, from + worker, from + sessions, cores, tally);
        _exit(0);
    }
    const auto begin = std::chrono::steady_clock::now();
    for (int tick = 1; waitpid(-1, nullptr, WNOHANG) >= 0; ++tick) {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        if (tick % 1500 != 0) continue;
        const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - begin;
        std::printf("%u of %u, %u failed, %.0f a second\n", tally.played.load(), sessions, tally.failed.load(),
                    tally.played / passed.count());
        std::fflush(stdout);
    }
    return tally.failed + (sessions - tally.played);
}

std::uint32_t NumberFrom(const char* variable, std::uint32_t otherwise) {
    const char* const text = std::getenv(variable);
    return text == nullptr ? otherwise : static_cast<std::uint32_t>(std::strtoul(text, nullptr, 10));
}

void PlayAll(Circle circle) {
    if (const std::uint32_t seed = NumberFrom("TESSARINE_SEED", 0)) {
        EXPECT_TRUE(TellCircle(circle, seed));
        return;
    }
    const std::uint32_t sessions = NumberFrom("TESSARINE_SESSIONS", Sessions);
    EXPECT_EQ(Sweep(circle, NumberFrom("TESSARINE_FROM", 1), sessions), 0U)
        << "of " << sessions << " sessions; each is played again by its line above";
}

TEST(ClosedCircle, EverySessionIsReplayedAsItWas) {
    PlayAll(SameDesktop);
}

TEST(ClosedCircle, OnAnotherDesktopItIsReplayedAsItWasOrFailsForAReason) {
    PlayAll(OtherDesktop);
}

}  // namespace
