#include "support/shell_stand_in.h"

#include <algorithm>

#include "mainwindow/form_view.h"
#include "replay/run_job.h"
#include "shell/language_selection.h"
#include "shell/shell_view.h"
#include "support/recorder.h"

ShellStandIn shellStandIn;

namespace {

void Note(const std::string& call) {
    shellStandIn.calls.push_back(call);
}

}  // namespace

int PlaceOf(const std::string& call) {
    const auto found = std::find(shellStandIn.calls.begin(), shellStandIn.calls.end(), call);
    return found == shellStandIn.calls.end() ? -1 : static_cast<int>(found - shellStandIn.calls.begin());
}

namespace shell_view {

NOTES(shellStandIn.calls, CreateMainWindow)
NOTES(shellStandIn.calls, PrepareMainWindow)
NOTES(shellStandIn.calls, InstallProcedures)
NOTES(shellStandIn.calls, RestoreJobListProcedure)
NOTES(shellStandIn.calls, RestoreScheduleListProcedure)
NOTES(shellStandIn.calls, RestoreMainProcedure)
NOTES(shellStandIn.calls, RestoreWindowPosition)
NOTES(shellStandIn.calls, ShowOptions)
NOTES(shellStandIn.calls, PodesiRjecnik)

void BringToNormal() {
    if (shellStandIn.minimised) form_view::BringToNormal();
}

NOTES(shellStandIn.calls, StaviFocus)
NOTES(shellStandIn.calls, RemoveTrayIcon)
NOTES(shellStandIn.calls, UnblockShutdown)

void BlockShutdown(const std::string&) {
    Note("BlockShutdown");
}

void EndProcess() {
    Note("EndProcess");
    throw ProcessEnded();
}

}  // namespace shell_view

void language_selection_view::ShowModal() {
    Note("LanguageSelection");
    if (shellStandIn.duringLanguageSelection) shellStandIn.duringLanguageSelection();
}

namespace form_view {

void SetVisible(bool visible) {
    Note(visible ? "Show" : "Hide");
    shellStandIn.visible = visible;
}

ANSWERS(bool, IsMinimised, shellStandIn.minimised)

void BringToNormal() {
    Note("BringToNormal");
    shellStandIn.minimised = false;
}

ANSWERS(bool, IsEnabled, shellStandIn.enabled)
KEEPS(Enable, bool, shellStandIn.enabled)
KEEPS(SetTrayOpenCaption, const std::string&, shellStandIn.trayOpenCaption)
NOTES(shellStandIn.calls, OpenTrayMenu)

}  // namespace form_view

// In the place of the job runner.
RunState runState;

std::int32_t RunJob(const std::string& jobPath, std::int32_t, const std::string& logPath, bool noInputBlock) {
    Note("RunJob " + jobPath + (logPath.empty() ? "" : " with a log") + (noInputBlock ? " without input block" : ""));
    if (shellStandIn.duringRun) shellStandIn.duringRun();
    return shellStandIn.runResult;
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): as it is declared
std::int32_t RunLoadedJob(Job, const std::string& name) {
    shellStandIn.calls.push_back("RunLoadedJob " + name);
    return shellStandIn.runResult;
}
