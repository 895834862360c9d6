// Benches of files: in a folder of the machine's own disk.
#pragma once

#include <functional>
#include <string>

#include "posix/files.h"

namespace posix_files {

// The main function of a bench of files: `measure` in a new folder in the one that the command line names (else the
// temporary folder), which goes afterwards. A RuntimeFailure is told and counts as a missed limit.
int RunBench(int argumentCount, char** arguments, const std::string& name, const std::function<void()>& measure);

// Ends a bench that a file operation has failed in.
[[noreturn]] void Stop(const char* what);

}  // namespace posix_files
