// tsj run: plays a job as the main program does, and tells a script how it went.
#include <CLI/CLI.hpp>
#include <limits>
#include <memory>
#include <optional>

#include "base/runtime_failure.h"
#include "jobs/job_file.h"
#include "platform/boxes.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/instances.h"
#include "platform/pump.h"
#include "replay/reach.h"
#include "replay/run_job.h"
#include "replay/run_stop.h"
#include "replay/target_search.h"
#include "settings/settings.h"
#include "tsj/tool.h"
#include "tsj_desktop/commands.h"
#include "tsj_desktop/console_view.h"
#include "tsj_desktop/png.h"
#include "tsj_desktop/run_report.h"

namespace {

constexpr std::int64_t LookAgainMs = 100;  // for the end of another run

const std::map<std::string, std::int32_t> safetyLevels = {
    {"high", SafetyHigh}, {"medium", SafetyMedium}, {"low", SafetyLow}};

struct RunOptions {
    std::string job;
    std::optional<std::int32_t> speed;
    std::optional<std::int32_t> safety;
    std::optional<std::int32_t> repeat;
    double timeout = 0;  // seconds; 0 for none
    bool wait = false;
    std::string report;
    std::string junit;
    std::string pictures;
};

class RunCommand {
public:
    RunCommand(const RunOptions& theOptions, Tool& theTool) : options(theOptions), tool(theTool) {}

    void Run() {
        RequireRoomFor("--report", options.report);
        RequireRoomFor("--junit", options.junit);
        report.Begin();
        report.jobPath = options.job;
        report.keepPicture = [this](const RowReport& row) { return KeepPicture(row); };
        const auto given = static_cast<std::int64_t>(options.timeout * 1000);
        StopRunAt(given > 0 ? report.startTick + given : 0);
        report.End(Play());
        if (report.code != ExitCode::Success) TellOutcome();
        tool.EndWith(report.code);
        Write(options.report, JsonOf(report));
        Write(options.junit, JUnitOf(report));
    }

private:
    // A folder that takes no file is told before anything is sent.
    void RequireRoomFor(const char* option, const std::string& path) const {
        if (path.empty()) return;
        try {
            tool.RequireRoomFor(path);
        } catch (const RuntimeFailure& failure) {
            throw CLI::ValidationError(option, tool.AsTyped(failure.what()));
        }
    }

    // The outcome of the run stands, whatever becomes of the file; but what was to be written and was not is no
    // success.
    void Write(const std::string& path, const std::string& text) {
        if (path.empty()) return;
        try {
            tool.WriteAll(path, text);
        } catch (const RuntimeFailure& failure) {
            tool.Warn(tool.AsTyped(failure.what()));
            if (report.code == ExitCode::Success) tool.EndWith(ExitCode::Failed);
        }
    }

    ExitCode Play() {
        try {
            Job job = tool.ReadJobAt(options.job);
            if (job.Events.empty())
                return Refuse(ExitCode::NothingToPlay, "There is nothing to play: the job is empty.");
            if (!HeaderIsGood(job)) {
                return Refuse(ExitCode::NothingToPlay, "The job has a version or options that no job has.");
            }
            SetOptions(job);
            report.job = job;
            if (!DesktopReachable()) return Refuse(ExitCode::DesktopUnreachable, DesktopReason());
            if (const ExitCode busy = AwaitTurn(); busy != ExitCode::Success) return busy;
            settings.Display_Executing_Status = 1;  // the console is the status window
            const bool outIsTaken = options.report == StandardStream || options.junit == StandardStream;
            ShowRunOn(outIsTaken ? tool.ErrorStream() : tool.OutStream());
            runListener = &report;
            const ExitCode code = ExitCodeOf(RunLoadedJob(std::move(job), tool.PathOf(options.job)));
            runListener = nullptr;
            return code;
        } catch (const RuntimeFailure& failure) {
            runListener = nullptr;
            return Refuse(failure.Kind() == FailureKind::File ? ExitCode::NothingToPlay : ExitCodeOf(failure),
                          failure.what());
        }
    }

    void SetOptions(Job& job) const {
        if (options.speed) job.SpeedPercent = *options.speed;
        if (options.safety) job.SafetyLevel = *options.safety;
        if (options.repeat) job.RepeatCount = *options.repeat;
    }

    // The claim is only tried here: the run takes its own.
    ExitCode AwaitTurn() {
        while (!platform::RunClaim().Granted()) {
            if (!options.wait) {
                return Refuse(ExitCode::Busy, "Another run or a recording is under way on this desktop.");
            }
            switch (RunStopReason()) {
                case StopReason::TimeIsUp:
                    return Refuse(ExitCode::TimedOut, "Another run or a recording was under way all the time.");
                case StopReason::Interrupted:
                    return Refuse(ExitCode::Cancelled, "Interrupted while another run was under way.");
                default:
                    platform::Sleep(LookAgainMs);
                    platform::Pump();
            }
        }
        return ExitCode::Success;
    }

    ExitCode Refuse(ExitCode code, const std::string& why) {
        report.reason = why;
        return code;
    }

    void TellOutcome() {
        if (report.code == ExitCode::TimedOut && report.reason.empty()) report.reason = "The time is over.";
        const std::string reason = report.reason.empty() ? "" : ": " + Tool::Utf8(report.reason);
        tool.Warn(std::string(OutcomeWord(report.code)) + reason);
    }

    // A picture that cannot be taken or written must not end the run.
    std::string KeepPicture(const RowReport& row) {
        if (options.pictures.empty()) return {};
        const std::string name = "pass " + std::to_string(row.pass) + ", row " + std::to_string(row.row) + ".png";
        try {
            const platform::Picture picture = platform::TakeScreenPicture();
            if (picture.pixels.empty()) return {};
            tool.WriteAll(options.pictures + "/" + name, PngOf(picture));
            return name;
        } catch (const RuntimeFailure& failure) {
            tool.Warn(tool.AsTyped(failure.what()));
            return {};
        }
    }

    const RunOptions& options;
    Tool& tool;
    RunReport report;
};

}  // namespace

void AddRun(CLI::App& tsj, Tool& tool) {
    const auto options = std::make_shared<RunOptions>();
    CLI::App* const run = tsj.add_subcommand("run", "Plays a job; ESC or Ctrl+C ends it");
    run->add_option("JOB", options->job, "the job file, or - for standard input")->required();
    run->add_option("--speed", options->speed, "percent of the recorded speed, 1 to 1000; 1001 without waits")
        ->check(CLI::Range(1, MaximumSpeed));
    run->add_option("--safety", options->safety, "high, medium or low")
        ->transform(CLI::CheckedTransformer(safetyLevels, CLI::ignore_case))
        ->option_text("LEVEL");
    run->add_option("--repeat", options->repeat, "how often; 0: over and over again")
        ->check(CLI::Range(0, std::numeric_limits<std::int32_t>::max()));
    run->add_option("--timeout", options->timeout, "seconds after which the run ends, the wait for its turn included")
        ->check(CLI::PositiveNumber);
    run->add_flag("--wait", options->wait, "wait for another run or a recording to end");
    run->add_option("--report", options->report, "write what happened to each row as JSON");
    run->add_option("--junit", options->junit, "the same for readers of JUnit's XML");
    run->add_option("--picture", options->pictures, "folder for pictures of the desktop at a failure");
    run->callback([options, &tool] {
        if (!options->pictures.empty() && !platform::FolderExists(tool.PathOf(options->pictures))) {
            throw CLI::ValidationError("--picture", "there is no folder '" + options->pictures + "'");
        }
        RunCommand(*options, tool).Run();
    });
}

const std::vector<AddCommand> desktopCommands = {AddRun, AddExplain, AddCheckOfDesktop};
