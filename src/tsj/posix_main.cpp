// tsj on a machine without a Windows desktop.
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <iterator>

#include "tsj/tsj.h"

namespace {

bool IsTerminal(int descriptor) {
    return isatty(descriptor) == 1;
}

void WriteTo(std::FILE* stream, std::string_view bytes) {
    if (std::fwrite(bytes.data(), 1, bytes.size(), stream) < bytes.size()) std::exit(1);  // nobody reads any more
    std::fflush(stream);
}

std::string BesideProgram(const std::string& name) {
    std::error_code failure;
    return (std::filesystem::read_symlink("/proc/self/exe", failure).parent_path() / name).string();
}

}  // namespace

int main(int argumentCount, char** arguments) {
    Streams streams;
    streams.out = [](std::string_view bytes) { WriteTo(stdout, bytes); };
    streams.err = [](std::string_view text) { WriteTo(stderr, text); };
    streams.readAll = [] { return std::string(std::istreambuf_iterator<char>(std::cin), {}); };
    streams.pathOf = [](const std::string& typed) { return typed; };
    streams.pathAsTyped = [](const std::string& text) { return text; };
    streams.besideProgram = BesideProgram;
    streams.colours = IsTerminal(STDOUT_FILENO) && std::getenv("NO_COLOR") == nullptr;
    streams.progress = IsTerminal(STDERR_FILENO);
    return RunTsj({arguments + 1, arguments + argumentCount}, streams, {textCommands, withoutDesktop});
}
