#include "bench/posix_files.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include "base/runtime_failure.h"
#include "bench/ratio.h"
#include "platform/files.h"

namespace posix_files {

int RunBench(int argumentCount, char** arguments, const std::string& name, const std::function<void()>& measure) {
    const std::filesystem::path parent =
        argumentCount > 1 ? std::filesystem::path(arguments[1]) : std::filesystem::temp_directory_path();
    const std::filesystem::path folder = parent / (name + "." + std::to_string(getpid()));
    std::filesystem::create_directories(folder);
    UseFolder(folder.string());
    sync();  // else a flush waits for what others have written before
    try {
        measure();
    } catch (const RuntimeFailure& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        bench::verdict.good = false;
    }
    std::filesystem::remove_all(folder);
    return bench::ExitCode();
}

void Stop(const char* what) {
    std::fprintf(stderr, "%s: %s\n", what, platform::LastFileError().c_str());
    std::exit(2);
}

}  // namespace posix_files
