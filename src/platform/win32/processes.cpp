#include "platform/processes.h"

#include "base/text.h"
#include "platform/files.h"
#include "win32/handles.h"
// After <windows.h>, which it needs.
#include <shellapi.h>

namespace platform {
namespace {

struct Command {
    std::string program;
    std::string parameters;
};

Command SplitAt(const std::string& commandLine, std::size_t end) {
    if (end >= commandLine.size()) return {commandLine, ""};
    return {commandLine.substr(0, end), Trim(commandLine.substr(end))};
}

// A path with blanks stands unquoted in a job. The longest part that names a file is the program, so that a file
// "C:\Program" is not started instead of one below "C:\Program Files".
Command Split(const std::string& commandLine) {
    if (commandLine.starts_with('"')) {
        Command command = SplitAt(commandLine.substr(1), commandLine.find('"', 1) - 1);
        if (command.parameters.starts_with('"')) command.parameters = Trim(command.parameters.substr(1));
        return command;
    }
    for (std::size_t end = commandLine.size(); end != std::string::npos && end > 0;
         end = commandLine.find_last_of(' ', end - 1)) {
        if (StateOf(commandLine.substr(0, end)) != FileState::Missing) return SplitAt(commandLine, end);
    }
    return SplitAt(commandLine, commandLine.find(' '));  // a name for the system to look for
}

int ShowCommand(int windowStyle) {
    switch (windowStyle) {
        case 0:
            return SW_HIDE;
        case 2:
            return SW_SHOWMINIMIZED;
        case 3:
            return SW_SHOWMAXIMIZED;
        default:
            return SW_SHOWNORMAL;
    }
}

}  // namespace

// By the shell, which also opens documents and shortcuts, and asks the user where a program wants more rights.
bool StartProgram(const std::string& commandLine, int windowStyle) {
    const Command command = Split(Trim(commandLine));
    if (command.program.empty()) return false;
    SHELLEXECUTEINFOA info{};
    info.cbSize = sizeof info;
    info.fMask = SEE_MASK_NOASYNC | SEE_MASK_FLAG_NO_UI;
    info.lpFile = command.program.c_str();
    info.lpParameters = command.parameters.c_str();
    info.nShow = ShowCommand(windowStyle);
    return ShellExecuteExA(&info) != FALSE;
}

std::uint32_t OwnProcess() {
    return GetCurrentProcessId();
}

// A process that has ended keeps its number for as long as somebody has a handle of it.
bool ProcessRuns(std::uint32_t process) {
    const OwnedHandle handle(OpenProcess(SYNCHRONIZE, FALSE, process));
    if (handle.Get() == nullptr) return GetLastError() != ERROR_INVALID_PARAMETER;
    return WaitForSingleObject(handle.Get(), 0) == WAIT_TIMEOUT;
}

}  // namespace platform
