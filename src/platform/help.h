// The help file, as the viewer of the system shows it.
#pragma once

#include <string>

namespace platform {

// Shows the page `topic` ("speed.htm") of the help file at `path`, or the file's first page when there is no topic. The
// viewer is a process of its own, so that it can be read beside anything that this program does, and is recorded and
// played like any other window. There is one: a page that it shows already is brought to the front, another page takes
// its place. False when the viewer cannot be started. Does not pump.
bool ShowHelp(const std::string& path, const std::string& topic);

}  // namespace platform
