// tsj picture: a job at a glance.
#include <CLI/CLI.hpp>
#include <memory>

#include "base/text.h"
#include "platform/text.h"
#include "timeline/picture.h"
#include "tsj/commands.h"
#include "tsj/tool.h"

namespace {

struct PictureOptions {
    std::string job;
    std::string out = StandardStream;
};

// The name of the file, without folder and extension.
std::string TitleOf(const std::string& path) {
    const std::size_t name = path.find_last_of("\\/") + 1;
    const std::size_t extension = path.rfind('.');
    return platform::FromUtf8(path.substr(name, extension > name ? extension - name : std::string::npos));
}

}  // namespace

void AddPicture(CLI::App& tsj, Tool& tool) {
    const auto options = std::make_shared<PictureOptions>();
    CLI::App* const picture = tsj.add_subcommand(
        "picture", "Draws a job: its rows in time, a lane for each window, and the path of the mouse");
    picture->add_option("JOB", options->job, "the job file, or - for standard input")->required();
    picture->add_option("OUT", options->out, "the SVG file to write; without it, standard output");
    picture->callback([options, &tool] {
        tool.WriteAll(options->out, PictureOf(tool.ReadJobAt(options->job), TitleOf(options->job)));
    });
}
