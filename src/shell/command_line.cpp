#include "shell/command_line.h"

#include "base/text.h"
#include "editor/edit_job.h"
#include "jobs/job_access.h"
#include "mainwindow/form_visible.h"
#include "platform/instances.h"
#include "platform/text.h"
#include "platform/window_services.h"
#include "recording/recording_state.h"
#include "replay/run_job.h"
#include "shell/exit.h"
#include "shell/handed_over.h"

namespace {

constexpr std::string_view EditSwitch = "-edit";
constexpr std::string_view RunSwitch = "-run";

bool BeginsWith(const std::string& command, std::string_view word) {
    return platform::LowerCase(command.substr(0, word.size())) == word;
}

// What has come from second starts meanwhile is this process's own now: it was to end, and ends with the last of it.
void EndOrGoOn() {
    std::string next;
    if (TakeNextHandedOver(next)) return HandleCommandParameter(next, false);
    platform::ReplyToSender();  // a second start whose command ends this process must not take it for lost
    QuitProgram(false);
}

// True when the job can be read. Where there is none, the process ends after the box: this can come from a start that
// was for that job alone.
bool IsReadable(const std::string& path) {
    const platform::FileState state = TellUnlessReadable(path, platform::BoxIcon::None);
    // What is being recorded, or waits to be saved, must not go along.
    if (state == platform::FileState::Missing && !RecordingActive()) EndOrGoOn();
    return state == platform::FileState::Readable;
}

void EditFile(const std::string& path) {
    if (!IsReadable(path)) return;
    FormVisible(true, false);
    const platform::WindowHandle editor = editJob(path);
    if (editor > 0) platform::BringToForeground(editor);
}

// After a run that did not succeed the window stays hidden: the user finds the program in the notification area.
void RunFile(const std::string& path, bool fromOtherInstance) {
    if (!IsReadable(path)) return;
    if (RecordingActive()) return static_cast<void>(RunJob(path, 0, "", false));  // which refuses
    const bool wasVisible = MainWindowVisible();
    FormVisible(false, false);
    const std::int32_t result = RunJob(path, 0, "", false);
    if (result < 1) return;
    if (!fromOtherInstance) return EndOrGoOn();
    if (wasVisible) FormVisible(true, false);
}

}  // namespace

bool IsComputerStart(const std::string& commandLine) {
    return platform::LowerCase(commandLine).find("startup") != std::string::npos;
}

bool IsRunCommand(const std::string& commandLine) {
    return BeginsWith(Trim(commandLine), RunSwitch);
}

void HandleCommandParameter(const std::string& commandLine, bool fromOtherInstance) {
    const std::string command = Trim(commandLine);
    if (command.empty()) return FormVisible(true, false);
    if (BeginsWith(command, EditSwitch)) return EditFile(Trim(command.substr(EditSwitch.size())));
    if (BeginsWith(command, RunSwitch)) return RunFile(Trim(command.substr(RunSwitch.size())), fromOtherInstance);
}
