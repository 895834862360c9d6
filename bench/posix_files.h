// platform/files.h over a folder of the machine's own disk, for measuring natively what the simulated files cannot
// tell. A program that links this does not get the simulated files. "C:\x.tsj" lies in the folder given as "x.tsj".
#pragma once

#include <functional>
#include <string>

namespace posix_files {

// The main function of a bench of files: `measure` in a new folder in the one that the command line names (else the
// temporary folder), which goes afterwards. A RuntimeFailure is told and counts as a missed limit.
int RunBench(int argumentCount, char** arguments, const std::string& name, const std::function<void()>& measure);

// Ends a bench that a file operation has failed in.
[[noreturn]] void Stop(const char* what);

// To be called before any file is touched. The folder must exist.
void UseFolder(const std::string& folder);

// Where a path of the program lies on the machine.
std::string RealPath(const std::string& path);

}  // namespace posix_files
