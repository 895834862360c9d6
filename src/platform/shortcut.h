// Shortcuts of the shell (.lnk files).
#pragma once

#include <string>

namespace platform {

struct Shortcut {
    std::string target;
    std::string workingDirectory;
    std::string description;
    int showCommand = 5;  // SW_SHOW
};

// Writes the shortcut over whatever stands at `linkPath`. False when the system refuses. Does not pump.
bool WriteShortcut(const std::string& linkPath, const Shortcut& shortcut);

}  // namespace platform
