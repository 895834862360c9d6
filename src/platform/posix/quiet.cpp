// What a program without a desktop asks of one, and what it gets. Nothing pumps; a box is a line for whoever reads the
// console.
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>

#include "platform/boxes.h"
#include "platform/processes.h"
#include "platform/pump.h"
#include "platform/registry.h"

namespace platform {

void Pump() {}

bool InHookCall() {
    return false;
}

void ShowBox(const std::string& text, const std::string&, BoxIcon) {
    std::fprintf(stderr, "%s\n", text.c_str());
}

std::uint32_t OwnProcess() {
    return static_cast<std::uint32_t>(getpid());
}

bool ProcessRuns(std::uint32_t process) {
    return kill(static_cast<pid_t>(process), 0) == 0 || errno != ESRCH;
}

std::optional<std::string> ReadRegistry(const std::string&, const std::string&) {
    return std::nullopt;
}

}  // namespace platform
