#include "recording/start_app.h"

#include "base/text.h"
#include "dictionary/dictionary.h"
#include "platform/boxes.h"
#include "platform/files.h"
#include "platform/text.h"
#include "platform/types.h"

StartProgramRecord startProgram;

namespace {

constexpr const char* CancelMark = "cancel";  // in the place of a path
constexpr std::size_t ExtensionLength = 4;

bool IsProgramName(const std::string& path) {
    if (path.size() < ExtensionLength) return false;
    const std::string extension = platform::UpperCase(path.substr(path.size() - ExtensionLength));
    return extension == ".EXE" || extension == ".COM" || extension == ".BAT";
}

// Says why when it cannot.
bool CanBeStarted(const std::string& path) {
    if (platform::StateOf(path) == platform::FileState::Missing) {
        platform::ShowBox(path + LineBreak + Translate("File does not exist"), Translate("File access error"));
        return false;
    }
    if (IsProgramName(path)) return true;
    platform::ShowBox("File must have .exe extension!", "Run program error", platform::BoxIcon::Error);
    return false;
}

// The list's order is not that of the values.
std::int16_t StyleOf(int listIndex) {
    constexpr std::uint32_t Styles[] = {platform::ShowNormal, platform::ShowMaximized, platform::ShowMinimized};
    return static_cast<std::int16_t>(listIndex >= 0 && listIndex < 3 ? Styles[listIndex] : platform::ShowNormal);
}

}  // namespace

void TakeChosenProgram(StartAppControls& controls, const std::string& path) {
    controls.Check1 = true;
    controls.text_program_path = path;
}

bool AcceptStartApp(const StartAppControls& controls) {
    const std::string path = controls.Check1 ? Trim(controls.text_program_path) : std::string();
    if (path.empty()) {
        startProgram.ProgramPath.clear();
        startProgram.CommandLine.clear();
        return true;
    }
    if (!CanBeStarted(path)) return false;
    startProgram.ProgramPath = path;
    startProgram.CommandLine = controls.Check2 ? controls.text_command_line : std::string();
    startProgram.WindowStyle = StyleOf(controls.Combo1);
    return true;
}

void CancelStartApp() {
    startProgram.ProgramPath = CancelMark;
    startProgram.CommandLine.clear();
}

bool StartAppCanceled() {
    return startProgram.ProgramPath == CancelMark;
}
