// Files that another program holds for a moment, as a virus scanner, an indexer or a backup does.
#pragma once

#include <functional>
#include <string>

#include "platform/files.h"

// Asks until the answer is no, without pumping, for up to two seconds.
void WaitWhileHeld(const std::function<bool()>& isHeld);

// Opens a file for reading, and waits for one that is held. What it found is in
// the file's Found().
platform::File OpenOnceFree(const std::string& path);

inline platform::FileState StateOnceFree(const std::string& path) {
    return OpenOnceFree(path).Found();
}
