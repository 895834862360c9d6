#include "shell/copy_data.h"

#include "base/runtime_failure.h"

std::string CopyDataOfCommand(const std::string& commandLine) {
    if (commandLine.size() > CommandLineLimit) {
        throw RuntimeFailure(FailureKind::Range, "The command line is longer than " + std::to_string(CommandLineLimit) +
                                                     " characters: " + commandLine);
    }
    return commandLine + '\0';
}

std::optional<std::string> CommandFromCopyData(std::uintptr_t dwData, std::uint32_t cbData, const void* lpData) {
    if (dwData != CommandLineData) return std::nullopt;
    if (cbData <= 1) return std::string();
    if (lpData == nullptr) return std::nullopt;
    if (cbData > CommandLineLimit + 1) {
        throw RuntimeFailure(FailureKind::Range, "A command line of " + std::to_string(cbData) +
                                                     " bytes came from another program; at most " +
                                                     std::to_string(CommandLineLimit + 1) + " can be taken.");
    }
    return std::string(static_cast<const char*>(lpData), cbData - 1);
}
