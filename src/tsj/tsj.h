// tsj: jobs on the command line. Each command is a function that adds itself, with its options, to the parser and is
// called back when it was asked for.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "tsj/streams.h"

namespace CLI {
class App;
}
class Tool;

using AddCommand = void (*)(CLI::App& tsj, Tool& tool);

// Those that need no desktop.
extern const std::vector<AddCommand> textCommands;

// Those that need one, and what tells so where there is none.
extern const std::vector<AddCommand> desktopCommands;
extern const std::vector<AddCommand> withoutDesktop;

// Runs the program with the arguments behind its name, and gives its exit code: 64 for a wrong usage, which is told
// with a hint of the right one.
int RunTsj(const std::vector<std::string>& arguments, Streams& streams,
           const std::vector<std::vector<AddCommand>>& commands);
