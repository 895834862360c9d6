// What platform/files.h is over the disk of a POSIX machine: for programs that need no Windows desktop, and for
// measuring natively what the simulated files cannot tell. A program that links this does not get the simulated files.
#pragma once

#include <string>

namespace posix_files {

// To be called before any file is touched, by whoever has paths of Windows: "C:\x.tsj" then lies in this folder, which
// must exist, as "x.tsj". Without it, paths are those of the machine.
void UseFolder(const std::string& folder);

// Where a path of the program lies on the machine.
std::string RealPath(const std::string& path);

}  // namespace posix_files
