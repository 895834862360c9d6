#include "support/shell_stand_in.h"

#include <algorithm>

#include "mainwindow/form_view.h"
#include "replay/run_job.h"
#include "shell/shell_view.h"

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

void CreateMainWindow() {
    Note("CreateMainWindow");
}

void PrepareMainWindow() {
    Note("PrepareMainWindow");
}

void InstallProcedures() {
    Note("InstallProcedures");
}

void RestoreJobListProcedure() {
    Note("RestoreJobListProcedure");
}

void RestoreScheduleListProcedure() {
    Note("RestoreScheduleListProcedure");
}

void RestoreMainProcedure() {
    Note("RestoreMainProcedure");
}

void RestoreWindowPosition() {
    Note("RestoreWindowPosition");
}

void ShowOptions() {
    Note("ShowOptions");
}

void PodesiRjecnik() {
    Note("PodesiRjecnik");
}

void BringToNormal() {
    if (shellStandIn.minimised) form_view::BringToNormal();
}

void StaviFocus() {
    Note("StaviFocus");
}

void RemoveTrayIcon() {
    Note("RemoveTrayIcon");
}

void EndProcess() {
    Note("EndProcess");
    throw ProcessEnded();
}

}  // namespace shell_view

namespace form_view {

void SetVisible(bool visible) {
    Note(visible ? "Show" : "Hide");
    shellStandIn.visible = visible;
}

bool IsMinimised() {
    return shellStandIn.minimised;
}

void BringToNormal() {
    Note("BringToNormal");
    shellStandIn.minimised = false;
}

bool IsEnabled() {
    return shellStandIn.enabled;
}

void SetTrayOpenCaption(const std::string& caption) {
    shellStandIn.trayOpenCaption = caption;
}

void OpenTrayMenu() {
    Note("OpenTrayMenu");
}

}  // namespace form_view

// In the place of the job runner.
RunState runState;

std::int32_t RunJob(const std::string& jobPath, std::int32_t, const std::string& logPath, bool noInputBlock) {
    Note("RunJob " + jobPath + (logPath.empty() ? "" : " with a log") + (noInputBlock ? " without input block" : ""));
    if (shellStandIn.duringRun) shellStandIn.duringRun();
    return shellStandIn.runResult;
}
