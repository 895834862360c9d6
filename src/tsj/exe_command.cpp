// tsj exe and tsj unpack: a job made into a program, and what is in one that was made.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

#include "base/runtime_failure.h"
#include "dictionary/dictionary.h"
#include "makeexe/made_executable.h"
#include "makeexe/make_executable.h"
#include "storage/input_file.h"
#include "tsj/commands.h"
#include "tsj/tool.h"

namespace {

// The codes by which people name the languages, by number.
const std::map<std::string, std::int16_t> languages = {
    {"en", LanguageEnglish}, {"de", LanguageGerman}, {"es", LanguageSpanish}, {"fr", LanguageFrench}};

struct ExeOptions {
    std::string job;
    std::string out;
    std::string runner;
    std::int16_t language = LanguageEnglish;
};

// A program that says "the job is damaged" to whoever gets it is better not made.
void RequireJob(const Tool& tool, const std::string& path) {
    const Job job = tool.ReadJobAt(path);
    if (job.Events.empty()) throw RuntimeFailure(FailureKind::File, "The job '" + tool.PathOf(path) + "' is empty.");
}

void MakeProgram(const ExeOptions& options, Tool& tool) {
    RequireJob(tool, options.job);
    const std::string runner = tool.PathOf(options.runner);
    WriteMadeExecutable(tool.PathOf(options.out), runner, options.language, tool.PathOf(options.job), OldTail::Goes);
}

struct UnpackOptions {
    std::string program;
    std::string job;
};

void Unpack(const UnpackOptions& options, Tool& tool) {
    const std::string path = tool.PathOf(options.program);
    const std::int16_t language = ReadMadeExecutable(path).language;  // and whether the job is one
    const MadeLayout layout = LayoutOf(path);
    InputFile file(path, layout.runnerLength + LanguageSize, layout.jobLength);
    const auto size = static_cast<std::size_t>(layout.jobLength);
    tool.WriteAll(options.job, {file.Take(size), size});
    const auto found = std::ranges::find_if(languages, [&](const auto& each) { return each.second == language; });
    tool.Warn("the language of the program is " + found->first);
}

}  // namespace

void AddExe(CLI::App& tsj, Tool& tool) {
    const auto options = std::make_shared<ExeOptions>();
    CLI::App* const exe = tsj.add_subcommand("exe", "Makes a job into a program of its own");
    exe->add_option("JOB", options->job, "the job file")->required();
    exe->add_option("OUT", options->out, "the program to write")->required();
    exe->add_option("--language", options->language, "of the program: en, de, es, fr")
        ->transform(CLI::Transformer(languages, CLI::ignore_case))
        ->option_text("LANGUAGE");
    exe->add_option("--runner", options->runner, "execreator.bin, else the one beside tsj");
    exe->callback([options, &tool] {
        if (options->runner.empty()) options->runner = tool.BesideProgram("execreator.bin");
        MakeProgram(*options, tool);
    });
}

void AddUnpack(CLI::App& tsj, Tool& tool) {
    const auto options = std::make_shared<UnpackOptions>();
    CLI::App* const unpack = tsj.add_subcommand("unpack", "Takes the job out of a program that was made of one");
    unpack->add_option("EXE", options->program, "the program")->required();
    unpack->add_option("JOB", options->job, "the job file to write, or - for standard output")->required();
    unpack->callback([options, &tool] { Unpack(*options, tool); });
}
