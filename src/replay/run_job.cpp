#include "replay/run_job.h"

#include <exception>
#include <utility>
#include <vector>

#include "base/product.h"
#include "base/runtime_failure.h"
#include "base/text.h"
#include "dictionary/dictionary.h"
#include "dictionary/sentences.h"
#include "folding/puni_listu.h"
#include "jobs/job_access.h"
#include "jobs/job_file.h"
#include "platform/boxes.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/guard.h"
#include "platform/input.h"
#include "platform/instances.h"
#include "platform/processes.h"
#include "platform/pump.h"
#include "platform/timers.h"
#include "platform/tray.h"
#include "platform/window_services.h"
#include "recording/recording_state.h"
#include "replay/explanation.h"
#include "replay/main_window_view.h"
#include "replay/reach.h"
#include "replay/replay_events.h"
#include "replay/replay_log.h"
#include "replay/run_listener.h"
#include "replay/run_stop.h"
#include "replay/status.h"
#include "replay/status_view.h"
#include "replay/target_search.h"
#include "replay/timing.h"
#include "settings/recent_jobs.h"
#include "settings/settings.h"
#include "trace/debug_trace.h"

RunState runState;

namespace {

constexpr int InputBlockMs = 1000;

// The user is locked out for the first second of a run only, and the hint to press ESC comes up when it means
// something. A run that starts before the tick of the one before takes the timer over.
struct InputBlock {
    platform::TimerId unblock_input = 0;
} inputBlock;

void EndInputBlock() {
    platform::BlockInput(false);
    platform::StopTimer(inputBlock.unblock_input);
    inputBlock.unblock_input = 0;
    status_view::SetSecondLabel(Ellipsis("Press ESC to stop"));
}

// Without a timer to end it, there is no block.
void StartInputBlock() {
    platform::StopTimer(inputBlock.unblock_input);
    inputBlock.unblock_input = platform::StartTimer(InputBlockMs, EndInputBlock);
    if (inputBlock.unblock_input == 0) return EndInputBlock();
    platform::BlockInput(true);
}

bool IsDown(int virtualKey) {
    return platform::AsyncKeyState(virtualKey) < 0;
}

bool AnyHotkeyKeyIsDown() {
    for (const int modifier : {16, 17, 18, 91, 92}) {  // VK_SHIFT, VK_CONTROL, VK_MENU, VK_LWIN, VK_RWIN
        if (IsDown(modifier)) return true;
    }
    for (int letter = 'A'; letter <= 'Z'; ++letter) {
        if (IsDown(letter)) return true;
    }
    return false;
}

// The user's fingers are still on the hotkey: what a job types must not arrive with Ctrl held. Who goes on holding the
// keys for long means it. False when ESC was pressed.
bool AwaitHotkeyRelease() {
    constexpr std::int64_t LongestMs = 2000;
    constexpr int LookMs = 10;
    const std::int64_t end = platform::TickCount() + LongestMs;
    EscapePressed(true);  // a tap from before the run is not meant for it
    while (AnyHotkeyKeyIsDown() && platform::TickCount() < end) {
        if (EscapePressed(false)) return false;
        platform::Pump();
        platform::Sleep(LookMs);
    }
    return true;
}

bool DisplaysStatus() {
    return settings.Display_Executing_Status == 1;
}

void LogFailure(const std::string& reason) {
    LogLine("Execution of job failed. Reason: ");
    LogLine(reason);
}

// How the run went stays true when its log cannot be written. The lines wait in the buffer for the next log that can.
// Nobody may be there: what tells of it must not wait for an answer.
void WriteLog(const std::string& logPath) {
    try {
        WriteLogFile(logPath);
    } catch (const RuntimeFailure& failure) {
        if (DisplaysStatus()) {
            status_view::AddLine(failure.what());
        } else {
            platform::ShowTrayBalloon(ProductName, failure.what());
        }
    }
}

// One call of RunJob that was not refused.
class JobRun {
public:
    JobRun(const std::string& runPath, const std::string& runLogPath, bool withoutInputBlock)
        : jobPath(runPath), name(BaseName(runPath)), logPath(runLogPath), noInputBlock(withoutInputBlock) {}

    // Of a job that is no file.
    JobRun(Job&& runJob, const std::string& runName) : name(runName), noInputBlock(false), job(std::move(runJob)) {}

    std::int32_t Run();

    // A box would take the keys of the run that is under way.
    void TellAnotherProgramPlays() const;

    // After a failure that was thrown: no key stays down, no window stays disabled, the next run is possible.
    void PutRight(const std::exception& failure);

private:
    void ClearTheStage();
    void Prepare();
    void LogOptions() const;
    bool StartsProgram();
    void CleanUp();
    static void LeaveStatusWindow();
    void RestoreMainWindow();
    void Tell();
    void TellCanceled(int row) const;
    void TellFailed(int row) const;
    void Finish();

    // Copies: the caller's text may be an entry of a table that changes while this pumps, or that of the recent jobs.
    const std::string jobPath;  // empty when the job is no file
    const std::string name;
    const std::string logPath;
    const bool noInputBlock;

    Job job;
    std::vector<ActionRow> rows;
    bool minimisedByRun = false;
    std::string reason;
    std::int32_t result = 0;
};

std::int32_t JobRun::Run() {
    platform::StartGuard();  // comes up beside what follows, and stands there when the first key goes down
    ClearTheStage();
    Prepare();
    if (!StartsProgram()) {
        // A plain way out that puts nothing back: until the program is started anew, every run is refused. A job
        // whose program is missing must not be followed by others as if nothing had been.
        runState.programWasMissing = true;
        if (runListener != nullptr) runListener->RunEnds(RunProgramMissing, reason);
        return RunProgramMissing;
    }
    if (!noInputBlock) StartInputBlock();
    const bool begins = !noInputBlock || AwaitHotkeyRelease();
    result = begins ? ReplayEvents(job, rows, reason, logPath) : ReplayCanceled;
    CleanUp();
    if (result < 1) Tell();
    if (runListener != nullptr) runListener->RunEnds(result, reason);
    Finish();
    return result;
}

// The main window would stand in front of the target. The window that took over from it gets a real activation.
void JobRun::ClearTheStage() {
    if (main_window_view::IsVisible() && main_window_view::IsNormal()) {
        main_window_view::Minimise();
        minimisedByRun = true;
    }
    main_window_view::Enable(false);
    platform::Pump();
    const platform::WindowHandle foreground = platform::ForegroundWindow();
    platform::Pump();
    if (foreground > 0) platform::BringToForeground(foreground);
}

void JobRun::Prepare() {
    rows = jobPath.empty() ? FoldForReplay(job) : FoldForReplay(jobPath);
    if (DisplaysStatus()) status_view::ShowExecuting();
    status_view::ShowExecuting2(name);
    if (!jobPath.empty()) ReadJob(jobPath, job);
    ResetSearch();
    ForgetFailedSearch();
    DebugTrace("");
    DebugTrace("Executing");
    if (!logPath.empty()) LogOptions();
    Premjesti(true);
    main_window_view::EnableExitButton(false);
}

void JobRun::LogOptions() const {
    if (job.SpeedPercent == MaximumSpeed) {
        LogLine("Job speed: MAXIMUM");
    } else {
        LogLine("Job speed: " + std::to_string(job.SpeedPercent) + (job.SpeedPercent == 100 ? " (normal speed)" : ""));
    }
    const std::string times =
        job.RepeatCount > 0 ? std::to_string(job.RepeatCount) + " time(s)" : std::string("Over and over again");
    LogLine("Job will repeat: " + times, 0, 1);
}

bool JobRun::StartsProgram() {
    const std::string path = Trim(job.StartProgram.ProgramPath);
    if (path.empty()) return true;
    // A program that cannot be opened can often be started all the same: it may be a link of the system's.
    if (platform::StateOf(path) == platform::FileState::Missing) {
        reason = Label("Cannot start program") + LineBreak + path + LineBreak + Translate("File not found");
        platform::ShowBox(reason, Translate("File not found"), platform::BoxIcon::Error);
        return false;
    }
    platform::StartProgram(path + " " + Trim(job.StartProgram.CommandLine), job.StartProgram.WindowStyle);
    return true;
}

void JobRun::CleanUp() {
    ReleaseStuckKeys();
    if (logPath.empty() && !jobPath.empty()) AddRecentJob(jobPath);
    if (DisplaysStatus()) LeaveStatusWindow();
    RestoreMainWindow();
    status_view::UnloadExecuting2();
}

// It stays up and is the user's from now on. The button stands where the bar was.
void JobRun::LeaveStatusWindow() {
    status_view::StopDodging();
    status_view::ShowCloseButton(true);
    status_view::ShowBar(false);
}

// From here on windows of ours take the focus from the one that the last keys went to.
void JobRun::RestoreMainWindow() {
    platform::LetInputArrive();
    if (minimisedByRun) main_window_view::Restore();
    main_window_view::Enable(true);
}

void JobRun::Tell() {
    const int selected = DisplaysStatus() ? status_view::SelectedLine() : 0;
    const int row = selected < 0 ? 0 : selected;
    if (result == ReplayCanceled) {
        TellCanceled(row);
    } else {
        TellFailed(row);
    }
}

void JobRun::TellCanceled(int row) const {
    if (DisplaysStatus()) {
        const bool timeIsUp = RunStopReason() == StopReason::TimeIsUp;
        status_view::InsertLine(row, Translate(timeIsUp ? "The time that the run was given is over"
                                                        : "Execution of job was canceled by user"));
        status_view::SelectLine(row);
        setStatus(StatusCanceled);
    }
    if (!logPath.empty()) LogLine("Execution of job was canceled by user.");
}

void JobRun::TellFailed(int row) const {
    if (DisplaysStatus()) {
        status_view::InsertLine(row, Translate("Execution of job failed") + ". " + Label("Reason") + " ");
        status_view::InsertLine(row + 1, reason);
        setStatus(StatusFailed);
    } else if (logPath.empty()) {
        platform::ShowBox(
            Translate1("Execution of job '%1' failed", name) + ". " + Label("Reason") + LineBreak + reason, ProductName,
            platform::BoxIcon::Error);
    }
    if (!logPath.empty()) LogFailure(reason);
}

void JobRun::Finish() {
    if (!logPath.empty()) WriteLog(logPath);
    runState.ReplayRunning = false;
    platform::Pump();
    main_window_view::EnableExitButton(true);
}

void JobRun::PutRight(const std::exception& failure) {
    ReleaseStuckKeys();
    runState.ReplayRunning = false;
    LeaveStatusWindow();
    status_view::UnloadExecuting2();
    RestoreMainWindow();
    main_window_view::EnableExitButton(true);
    if (logPath.empty()) return;
    LogFailure(failure.what());
    WriteLog(logPath);
}

void JobRun::TellAnotherProgramPlays() const {
    const std::string text = Translate("Another program is playing a job. Please try again when it has ended.");
    platform::ShowTrayBalloon(ProductName, text);
    if (logPath.empty()) return;
    LogFailure(text);
    WriteLog(logPath);
}

// 0 when a run may begin.
std::int32_t Refusal() {
    if (runState.ReplayRunning) return RunRefusedOrNoFile;
    return RecordingActive() || KeyboardHookInstalled() ? RunRefusedRecording : 0;
}

std::int32_t RunToTheEnd(JobRun& run) {
    const platform::RunClaim claim;
    if (!claim.Granted()) {
        runState.ReplayRunning = false;
        run.TellAnotherProgramPlays();
        return RunRefusedOrNoFile;
    }
    try {
        return run.Run();
    } catch (const std::exception& failure) {  // RuntimeFailure, and a lack of memory
        run.PutRight(failure);
        throw;
    }
}

}  // namespace

ExitCode ExitCodeOf(std::int32_t result) {
    if (result >= 1) return ExitCode::Success;
    switch (result) {
        case ReplayCanceled:
            return RunStopReason() == StopReason::TimeIsUp ? ExitCode::TimedOut : ExitCode::Cancelled;
        case RunRefusedOrNoFile:
        case RunRefusedRecording:
            return ExitCode::Busy;
        case ReplayNothingToDo:
            return ExitCode::NothingToPlay;
        case DesktopOutOfReach:
            return ExitCode::DesktopUnreachable;
        default:
            return ExitCode::Failed;
    }
}

ExitCode ExitCodeOf(const RuntimeFailure& failure) {
    return failure.Kind() == FailureKind::Range ? ExitCode::NothingToPlay : ExitCode::Failed;
}

std::int32_t RunJob(const std::string& jobPath, std::int32_t, const std::string& logPath, bool noInputBlock) {
    if (const std::int32_t refusal = Refusal(); refusal != 0) return refusal;
    runState.ReplayRunning = true;  // at once: whatever pumps from here on can bring another start
    const platform::FileState state = TellUnlessReadable(jobPath, platform::BoxIcon::Error);
    if (state != platform::FileState::Readable) {
        runState.ReplayRunning = false;
        return RunRefusedOrNoFile;
    }
    JobRun run(jobPath, logPath, noInputBlock);
    return RunToTheEnd(run);
}

std::int32_t RunLoadedJob(Job job, const std::string& name) {
    if (const std::int32_t refusal = Refusal(); refusal != 0) return refusal;
    runState.ReplayRunning = true;
    JobRun run(std::move(job), name);
    return RunToTheEnd(run);
}
