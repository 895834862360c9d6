#include "tsj/tsj.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <exception>
#include <sstream>

#include "base/exit_codes.h"
#include "base/product.h"
#include "base/runtime_failure.h"
#include "dictionary/dictionary.h"
#include "tsj/commands.h"
#include "tsj/tool.h"

namespace {

// Takes whatever is given to it.
void AddForWindows(CLI::App& tsj, const std::string& name, const std::string& does) {
    CLI::App* const command = tsj.add_subcommand(name, does + ", on Windows alone");
    command->prefix_command();
    command->callback([name] { throw CLI::ValidationError(name, "needs the desktop of Windows; use tsj.exe there"); });
}

}  // namespace

const std::vector<AddCommand> withoutDesktop = {
    [](CLI::App& tsj, Tool&) { AddForWindows(tsj, "run", "Plays a job"); },
    [](CLI::App& tsj, Tool&) { AddForWindows(tsj, "explain", "Tells what the search for a row's window finds"); },
};

const std::vector<AddCommand> textCommands = {AddShow,   AddCheck,   AddDiff, AddExport, AddImport,
                                              AddRedact, AddPicture, AddExe,  AddUnpack};

namespace {

// A file that cannot be read, or an index in it that leads nowhere: there is nothing to work with.
ExitCode CodeOf(const RuntimeFailure& failure) {
    return failure.Kind() == FailureKind::Memory ? ExitCode::Failed : ExitCode::NothingToPlay;
}

void AddHelp(CLI::App& tsj, Tool& tool) {
    CLI::App* const help = tsj.add_subcommand("help", "Tells of a command: tsj help COMMAND");
    auto name = std::make_shared<std::string>();
    help->add_option("command", *name, "the command");
    help->callback([&tsj, &tool, name] {
        // OptionNotFound for a command that there is not.
        // App::help would tell of this very command, which is the one that was given.
        const auto all = [&tsj] { return tsj.get_formatter()->make_help(&tsj, "tsj", CLI::AppFormatMode::Normal); };
        tool.Print(name->empty() ? all() : tsj.get_subcommand(*name)->help("tsj"));
    });
}

int Tell(const CLI::App& tsj, const CLI::Error& error, Streams& streams) {
    std::ostringstream out;
    std::ostringstream err;
    const int code = tsj.exit(error, out, err);
    streams.out(out.str());
    streams.err(err.str());
    return code == 0 ? 0 : static_cast<int>(ExitCode::WrongUsage);
}

}  // namespace

int RunTsj(const std::vector<std::string>& arguments, Streams& streams,
           const std::vector<std::vector<AddCommand>>& commands) {
    UseLanguage(LanguageEnglish);
    Tool tool(streams);
    CLI::App tsj("Jobs of Tessarine on the command line", "tsj");
    tsj.set_version_flag("--version", std::string("tsj ") + ProductVersion);
    tsj.require_subcommand(1);
    AddHelp(tsj, tool);
    for (const auto& group : commands) {
        for (const AddCommand add : group) add(tsj, tool);
    }
    try {
        std::vector<std::string> fromTheBack(arguments.rbegin(), arguments.rend());
        tsj.parse(std::move(fromTheBack));
    } catch (const CLI::Error& error) {
        return Tell(tsj, error, streams);
    } catch (const RuntimeFailure& failure) {
        tool.Warn(streams.pathAsTyped(failure.what()));
        return static_cast<int>(CodeOf(failure));
    } catch (const std::exception& failure) {
        tool.Warn(failure.what());
        return static_cast<int>(ExitCode::Failed);
    }
    return tool.exitCode;
}
