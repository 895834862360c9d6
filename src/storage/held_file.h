// Files that another program holds for a moment, as a virus scanner, an indexer or a backup does.
#pragma once

#include <string>

#include "platform/files.h"

// Opens a file for reading, and waits for one that is held: without pumping, for up to two seconds. What it found is in
// the file's Found().
platform::File OpenOnceFree(const std::string& path);

inline platform::FileState StateOnceFree(const std::string& path) {
    return OpenOnceFree(path).Found();
}
