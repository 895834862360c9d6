// The folders that the program works with, set once at start. No path has a trailing backslash.
#pragma once

#include <string>

struct Folders {
    std::string PersonalFolder;  // the user's documents
    std::string DataFolder;      // jobs and settings.binary
    std::string ProgramFolder;   // where the executable and its companions lie
    std::string DesktopFolder;   // for shortcuts
    std::string StartedAt;       // stamp of a start with the computer (date text, "@", time text), else empty
};
extern Folders folders;
