#include "guard/guard_process.h"

#include <windows.h>

#include <string>

#include "guard/held_state.h"

namespace {

HANDLE ToHandle(std::uint64_t number) {
    return reinterpret_cast<HANDLE>(static_cast<std::uintptr_t>(number));
}

// The command line without the path of the program, which stands in quotes when a program started this one.
std::string Parameters() {
    const std::string line = GetCommandLineA();
    const std::size_t end = line.starts_with('"') ? line.find('"', 1) : line.find(' ');
    if (end == std::string::npos) return "";
    const std::size_t begin = line.find_first_not_of(' ', end + 1);
    return begin == std::string::npos ? "" : line.substr(begin);
}

}  // namespace

std::optional<GuardCommand> GuardCommandOfThisProcess() {
    return ParseGuardCommand(Parameters());
}

// The system closes handles and memory with the process.
int RunGuard(const GuardCommand& command) {
    void* const memory =
        MapViewOfFile(ToHandle(command.memory), FILE_MAP_READ | FILE_MAP_WRITE, 0, 0, sizeof(HeldState));
    if (memory == nullptr) return 1;  // typed by somebody
    if (WaitForSingleObject(ToHandle(command.program), INFINITE) != WAIT_OBJECT_0) return 1;
    ReleaseHeld(*static_cast<HeldState*>(memory));
    return 0;
}
