// The help file, as the viewer of the system shows it.
#pragma once

#include <string>

namespace platform {

// Shows the page `topic` ("speed.htm") of the help file at `path`, or the file's first page when there is no topic. The
// viewer is a process of its own, so that it can be read beside anything that this program does, and is recorded and
// played like any other window. There is one: the next page takes the place of the last. A page that is asked for again
// at once, by a key that is held down, is shown once. False when the viewer cannot be started. Does not pump.
bool ShowHelp(const std::string& path, const std::string& topic);

}  // namespace platform
