// tsj export and tsj import: a job as text, for reading, comparing and version control, and back.
#include <CLI/CLI.hpp>
#include <memory>

#include "base/runtime_failure.h"
#include "jobtext/job_text.h"
#include "platform/text.h"
#include "storage/input_file.h"
#include "tsj/commands.h"
#include "tsj/tool.h"

namespace {

struct TextOptions {
    std::string from;
    std::string to = StandardStream;
    int codePage = platform::SystemCodePage();
};

TextProgress ProgressOf(const Tool& tool, const std::string& what) {
    return [tell = tool.Progress(what)](std::size_t done, std::size_t total) {
        tell(static_cast<std::int64_t>(done), static_cast<std::int64_t>(total));
    };
}

void Export(const TextOptions& options, const Tool& tool) {
    tool.ReadFrom(options.from, [&](InputFile& job) {
        tool.WriteBlocks(options.to, [&](const TextSink& sink) {
            ExportJob(job, sink, options.codePage, ProgressOf(tool, "export"));
        });
    });
}

void Import(const TextOptions& options, const Tool& tool) {
    tool.ReadFrom(options.from, [&](InputFile& file) {
        const auto size = static_cast<std::size_t>(file.Length());
        const std::string_view text(file.Take(size), size);
        tool.WriteBlocks(options.to, [&](const TextSink& sink) {
            ImportJob(tool.NameOf(options.from), text, sink, ProgressOf(tool, "import"));
        });
    });
}

}  // namespace

void AddExport(CLI::App& tsj, Tool& tool) {
    const auto options = std::make_shared<TextOptions>();
    CLI::App* const command = tsj.add_subcommand("export", "Writes a job as JSON, a line for each event");
    command->add_option("JOB", options->from, "the job file, or - for standard input")->required();
    command->add_option("TEXT", options->to, "the file to write; without it, standard output");
    command->add_option("--code-page", options->codePage, "of the machine that recorded the job, 1252 for instance");
    command->callback([options, &tool] { Export(*options, tool); });
}

void AddImport(CLI::App& tsj, Tool& tool) {
    const auto options = std::make_shared<TextOptions>();
    CLI::App* const command = tsj.add_subcommand("import", "Makes a job of the JSON that export wrote");
    command->add_option("TEXT", options->from, "the JSON, or - for standard input")->required();
    command->add_option("JOB", options->to, "the job file to write, or - for standard output")->required();
    command->callback([options, &tool] { Import(*options, tool); });
}
