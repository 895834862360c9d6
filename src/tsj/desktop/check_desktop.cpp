// tsj check --desktop: what of a job's windows and monitors is there now.
#include <CLI/CLI.hpp>

#include "presence/windows_now.h"
#include "tsj/tool.h"
#include "tsj_desktop/commands.h"

namespace {

constexpr const char* NotThereHint = "Open it before the job is played, or let the job wait for it.";
constexpr const char* NoMonitorHint = "Connect the monitor that was there at the recording, or record the row again.";

void AddWindow(const WindowNow& window, std::vector<DesktopFinding>& findings) {
    const bool there = window.presence == WindowPresence::There || window.presence == WindowPresence::Similar;
    if (!there) findings.push_back({window.row, Tool::Utf8(SentenceOf(window)), NotThereHint});
    if (!window.isOnMonitor) {
        findings.push_back({window.row,
                            "The window '" + Tool::Utf8(window.title) + "' was recorded where no monitor is now.",
                            NoMonitorHint});
    }
}

std::vector<DesktopFinding> LookAtDesktop(const Job& job) {
    const DesktopNow now = CheckWindowsNow(job);
    std::vector<DesktopFinding> findings;
    for (const WindowNow& window : now.windows) AddWindow(window, findings);
    for (const std::int32_t row : now.rowsOffMonitors) {
        findings.push_back({row, "It presses where no monitor is now.", NoMonitorHint});
    }
    return findings;
}

}  // namespace

void AddCheckOfDesktop(CLI::App& tsj, Tool& tool) {
    tsj.get_subcommand("check")->add_flag_callback(
        "--desktop", [&tool] { tool.lookAtDesktop = LookAtDesktop; },
        "also tell which windows are not there now, and what lies on no monitor");
}
