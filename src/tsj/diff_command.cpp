// tsj diff: what the rows of a job have that those of another have not.
#include <CLI/CLI.hpp>
#include <memory>

#include "base/runtime_failure.h"
#include "comparison/compare_jobs.h"
#include "tsj/commands.h"
#include "tsj/json.h"
#include "tsj/tool.h"

namespace {

// As the program diff has them.
constexpr int Same = 0;
constexpr int Different = 1;
constexpr int Trouble = 2;

struct DiffOptions {
    std::string a;
    std::string b;
    bool json = false;
};

constexpr std::pair<RowAspect, const char*> aspectWords[] = {{DelayAspect, "delay"},
                                                             {WindowAspect, "window"},
                                                             {ContentAspect, "content"},
                                                             {TimingAspect, "timing"},
                                                             {WaitingAspect, "wait for the window"}};

std::vector<std::string> WordsOf(std::uint32_t aspects) {
    std::vector<std::string> words;
    for (const auto& [aspect, word] : aspectWords) {
        if ((aspects & aspect) != 0) words.emplace_back(word);
    }
    return words;
}

std::string Joined(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words) text += (text.empty() ? "" : ", ") + word;
    return text;
}

// Number, start time, delay and duration, what is done, in which window, with what.
std::string LineOf(const GridColumns& columns) {
    std::string line;
    static constexpr std::size_t order[] = {0, 4, 3, 5, 1, 2, 6, 7};
    for (const std::size_t column : order) {
        if (!columns[column].empty()) line += (line.empty() ? "" : "  ") + Tool::Utf8(columns[column]);
    }
    return line;
}

Json RowJson(const GridColumns& columns) {
    return {{"row", Tool::Utf8(columns[0])},    {"start", Tool::Utf8(columns[4])},
            {"delay", Tool::Utf8(columns[3])},  {"duration", Tool::Utf8(columns[5])},
            {"action", Tool::Utf8(columns[2])}, {"window", Tool::Utf8(columns[6])},
            {"text", Tool::Utf8(columns[7])}};
}

const char* WordOf(RowChange change) {
    switch (change) {
        case RowChange::Removed:
            return "removed";
        case RowChange::Added:
            return "added";
        default:
            return "changed";
    }
}

Json JsonOf(JobComparison& comparison) {
    Json options = Json::array();
    for (const OptionDifference& option : comparison.Options()) {
        options.push_back(
            {{"option", option.name}, {"a", Tool::Utf8(option.valueA)}, {"b", Tool::Utf8(option.valueB)}});
    }
    Json rows = Json::array();
    for (const RowDifference& row : comparison.Rows()) {
        Json difference = {{"change", WordOf(row.change)}};
        if (row.change == RowChange::Changed) difference["what"] = WordsOf(row.aspects);
        if (row.rowA >= 0) difference["a"] = RowJson(comparison.ColumnsOfA(row.rowA));
        if (row.rowB >= 0) difference["b"] = RowJson(comparison.ColumnsOfB(row.rowB));
        rows.push_back(std::move(difference));
    }
    return {{"options", options}, {"rows", rows}};
}

void PrintText(const DiffOptions& options, JobComparison& comparison, const Tool& tool) {
    tool.PrintLine(tool.Coloured("--- " + options.a, Tool::Colour::Bold));
    tool.PrintLine(tool.Coloured("+++ " + options.b, Tool::Colour::Bold));
    const auto minus = [&](const std::string& line) { tool.PrintLine(tool.Coloured("- " + line, Tool::Colour::Red)); };
    const auto plus = [&](const std::string& line) { tool.PrintLine(tool.Coloured("+ " + line, Tool::Colour::Green)); };
    for (const OptionDifference& option : comparison.Options()) {
        minus(option.name + ": " + Tool::Utf8(option.valueA));
        plus(option.name + ": " + Tool::Utf8(option.valueB));
    }
    for (const RowDifference& row : comparison.Rows()) {
        if (row.change == RowChange::Changed) tool.PrintLine("@ changed: " + Joined(WordsOf(row.aspects)));
        if (row.rowA >= 0) minus(LineOf(comparison.ColumnsOfA(row.rowA)));
        if (row.rowB >= 0) plus(LineOf(comparison.ColumnsOfB(row.rowB)));
    }
}

void Diff(const DiffOptions& options, Tool& tool) {
    try {
        JobComparison comparison(tool.ReadJobAt(options.a), tool.ReadJobAt(options.b));
        tool.exitCode = comparison.AreSame() ? Same : Different;
        if (options.json) {
            tool.PrintLine(Indented(JsonOf(comparison)));
        } else if (!comparison.AreSame()) {
            PrintText(options, comparison, tool);
        }
    } catch (const RuntimeFailure& failure) {
        tool.Warn(tool.AsTyped(failure.what()));
        tool.exitCode = Trouble;
    }
}

}  // namespace

void AddDiff(CLI::App& tsj, Tool& tool) {
    const auto options = std::make_shared<DiffOptions>();
    CLI::App* const diff =
        tsj.add_subcommand("diff", "Compares two jobs row by row; ends with 0 same, 1 different, 2 trouble");
    diff->add_option("A", options->a, "the old job")->required();
    diff->add_option("B", options->b, "the new one")->required();
    diff->add_flag("--json", options->json, "for a program to read");
    diff->callback([options, &tool] { Diff(*options, tool); });
}
