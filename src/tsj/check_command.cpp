// tsj check: what will go wrong with jobs, found without playing them.
#include <CLI/CLI.hpp>
#include <memory>
#include <optional>

#include "base/runtime_failure.h"
#include "findings/check_job.h"
#include "tsj/commands.h"
#include "tsj/json.h"
#include "tsj/tool.h"

namespace {

struct CheckedJobs {
    std::vector<std::string> paths;
    bool json = false;
};

struct ToldFinding {
    std::int32_t row = 0;
    std::int32_t event = -1;
    std::string what;
    std::string toDo;
    std::string line;
};

using ToUtf8 = std::function<std::string(const std::string&)>;

ToldFinding Told(const Finding& finding, const ToUtf8& utf8) {
    return {finding.row, finding.event, utf8(WhatIsWrong(finding)), utf8(WhatToDo(finding)),
            utf8(FindingLine(finding))};
}

// No value for a job that cannot be read, which is a finding.
std::optional<Job> ReadOrTell(const std::string& path, const Tool& tool, std::vector<ToldFinding>& told) {
    try {
        return tool.ReadJobAt(path);
    } catch (const RuntimeFailure& failure) {
        // It names the file, as files are named here.
        told.push_back(Told(FindingOfUnreadableJob(failure), [&tool](const auto& text) { return tool.AsTyped(text); }));
        return std::nullopt;
    }
}

std::vector<ToldFinding> FindingsOf(const Job& job, const Tool& tool) {
    CheckOptions options;
    options.looksForProgram = options.keyboardIsThatOfTheJob = tool.IsOnWindows();
    std::vector<ToldFinding> told;
    for (const Finding& finding : CheckJob(job, options)) told.push_back(Told(finding, Tool::Utf8));
    if (!tool.lookAtDesktop) return told;
    for (const DesktopFinding& finding : tool.lookAtDesktop(job)) {
        const std::string row = finding.row == 0 ? "" : "Row " + std::to_string(finding.row) + ": ";
        told.push_back({finding.row, -1, finding.what, finding.toDo, row + finding.what + " " + finding.toDo});
    }
    return told;
}

Json JsonOf(const std::string& path, const ToldFinding& finding) {
    return {{"job", path},
            {"row", finding.row == 0 ? Json() : Json(finding.row)},
            {"event", finding.event < 0 ? Json() : Json(finding.event)},
            {"what", finding.what},
            {"toDo", finding.toDo}};
}

void Check(const CheckedJobs& jobs, Tool& tool) {
    Json all = Json::array();
    for (const std::string& path : jobs.paths) {
        std::vector<ToldFinding> told;
        const std::optional<Job> job = ReadOrTell(path, tool, told);
        if (job) told = FindingsOf(*job, tool);
        for (const ToldFinding& finding : told) {
            all.push_back(JsonOf(path, finding));
            if (!jobs.json) tool.PrintLine(path + ": " + finding.line);
        }
        if (!told.empty() && tool.exitCode == 0) tool.EndWith(ExitCode::Failed);
        if (!job) tool.EndWith(ExitCode::NothingToPlay);
    }
    if (jobs.json) tool.PrintLine(Indented(all));
}

}  // namespace

void AddCheck(CLI::App& tsj, Tool& tool) {
    const auto jobs = std::make_shared<CheckedJobs>();
    CLI::App* const check = tsj.add_subcommand("check", "Finds what will go wrong with jobs; ends with 1 when it does");
    check->add_option("JOB", jobs->paths, "the job files, or - for standard input")->required();
    check->add_flag("--json", jobs->json, "for a program to read");
    check->callback([jobs, &tool] { Check(*jobs, tool); });
}
