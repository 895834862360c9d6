// tsj as a script meets it: arguments in, an exit code and two streams out, over the files of the simulated desktop.
#pragma once

#include <string>
#include <vector>

#include "platform/text.h"
#include "support/story.h"
#include "tsj/tsj.h"

class ToolStage {
public:
    int Tsj(const std::vector<std::string>& arguments) {
        out.clear();
        err.clear();
        Streams streams;
        streams.out = [this](std::string_view bytes) { out += bytes; };
        streams.err = [this](std::string_view text) { err += text; };
        streams.readAll = [this] { return in; };
        streams.pathOf = [](const std::string& typed) { return platform::FromUtf8(typed); };
        streams.pathAsTyped = [](const std::string& text) { return platform::ToUtf8(text); };
        streams.besideProgram = [](const std::string& name) { return "C:\\Program\\" + name; };
        return RunTsj(arguments, streams, {textCommands, desktopCommands});
    }

    std::string in;
    std::string out;
    std::string err;
};
