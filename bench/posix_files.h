// platform/files.h over a folder of the machine's own disk, for measuring natively what the simulated files cannot
// tell. A program that links this does not get the simulated files. "C:\x.tsj" lies in the folder given as "x.tsj".
#pragma once

#include <string>

namespace posix_files {

// To be called before any file is touched. The folder must exist.
void UseFolder(const std::string& folder);

// Where a path of the program lies on the machine.
std::string RealPath(const std::string& path);

}  // namespace posix_files
