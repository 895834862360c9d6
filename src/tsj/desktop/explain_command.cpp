// tsj explain: what the search for a row's window would find now, and why. Nothing is sent.
#include <CLI/CLI.hpp>
#include <memory>
#include <optional>

#include "folding/puni_listu.h"
#include "replay/explanation_text.h"
#include "replay/reach.h"
#include "replay/row_descriptions.h"
#include "tsj/json.h"
#include "tsj/table.h"
#include "tsj/tool.h"
#include "tsj_desktop/commands.h"

namespace {

struct ExplainOptions {
    std::string job;
    std::int32_t row = 0;
    bool json = false;
};

Explanation ExplainRow(const Job& job, std::int32_t number) {
    std::vector<ActionRow> rows = FoldForReplay(job);
    DropMoveRows(rows);
    if (number < 1 || number > static_cast<std::int32_t>(rows.size())) {
        throw CLI::ValidationError("--row", "there is no row " + std::to_string(number) + "; the job has " +
                                                std::to_string(rows.size()) + " rows");
    }
    const auto index = static_cast<std::size_t>(number) - 1;
    Explanation explanation = Explain(job, rows[index].firstEvent, rows[index].lastEvent);
    explanation.row = RowDescriptions(rows, job.Events)[index];
    explanation.row.erase(0, explanation.row.find_first_not_of(' '));
    return explanation;
}

Json LevelJson(const LevelComparison& level) {
    return {{"level", level.level},
            {"recorded", level.recorded ? WindowJson(*level.recorded) : Json()},
            {"live", level.live ? WindowJson(*level.live) : Json()},
            {"equal",
             {{"class", level.equal.className}, {"caption", level.equal.caption}, {"place", level.equal.placement}}}};
}

const char* WordOf(SearchStep step) {
    static constexpr const char* words[] = {"live window", "top window", "stand-in", "element", "last look"};
    static_assert(std::size(words) == static_cast<std::size_t>(SearchStep::LastLook) + 1);
    return words[static_cast<std::size_t>(step)];
}

const char* WordOf(Fate fate) {
    static constexpr const char* words[] = {"taken",
                                            "other class",
                                            "other caption",
                                            "other parents",
                                            "another is the top",
                                            "another is nearer",
                                            "another is better",
                                            "hidden",
                                            "one of several",
                                            "other depth",
                                            "not found by name",
                                            "not placed",
                                            "not forward",
                                            "goes elsewhere",
                                            "input elsewhere"};
    static_assert(std::size(words) == static_cast<std::size_t>(Fate::InputElsewhere) + 1);
    return words[static_cast<std::size_t>(fate)];
}

Json JsonOf(const Explanation& explanation) {
    Json candidates = Json::array();
    for (const Candidate& candidate : explanation.candidates) {
        Json levels = Json::array();
        for (const LevelComparison& level : candidate.levels) levels.push_back(LevelJson(level));
        candidates.push_back({{"step", WordOf(candidate.step)}, {"fate", WordOf(candidate.fate)}, {"levels", levels}});
    }
    return {{"row", Tool::Utf8(explanation.row)},
            {"found", explanation.result > 0},
            {"likelyReason", Tool::Utf8(LikelyReason(explanation))},
            {"othersLookedAt", explanation.othersLookedAt},
            {"candidates", candidates}};
}

// The same table as in the form, a block for each window.
void PrintText(const Explanation& explanation, const Tool& tool) {
    tool.PrintLine(Tool::Utf8(explanation.row));
    tool.PrintLine(tool.Coloured(Tool::Utf8(LikelyReason(explanation)), Tool::Colour::Bold));
    const ExplanationColumns columns = ExplanationHeader();
    std::optional<Table> block;
    const auto printBlock = [&] {
        if (block) tool.Print(block->Text());
    };
    for (const ExplanationRow& row : ExplanationTable(explanation)) {
        if (row.heading) {
            printBlock();
            block.reset();
            tool.PrintLine("\n" + tool.Coloured(Tool::Utf8(row.what + " - " + row.equal), Tool::Colour::Yellow));
        } else {
            if (!block) {
                block.emplace(
                    std::vector<std::string>{"  " + columns.what, columns.recorded, columns.live, columns.equal});
            }
            block->Add(
                {"  " + Tool::Utf8(row.what), Tool::Utf8(row.recorded), Tool::Utf8(row.live), Tool::Utf8(row.equal)});
        }
    }
    printBlock();
}

ExitCode CodeOf(const Explanation& explanation) {
    if (explanation.result == DesktopOutOfReach) return ExitCode::DesktopUnreachable;
    return explanation.result >= NothingLookedFor ? ExitCode::Success : ExitCode::Failed;
}

void ExplainCommand(const ExplainOptions& options, Tool& tool) {
    const Explanation explanation = ExplainRow(tool.ReadJobAt(options.job), options.row);
    if (options.json) {
        tool.PrintLine(Indented(JsonOf(explanation)));
    } else {
        PrintText(explanation, tool);
    }
    tool.EndWith(CodeOf(explanation));
}

}  // namespace

void AddExplain(CLI::App& tsj, Tool& tool) {
    const auto options = std::make_shared<ExplainOptions>();
    CLI::App* const explain = tsj.add_subcommand(
        "explain", "Tells what the search for a row's window would find now; ends with 1 when it would fail");
    explain->add_option("JOB", options->job, "the job file, or - for standard input")->required();
    explain->add_option("--row", options->row, "the row's number, as the editor shows it")->required();
    explain->add_flag("--json", options->json, "for a program to read");
    explain->callback([options, &tool] { ExplainCommand(*options, tool); });
}
