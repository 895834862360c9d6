#include "replay/replay_events.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include "base/arithmetic.h"
#include "base/runtime_failure.h"
#include "base/text.h"
#include "dictionary/dictionary.h"
#include "dictionary/sentences.h"
#include "jobs/event_targets.h"
#include "platform/clock.h"
#include "platform/pump.h"
#include "platform/window_services.h"
#include "replay/click_spacing.h"
#include "replay/explanation.h"
#include "replay/focus_watch.h"
#include "replay/reach.h"
#include "replay/replay_log.h"
#include "replay/row_descriptions.h"
#include "replay/run_listener.h"
#include "replay/run_stop.h"
#include "replay/send_keystrokes.h"
#include "replay/status.h"
#include "replay/status_view.h"
#include "replay/target_search.h"
#include "replay/timing.h"
#include "settings/settings.h"
#include "sounds/key_sounds.h"
#include "trace/debug_trace.h"

RunListener* runListener = nullptr;

namespace {

constexpr std::int32_t MoveFlags = MouseFlagBase + platform::MouseMove;
constexpr std::int32_t LeftDownFlags = MouseFlagBase + platform::MouseLeftDown;
constexpr std::int32_t LeftUpFlags = MouseFlagBase + platform::MouseLeftUp;
constexpr std::int32_t RightUpFlags = MouseFlagBase + platform::MouseRightUp;
constexpr std::int32_t WheelFlags = MouseFlagBase + platform::MouseWheel;

constexpr int ShortPause = 20;    // ms between a press and its release, or between keys that are already late
constexpr int PaneDrawing = 500;  // ms that a NetUIHWND pane needs to draw before it can be hit
constexpr int ListLinesSeen = 7;  // from this line on the list scrolls along

// A sender that never pumps gets slower with its own backlog of injected input, a hundred times after some 700,000
// events. A pump every so many events cures that, and keeps the program alive in long rows of late events.
constexpr int EventsBetweenPumps = 16;

bool IsMouseMove(const JobEvent& event) {
    return event.dwType() == platform::InputMouse && event.dwFlags() == MoveFlags;
}

ClickSpacing clickSpacing;  // of all runs: one can follow the other within the double-click time

// One call of ReplayEvents. A step that ends the run returns its result, one that lets it go on returns nothing.
class Replay {
public:
    Replay(Job& runJob, std::vector<ActionRow>& runRows, std::string& runReason, bool withLog);

    std::int32_t Run();

private:
    using Ending = std::optional<std::int32_t>;

    Ending Pass();
    void AnnouncePass();
    void ShowRows();
    Ending Play(std::int32_t index);
    bool Canceled(std::int32_t index);
    void AdvanceRow(std::int32_t index);
    void CloseRow();
    void ShowVerdict();
    void FinishPass();
    void FinishRun();
    void PumpNowAndThen();

    Ending PlayKey(JobEvent& event);
    Ending CheckKeyWindow(const JobEvent& event);
    void SearchForKey(const JobEvent& event);
    void SendKey(JobEvent& event);

    Ending PlayText(std::int32_t index);
    std::int32_t NextRealEvent(std::int32_t index) const;
    std::int32_t RecordedLength(const JobEvent& event, const JobEvent& next) const;
    Ending CheckTextWindow(const JobEvent& event);
    Ending TypeText(const JobEvent& event, std::int32_t budget);
    Ending TypeWatched(const JobEvent& event, const std::string& text, const KeystrokePacing& pacing);
    int BackToTheWindow(const JobEvent& event, FocusWatch& watch);

    Ending PlayMouse(std::int32_t index);
    static void BreatheBeforeRelease(std::int32_t flags, bool waited);
    bool SkippedMove(std::int32_t index) const;
    void KeepStatusWindowsAway(const JobEvent& event) const;
    Ending Aim(const JobEvent& event);
    Ending CheckMouseWindow(const JobEvent& event);
    void SendMouse(JobEvent& event);
    void SendDoubleClick();

    double ElapsedMs() const { return static_cast<double>(platform::Microseconds() - passStartTick) / 1000.0; }
    double Lateness(const JobEvent& event) const { return ElapsedMs() - event.time() * 100.0 / job.SpeedPercent; }
    std::int64_t MsCaughtUp(const JobEvent& event) const;
    void NoteLateness(const JobEvent& event);
    std::int32_t WaitUntil(std::int32_t time) const;
    std::int32_t WaitFor(const JobEvent& event) const;
    double ProgressShare(std::int32_t wait) const;
    std::int32_t Wait(std::int32_t ms);
    void BreatheBetweenLateKeys(const JobEvent& event) const;
    void UpdateBar() const;

    const WindowChain& ChainOf(const JobEvent& event) const;
    const WindowSignature& LeafOf(const JobEvent& event) const;
    int Search(const JobEvent& event, bool useFocus, std::int32_t waitSeconds);
    void KeepFailure(const SearchRequest& request, int result);
    int SearchForKeys(const JobEvent& event, std::int32_t waitSeconds);
    bool KeysStillGoTo(const WindowChain& chain) const;
    void RememberGoodChain(const WindowChain& chain);
    bool ChecksWindows() const { return job.SafetyLevel == SafetyHigh || job.SafetyLevel == SafetyMedium; }
    bool MaySend(const JobEvent& event) const { return lastResult > 0 || event.IfNoWindow == ExecuteAnyway; }
    std::string CurrentRowText() const;
    void TellSent(const JobEvent& event);
    void TellFailure() const;

    Job& job;
    std::vector<ActionRow>& rows;
    std::string& reason;
    const bool logged;
    RunListener* const listener = runListener;

    std::vector<std::string> rowTexts;
    bool rowWasSent = false;
    std::int32_t lastResult = 0;  // of the last search or sending; above 0 is good; never reset between events
    Explainer explainer;
    WindowChain lastGoodChain;
    platform::WindowHandle keyForeground = 0;  // that the last search for keys ended with; 0 when it failed
    std::int32_t lastFailedChain = -1;
    std::size_t rowIndex = 0;
    std::size_t announcedAt = 0;  // where in the log's buffer the line of this pass begins
    std::int32_t passCount = 0;
    bool forever = false;
    bool skipMoves = false;
    double worstLateness = 0;        // ms, in this pass
    std::int64_t passStartTick = 0;  // microseconds; all timing of a pass is measured from here
    std::int32_t totalMs = 0;
    std::int32_t progressTime = 0;
    bool escHeld = false;  // a replayed ESC is down: it must not be taken for the user's
    int eventsSincePump = 0;
    platform::Point startCursor;
    std::array<platform::InputRecord, 4> doubleClick;
};

Replay::Replay(Job& runJob, std::vector<ActionRow>& runRows, std::string& runReason, bool withLog)
    : job(runJob), rows(runRows), reason(runReason), logged(withLog) {
    totalMs = job.Events.back().time();
    forever = job.RepeatCount == 0;
    skipMoves = job.SkipMouseMoves == 1;
    for (std::size_t i = 0; i < doubleClick.size(); ++i) {
        // Position, data and extra word are event 0's; without a move flag nobody looks at the position.
        doubleClick[i] = job.Events.front();
        doubleClick[i].dwType() = platform::InputMouse;
        doubleClick[i].dwFlags() = i % 2 == 0 ? LeftDownFlags : LeftUpFlags;
        doubleClick[i].mouseTime() = 0;
    }
}

std::int32_t Replay::Run() {
    if (const std::int32_t desktop = CheckDesktop(reason); desktop < 1) return desktop;
    DebugTrace("Job started");
    RestoreCapsLock(job.CapsLockState);
    DebugTrace("Capslock State");
    startCursor = platform::CursorPosition();
    while (forever || passCount < job.RepeatCount) {
        if (const Ending ending = Pass()) return *ending;
    }
    FinishRun();
    return passCount;
}

void Replay::FinishRun() {
    MoveCursor(startCursor.x, startCursor.y);
    DebugTrace("Job ended");
    if (settings.Display_Executing_Status == 1) setStatus(StatusFinished);
    DebugTrace("Job duration");
    DebugTrace("Job original duration");
    DebugTrace("Estimated speed");
}

Replay::Ending Replay::Pass() {
    rowIndex = 0;
    clickSpacing.BeginPass();
    AnnouncePass();
    DropMoveRows(rows);
    rowTexts = RowDescriptions(rows, job.Events);
    rowWasSent = false;
    if (listener != nullptr) listener->PassBegins(passCount, rowTexts);
    if (settings.Display_Executing_Status == 1) ShowRows();
    passStartTick = platform::Microseconds();
    worstLateness = 0;
    const auto count = static_cast<std::int32_t>(job.Events.size());
    for (std::int32_t index = 0; index < count; ++index) {
        if (Canceled(index)) {
            reason = "User canceled job execution by pressing ESC key";
            return ReplayCanceled;
        }
        AdvanceRow(index);
        if (const Ending ending = Play(index)) return ending;
        NoteLateness(job.Events[static_cast<std::size_t>(index)]);
        if (settings.Display_Executing_Status == 1) UpdateBar();
        PumpNowAndThen();
    }
    FinishPass();
    ++passCount;
    return std::nullopt;
}

// Made without a log path too: the line then waits in the buffer for the next log that is written.
void Replay::AnnouncePass() {
    const std::string number = "Repeating job no: " + std::to_string(passCount + 1);
    if (forever) {
        // Of a run without an end and without a log, only the pass under way: nobody else would ever empty the buffer.
        if (!logged && passCount > 0) replayLog.LogBuffer.resize(announcedAt);
        announcedAt = replayLog.LogBuffer.size();
        LogLine(number);
    } else if (job.RepeatCount >= 2) {
        LogLine(number + "/" + std::to_string(job.RepeatCount));
    }
}

void Replay::ShowRows() {
    status_view::ClearList();
    for (const std::string& text : rowTexts) status_view::AddLine(text);
    if (!rowTexts.empty()) status_view::SelectLine(0);
    status_view::SetBar(0);
    status_view::ShowBar(true);
    status_view::ShowCloseButton(false);
}

// The key is polled at every event, also while the job itself holds it, so that no stale tap is left over. Event 0
// never cancels, which drains one from before the run. A job of one event has no other, so it cancels from its second
// pass on; without that, an endless one could not be stopped.
bool Replay::Canceled(std::int32_t index) {
    const bool pressed = platform::AsyncKeyState(platform::VirtualKeyEscape) != 0;
    if (RunStopReason() != StopReason::None) return true;
    const bool mayCancel = index > 0 || (job.Events.size() == 1 && passCount > 0);
    return pressed && mayCancel && !escHeld;
}

// At most one row advances per event, and only at the first event past it; the last row is closed by FinishPass.
void Replay::AdvanceRow(std::int32_t index) {
    if (rowIndex + 1 >= rows.size() || index <= rows[rowIndex].lastEvent) return;
    CloseRow();
    ++rowIndex;
    rowWasSent = false;
}

// The verdict is that of the last check or sending, not of the worst one.
void Replay::CloseRow() {
    if (logged) LogLine((lastResult > 0 ? "OK <-  " : "FAILED <- ") + CurrentRowText());
    if (settings.Display_Executing_Status == 1) ShowVerdict();
    if (listener != nullptr) listener->RowEnds(rowIndex, lastResult > 0);
}

void Replay::ShowVerdict() {
    const std::string verdict = lastResult > 0 ? actionWords.ok + "   " : actionWords.failed + " ";
    status_view::SetLine(static_cast<int>(rowIndex), verdict + CurrentRowText());
    const int selected = status_view::SelectedLine() + 1;
    status_view::SelectLine(selected);
    if (selected >= ListLinesSeen) status_view::ScrollListDown();
    platform::Pump();
}

void Replay::FinishPass() {
    if (!rows.empty()) {
        rowIndex = rows.size() - 1;
        CloseRow();
        if (settings.Display_Executing_Status == 1) {
            status_view::AddLine(Exclamation("Job completed successfully"));
            status_view::SelectLine(static_cast<int>(rows.size()));
        }
    }
    if (logged) LogLine(Translate("Job completed successfully") + ".");
}

void Replay::PumpNowAndThen() {
    if (++eventsSincePump < EventsBetweenPumps) return;
    eventsSincePump = 0;
    platform::Pump();
}

Replay::Ending Replay::Play(std::int32_t index) {
    if (const std::int32_t desktop = CheckDesktop(reason); desktop < 1) return desktop;
    JobEvent& event = job.Events[static_cast<std::size_t>(index)];
    switch (event.dwType()) {
        case platform::InputMouse:
            return PlayMouse(index);
        case platform::InputKeyboard:
            return PlayKey(event);
        case INPUT_TEXT:
            return PlayText(index);
        case TextContinuation:
            progressTime = event.time();
            return std::nullopt;
        default:  // passed over in silence; folding has told of it
            return std::nullopt;
    }
}

// --- time ---

// From now until the moment of a recorded time at the job's speed; 0 or less when it has passed. Anchored to the
// start of the pass, not to the event before: what is late catches up, and nothing adds up.
std::int32_t Replay::WaitUntil(std::int32_t time) const {
    return RoundHalfEven(static_cast<double>(time) * 100.0 / job.SpeedPercent - ElapsedMs());
}

std::int32_t Replay::WaitFor(const JobEvent& event) const {
    return job.SpeedPercent >= MaximumSpeed ? 0 : WaitUntil(event.time());
}

// What was late and has caught up comes sooner after the events before it than it was recorded. A window that one of
// them opens must have the same time to come as it had then.
std::int64_t Replay::MsCaughtUp(const JobEvent& event) const {
    if (job.SpeedPercent >= MaximumSpeed) return 0;
    return static_cast<std::int64_t>(std::ceil(std::max(worstLateness - Lateness(event), 0.0)));
}

void Replay::NoteLateness(const JobEvent& event) {
    worstLateness = std::max(worstLateness, Lateness(event));
}

// WaitDone, or the end of the run: canceled, or the desktop gone meanwhile.
std::int32_t Replay::Wait(std::int32_t ms) {
    const int waited = TimedWait(ms, escHeld, ProgressShare(ms));
    return waited < 1 ? waited : CheckDesktop(reason);
}

double Replay::ProgressShare(std::int32_t wait) const {
    if (totalMs == 0) return 0;
    return static_cast<double>(status_view::BarMaximum()) * wait * job.SpeedPercent / (totalMs * 100.0);
}

void Replay::UpdateBar() const {
    if (totalMs == 0) return;
    const double maximum = status_view::BarMaximum();
    // The last event need not be the latest: a file may say anything.
    status_view::SetBar(static_cast<int>(std::clamp(maximum * progressTime / totalMs, 0.0, maximum)));
}

// Edit controls take keys at full rate; everything else gets a breath between keys that are already late.
void Replay::BreatheBetweenLateKeys(const JobEvent& event) const {
    if (event.WindowChainIndex >= 0 && LeafOf(event).ClassName != "Edit") platform::Sleep(ShortPause);
}

// --- windows ---

const WindowChain& Replay::ChainOf(const JobEvent& event) const {
    return CheckedAt(job.Chains, event.WindowChainIndex, "Window chain");
}

const WindowSignature& Replay::LeafOf(const JobEvent& event) const {
    return CheckedAt(job.Windows, ChainOf(event).LeafWindow, "Window");
}

int Replay::Search(const JobEvent& event, bool useFocus, std::int32_t waitSeconds) {
    SearchRequest request = RequestFor(job, event, useFocus);
    request.escHeld = escHeld;
    request.waitSeconds = waitSeconds;
    request.graceMs = MsCaughtUp(event);
    request.listener = &explainer;
    request.lastRoundsOnly = true;
    const double begin = listener == nullptr ? 0 : ElapsedMs();
    const int found = FindTarget(request, job.Windows, job.Chains, reason);
    if (listener != nullptr) listener->Searched(rowIndex, ElapsedMs() - begin, searchState.rounds, found);
    // While the desktop is away no window is found either; that is the reason to tell.
    if (const std::int32_t desktop = CheckDesktop(reason); desktop < 1) return desktop;
    // A press goes to the window that has just been confirmed.
    const int reached =
        found < 1 ? found : CheckReach(useFocus ? WindowOf(Receiver::Keys) : searchState.current, reason);
    if (reached < 1 && reached != TargetCanceled) KeepFailure(request, reached);
    return reached;
}

// As the search has told it. What failed in a round that nobody listened to, or only afterwards, is looked at once
// more.
void Replay::KeepFailure(const SearchRequest& request, int result) {
    Explanation explanation = explainer.Heard();
    if (explanation.result != result) explanation = ExplainRequest(request, job.Windows, job.Chains);
    explanation.result = result;
    explanation.reason = reason;
    explanation.row = CurrentRowText();
    KeepFailedSearch(explanation);
    explainer.Reset();
}

int Replay::SearchForKeys(const JobEvent& event, std::int32_t waitSeconds) {
    const int found = Search(event, true, waitSeconds);
    keyForeground = found > 0 ? platform::ForegroundWindow() : 0;
    return found;
}

// Another key into the same window needs no search, unless another window has taken the foreground since the last one.
bool Replay::KeysStillGoTo(const WindowChain& chain) const {
    return keyForeground != 0 && SameChain(chain, lastGoodChain) && platform::ForegroundWindow() == keyForeground;
}

void Replay::RememberGoodChain(const WindowChain& chain) {
    if (!SameChain(chain, lastGoodChain)) lastGoodChain = chain;
}

std::string Replay::CurrentRowText() const {
    return rowIndex < rowTexts.size() ? Trim(rowTexts[rowIndex]) : std::string();
}

// --- what a report is made of ---

// Of the row as a whole: its first input.
void Replay::TellSent(const JobEvent& event) {
    if (listener == nullptr || rowWasSent) return;
    rowWasSent = true;
    const bool due = job.SpeedPercent < MaximumSpeed;
    const double sent = ElapsedMs();
    listener->RowIsSent(rowIndex, due ? event.time() * 100.0 / job.SpeedPercent : sent, sent);
}

void Replay::TellFailure() const {
    if (listener != nullptr) listener->RowFails(rowIndex, reason);
}

// --- keys ---

Replay::Ending Replay::PlayKey(JobEvent& event) {
    const std::int32_t wait = WaitFor(event);
    if (wait > 0) {
        lastResult = Wait(wait);
        if (lastResult < 1) return lastResult;
    } else {
        BreatheBetweenLateKeys(event);
    }
    progressTime = event.keyTime();
    const std::int32_t virtualKey = event.KeyCode() & 0xFFFF;
    // An extended ESC down (state 1) does not count as held.
    if (virtualKey == platform::VirtualKeyEscape) escHeld = event.KeyState() == 0;
    if (IsKeyDown(event) && event.WindowChainIndex >= 0) {
        if (const Ending ending = CheckKeyWindow(event)) return ending;
    }
    if (settings.Display_Executing_Status == 1) setStatus(StatusRunning);
    if (MaySend(event)) SendKey(event);
    return std::nullopt;
}

Replay::Ending Replay::CheckKeyWindow(const JobEvent& event) {
    SearchForKey(event);
    if (lastResult > 0) {
        RememberGoodChain(ChainOf(event));
        lastFailedChain = -1;
    } else {
        lastFailedChain = event.WindowChainIndex;
        TellFailure();
        if (event.IfNoWindow == StopExecuting) return lastResult;
    }
    return std::nullopt;
}

void Replay::SearchForKey(const JobEvent& event) {
    const WindowChain& chain = ChainOf(event);
    if (!ChecksWindows()) {
        lastResult = CheckReach(WindowOf(Receiver::Keys), reason);
    } else if (KeysStillGoTo(chain)) {
        lastResult = 1;
    } else if (lastFailedChain < 0) {
        lastResult = SearchForKeys(event, event.WaitForWindow);
    } else if (!SameChain(chain, CheckedAt(job.Chains, lastFailedChain, "Window chain"))) {
        // A deliberate economy: after one window was not found, the result (a failure, unless something was sent
        // since) stands for the next window too, without a search that would wait once more.
        keyForeground = 0;
    } else if (event.IfNoWindow == StopExecuting) {
        lastResult = -1;
    } else {
        lastResult = SearchForKeys(event, 0);
    }
}

void Replay::SendKey(JobEvent& event) {
    bool& down = KeyDownFlag(event.KeyCode() & 0xFFFF);
    const int sound = PickSound();
    if (settings.play_sounds_for_keystrokes == 1 && event.KeyState() == 0 && KeySoundCount() > 0) PlayKeySound(sound);
    TellSent(event);
    const std::int32_t time = event.keyTime();
    event.keyTime() = 0;  // the system stamps what it injects
    lastResult = platform::SendInput(event);
    event.keyTime() = time;
    if (IsKeyDown(event)) {
        down = true;
    } else if (event.KeyState() == platform::KeyUp || event.KeyState() == platform::KeyUp + platform::KeyExtended) {
        down = false;
    }
}

// --- text rows ---

Replay::Ending Replay::PlayText(std::int32_t index) {
    const JobEvent& event = job.Events[static_cast<std::size_t>(index)];
    const std::int32_t wait = WaitFor(event);
    if (wait > 0) {
        if (const int waited = Wait(wait); waited < 1) return waited;
    } else {
        BreatheBetweenLateKeys(event);
    }
    const JobEvent& next = job.Events[static_cast<std::size_t>(NextRealEvent(index))];
    std::int32_t budget = RecordedLength(event, next);
    if (next.dwType() == platform::InputMouse || next.dwType() == platform::InputKeyboard ||
        next.dwType() == INPUT_TEXT) {
        // At maximum speed too: a text row then still paces itself, at about a tenth of its recorded time.
        budget = WaitUntil(next.time());
    }
    progressTime = event.time();
    if (const Ending ending = CheckTextWindow(event)) return ending;
    if (settings.Display_Executing_Status == 1) setStatus(StatusRunning);
    return TypeText(event, budget);
}

std::int32_t Replay::NextRealEvent(std::int32_t index) const {
    const auto last = static_cast<std::int32_t>(job.Events.size()) - 1;
    std::int32_t next = std::min(index + 1, last);
    while (next < last) {
        const JobEvent& event = job.Events[static_cast<std::size_t>(next)];
        if (!IsMouseMove(event) && event.dwType() != TextContinuation) break;
        ++next;
    }
    return next;
}

// What the row took when it was recorded, at the job's speed; none at maximum speed. An event of no known type has
// no time.
std::int32_t Replay::RecordedLength(const JobEvent& event, const JobEvent& next) const {
    if (job.SpeedPercent >= MaximumSpeed) return 0;
    const bool known = next.dwType() == platform::InputMouse || next.dwType() == platform::InputKeyboard ||
                       next.dwType() == INPUT_TEXT || next.dwType() == TextContinuation;
    const double length = static_cast<double>(known ? next.time() : 0) - event.time();
    return RoundHalfEven(length * 100.0 / job.SpeedPercent);
}

Replay::Ending Replay::CheckTextWindow(const JobEvent& event) {
    if (!ChecksWindows() || event.WindowChainIndex < 0) {
        lastResult = CheckReach(WindowOf(Receiver::Keys), reason);
    } else if (KeysStillGoTo(ChainOf(event))) {
        lastResult = 1;
    } else {
        lastResult = SearchForKeys(event, event.WaitForWindow);
    }
    if (lastResult > 0) {
        if (event.WindowChainIndex >= 0) RememberGoodChain(ChainOf(event));
        return std::nullopt;
    }
    DebugTrace("Cannot execute keyboard event (INPUT_TEXT) on window");
    TellFailure();
    if (event.IfNoWindow == StopExecuting) return lastResult;
    return std::nullopt;
}

// A row that is not typed still takes its time, so that what follows stays on schedule.
Replay::Ending Replay::TypeText(const JobEvent& event, std::int32_t budget) {
    const std::string& text = CheckedAt(job.Strings, event.StringIndex() - 1LL, "Text");
    if (text.empty() || !MaySend(event)) {
        if (const int waited = Wait(budget); waited < 1) return waited;
        return std::nullopt;
    }
    KeystrokePacing pacing;
    pacing.totalMs = totalMs;
    pacing.speedPercent = job.SpeedPercent;
    pacing.budgetMs = budget;
    pacing.soundsOn = settings.play_sounds_for_keystrokes == 1;
    return TypeWatched(event, text, pacing);
}

// A window that takes the foreground in the middle of the row is dealt with like one that is there at its beginning.
Replay::Ending Replay::TypeWatched(const JobEvent& event, const std::string& text, const KeystrokePacing& pacing) {
    int found = 1;
    FocusWatch watch(keyForeground);
    KeystrokeGuard guard;
    if (ChecksWindows() && event.WindowChainIndex >= 0 && lastResult > 0) {
        guard.beforePress = [&] {
            if (found > 0 && watch.Stolen()) found = BackToTheWindow(event, watch);
            if (found > 0 || event.IfNoWindow == ExecuteAnyway) return TextStep::GoOn;
            return event.IfNoWindow == StopExecuting ? TextStep::Stop : TextStep::LeaveOut;
        };
        guard.afterToken = [&](std::int32_t virtualKey, std::int32_t action) { watch.Sent(virtualKey, action); };
    }
    TellSent(event);
    lastResult = SendKeystrokes(text, pacing, escHeld, guard);
    if (found < 1 && event.IfNoWindow == StopExecuting) lastResult = found;
    if (lastResult == DesktopOutOfReach) reason = DesktopReason();
    if (lastResult < 0) return lastResult;
    return std::nullopt;
}

int Replay::BackToTheWindow(const JobEvent& event, FocusWatch& watch) {
    if (watch.HasLeftItsWindow()) {
        reason = Labelled("Cannot find window", "'" + watch.ExpectedCaption() + "'");
        return TargetWindowMissing;
    }
    const int found = SearchForKeys(event, event.WaitForWindow);
    if (found > 0) {
        watch.GoOnHere();
    } else {
        TellFailure();
    }
    return found;
}

// --- mouse ---

Replay::Ending Replay::PlayMouse(std::int32_t index) {
    JobEvent& event = job.Events[static_cast<std::size_t>(index)];
    const std::int32_t wait = WaitFor(event);
    if (wait > 0) {
        lastResult = Wait(wait);
        if (lastResult < 1) return lastResult;
    }
    BreatheBeforeRelease(event.dwFlags(), wait > 0);
    if (SkippedMove(index)) {
        progressTime = event.mouseTime();
        return std::nullopt;
    }
    KeepStatusWindowsAway(event);
    MoveCursor(event.dx(), event.dy());
    if (LooksForWindow(event)) {
        if (const Ending ending = Aim(event)) return ending;
    }
    if (settings.Display_Executing_Status == 1) setStatus(StatusRunning);
    if (MaySend(event)) SendMouse(event);
    return std::nullopt;
}

// A release that follows its press without a pause still leaves the press some time to be noticed.
void Replay::BreatheBeforeRelease(std::int32_t flags, bool waited) {
    if (flags != LeftUpFlags && flags != RightUpFlags) return;
    if (!waited) platform::Sleep(ShortPause);
    platform::Pump();
}

// The last move of a run of moves is always played, so that the cursor lands where the recording had it.
bool Replay::SkippedMove(std::int32_t index) const {
    const auto i = static_cast<std::size_t>(index);
    return skipMoves && i + 1 < job.Events.size() && IsMouseMove(job.Events[i]) && IsMouseMove(job.Events[i + 1]);
}

bool LiesInside(const platform::Rect& window, std::int32_t x, std::int32_t y) {
    return window.left < x && x < window.right && window.top < y && y < window.bottom;
}

// No replayed click ever lands on the program's own status windows.
void Replay::KeepStatusWindowsAway(const JobEvent& event) const {
    if (settings.Display_Executing_Status == 1 && status_view::ExecutingVisible() &&
        LiesInside(status_view::ExecutingRectangle(), event.dx(), event.dy())) {
        Premjesti(false);
    }
    if (status_view::Executing2Visible() && LiesInside(status_view::Executing2Rectangle(), event.dx(), event.dy())) {
        Premjesti(false);
    }
}

// Has the right window under the cursor at a moment when the press means what it meant in the recording. What has
// changed while the press was held back makes another check necessary.
Replay::Ending Replay::Aim(const JobEvent& event) {
    if (const Ending ending = CheckMouseWindow(event)) return ending;
    if (event.dwFlags() == WheelFlags) return std::nullopt;
    while (MaySend(event)) {
        const std::int32_t hold = clickSpacing.HoldBack(event);
        if (hold == 0) break;
        if (const int waited = TimedWait(hold, escHeld, 0); waited < 1) return waited;
        if (const std::int32_t desktop = CheckDesktop(reason); desktop < 1) return desktop;
        if (clickSpacing.NothingMoved()) break;
        MoveCursor(event.dx(), event.dy());
        if (const Ending ending = CheckMouseWindow(event)) return ending;
    }
    return std::nullopt;
}

Replay::Ending Replay::CheckMouseWindow(const JobEvent& event) {
    const bool recorded = event.WindowChainIndex >= 0;
    // Stands before the level is looked at, so it is paid at every level.
    if (recorded && LeafOf(event).ClassName == "NetUIHWND") platform::Sleep(PaneDrawing);
    // The wheel goes to the focus, as it was captured; clicks to what is under the cursor, which is in place already.
    const bool useFocus = event.dwFlags() == WheelFlags;
    lastResult = recorded && ChecksWindows()
                     ? Search(event, useFocus, event.WaitForWindow)
                     : CheckReach(WindowOf(useFocus ? Receiver::Keys : Receiver::Mouse), reason);
    if (lastResult > 0) return std::nullopt;
    if (logged) {
        LogLine("Cannot execute command:");
        LogLine("   " + CurrentRowText());
    }
    DebugTrace("Failed");
    TellFailure();
    lastFailedChain = event.WindowChainIndex;
    if (event.IfNoWindow == StopExecuting) return lastResult;
    return std::nullopt;
}

void Replay::SendMouse(JobEvent& event) {
    if (!IsMouseMove(event)) TellSent(event);
    if (event.dwFlags() == DoubleClickFlags) {
        SendDoubleClick();
        return;
    }
    progressTime = event.mouseTime();
    event.mouseTime() = 0;  // the system stamps what it injects
    lastResult = platform::SendInput(event);
    event.mouseTime() = progressTime;
    if (lastResult > 0) NoteButton(event);
    if (lastResult > 0 && LooksForWindow(event) && event.dwFlags() != WheelFlags) clickSpacing.Sent();
    if (event.dwFlags() == LeftDownFlags) DebugTrace("Left Down retval");
}

// Always the left button, always at the present cursor position.
void Replay::SendDoubleClick() {
    DebugTrace("Saljem DOUBLECLICK!");
    for (const platform::InputRecord& record : doubleClick) {
        lastResult = platform::SendInput(record);
        if (lastResult > 0) NoteButton(record);
        if (record.dwFlags() == LeftDownFlags && lastResult > 0) clickSpacing.Sent();
        platform::Sleep(ShortPause);
    }
}

}  // namespace

std::int32_t ReplayEvents(Job& job, std::vector<ActionRow>& rows, std::string& reason, const std::string& logPath) {
    if (job.Events.empty()) {
        reason = "There is no commands to execute!";
        DebugTrace("There is no commands to execute!");
        return ReplayNothingToDo;
    }
    return Replay(job, rows, reason, !logPath.empty()).Run();
}
