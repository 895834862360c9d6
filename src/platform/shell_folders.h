// Well-known folders, the folder browser, and the start of this process. Paths have no trailing backslash.
#pragma once

#include <optional>
#include <string>

namespace platform {

std::string ExecutableFolder();
std::string DesktopDirectory();  // SHGetSpecialFolderLocation, CSIDL_DESKTOPDIRECTORY

// The command line behind the program's name, as typed.
std::string CommandLineText();

// Lets the user choose a folder, starting at `start`. Empty when the user cancels. Pumps while it is open.
std::optional<std::string> BrowseForFolder(const std::string& prompt, const std::string& start);

}  // namespace platform
