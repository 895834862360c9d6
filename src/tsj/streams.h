// How the program speaks with whoever started it: standard streams, and paths as they are typed. All text is UTF-8.
#pragma once

#include <functional>
#include <string>
#include <string_view>

struct Streams {
    std::function<void(std::string_view)> out;  // bytes as they are, for another program to read
    std::function<void(std::string_view)> err;
    std::function<std::string()> readAll;                          // standard input to its end
    std::function<std::string(const std::string&)> pathOf;         // as the files of the platform want it
    std::function<std::string(const std::string&)> pathAsTyped;    // the way back, for messages
    std::function<std::string(const std::string&)> besideProgram;  // a file in its own folder, by name
    bool onWindows = false;  // paths in a job can be looked for, and keys are those of the user
    bool colours = false;    // on a terminal, for a person
    bool progress = false;   // somebody watches the messages
};
