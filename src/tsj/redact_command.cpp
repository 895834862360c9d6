// tsj redact: takes typed texts out of a job, and tells what it took, never the text itself.
#include <CLI/CLI.hpp>
#include <memory>

#include "base/runtime_failure.h"
#include "jobs/job_file.h"
#include "platform/text.h"
#include "redaction/redaction.h"
#include "tsj/commands.h"
#include "tsj/tool.h"

namespace {

struct RedactOptions {
    std::string job;
    std::string out;
    std::vector<std::int32_t> rows;
    std::vector<std::string> windows;
    bool all = false;
};

RedactionChoice ChoiceOf(const RedactOptions& options) {
    RedactionChoice choice;
    choice.all = options.all;
    choice.rows = options.rows;
    for (const std::string& window : options.windows) choice.windows.push_back(platform::FromUtf8(window));
    return choice;
}

// Beside the job, which may go to standard output.
void Tell(const RedactionAccount& account, const Tool& tool) {
    for (const RedactedRow& row : account.rows) {
        const std::string where = row.number == 0 ? "Keys in no row" : "Row " + std::to_string(row.number);
        const std::string window = row.window.empty() ? "" : " in '" + Tool::Utf8(row.window) + "'";
        tool.Warn(where + ": " + std::to_string(row.keystrokes) + " keystrokes taken out" + window);
    }
    if (account.rows.empty()) tool.Warn("nothing was typed in this job");
    for (const RedactionFinding& finding : account.findings) tool.Warn("look at this: " + SentenceOf(finding));
}

void RedactJob(const RedactOptions& options, const Tool& tool) {
    Job job = tool.ReadJobAt(options.job);
    RedactionAccount account;
    try {
        account = Redact(job, ChoiceOf(options));
    } catch (const RuntimeFailure& failure) {
        // A row or window that is not there; the job could be read.
        if (failure.Kind() != FailureKind::Range) throw;
        throw CLI::ValidationError("redact", Tool::Utf8(failure.what()));
    }
    tool.WriteAll(options.out, JobBytes(job));
    Tell(account, tool);
}

}  // namespace

void AddRedact(CLI::App& tsj, Tool& tool) {
    const auto options = std::make_shared<RedactOptions>();
    CLI::App* const redact = tsj.add_subcommand("redact", "Takes typed texts out of a job");
    redact->add_option("JOB", options->job, "the job file, or - for standard input")->required();
    redact->add_option("-o,--out", options->out, "the job file to write, or - for standard output")->required();
    CLI::Option_group* const what = redact->add_option_group("what", "What is taken out");
    what->add_option("--row", options->rows, "rows, by their numbers in the editor");
    what->add_option("--window", options->windows, "what was typed into the window of this title");
    what->add_flag("--all", options->all, "everything that was typed");
    what->require_option(1, 0);
    redact->callback([options, &tool] { RedactJob(*options, tool); });
}
