// Well-known folders, the system's dialogs for folders and files, and the start of this process. Paths have no trailing
// backslash.
#pragma once

#include <optional>
#include <string>

namespace platform {

// The program's own file and its folder. A folder whose name the system code page does not have goes by its short name.
std::string ExecutablePath();
std::string ExecutableFolder();
std::string DesktopDirectory();  // SHGetSpecialFolderLocation, CSIDL_DESKTOPDIRECTORY

// The command line behind the program's name, as typed.
std::string CommandLineText();

// Lets the user choose a folder, starting at `start`. Empty when the user cancels. Pumps while it is open.
std::optional<std::string> BrowseForFolder(const std::string& prompt, const std::string& start);

// Lets the user choose a file to write: `kind` is what files that end in `extension` (".exe") are called. A file that
// is there is asked about. The path as chosen, with or without the extension; empty when the user cancels. Pumps while
// it is open (GetSaveFileName).
std::string AskFileToSave(const std::string& title, const std::string& kind, const std::string& extension,
                          const std::string& path);

}  // namespace platform
