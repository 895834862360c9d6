#include "shell/command_line.h"

#include "base/text.h"
#include "dictionary/dictionary.h"
#include "dictionary/sentences.h"
#include "editor/edit_job.h"
#include "mainwindow/form_visible.h"
#include "platform/boxes.h"
#include "platform/files.h"
#include "platform/text.h"
#include "platform/window_services.h"
#include "recording/recording_state.h"
#include "replay/run_job.h"
#include "shell/exit.h"

namespace {

constexpr std::string_view EditSwitch = "-edit";
constexpr std::string_view RunSwitch = "-run";

bool BeginsWith(const std::string& command, std::string_view word) {
    return platform::LowerCase(command.substr(0, word.size())) == word;
}

void RefuseMissingFile(const std::string& path) {
    platform::ShowBox(Label("File does not exist") + LineBreak + path, Translate("File access error"));
    if (!RecordingActive()) QuitProgram(false);  // what is being recorded, or waits to be saved, must not go along
}

void EditFile(const std::string& path) {
    if (!platform::FileExists(path)) return RefuseMissingFile(path);
    FormVisible(true, false);
    const platform::WindowHandle editor = editJob(path);
    if (editor > 0) platform::BringToForeground(editor);
}

// After a run that did not succeed the window stays hidden: the user finds the program in the notification area.
void RunFile(const std::string& path, bool fromOtherInstance) {
    if (!platform::FileExists(path)) return RefuseMissingFile(path);
    if (RecordingActive()) return static_cast<void>(RunJob(path, 0, "", false));  // which refuses
    const bool wasVisible = MainWindowVisible();
    FormVisible(false, false);
    const std::int32_t result = RunJob(path, 0, "", false);
    if (result < 1) return;
    if (!fromOtherInstance) return QuitProgram(false);
    if (wasVisible) FormVisible(true, false);
}

}  // namespace

bool IsComputerStart(const std::string& commandLine) {
    return platform::LowerCase(commandLine).find("startup") != std::string::npos;
}

void HandleCommandParameter(const std::string& commandLine, bool fromOtherInstance) {
    const std::string command = Trim(commandLine);
    if (command.empty()) return FormVisible(true, false);
    if (BeginsWith(command, EditSwitch)) return EditFile(Trim(command.substr(EditSwitch.size())));
    if (BeginsWith(command, RunSwitch)) return RunFile(Trim(command.substr(RunSwitch.size())), fromOtherInstance);
}
