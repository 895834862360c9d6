// tsj check: what will go wrong with jobs, found without playing them.
#include <CLI/CLI.hpp>
#include <memory>
#include <nlohmann/json.hpp>

#include "base/runtime_failure.h"
#include "findings/check_job.h"
#include "tsj/commands.h"
#include "tsj/tool.h"

using Json = nlohmann::ordered_json;

namespace {

struct CheckedJobs {
    std::vector<std::string> paths;
    bool json = false;
};

std::vector<Finding> FindingsOf(const std::string& path, const Tool& tool) {
    try {
        CheckOptions options;
        options.looksForProgram = tool.KnowsWindowsPaths();
        return CheckJob(tool.ReadJobAt(path), options);
    } catch (const RuntimeFailure& failure) {
        return {FindingOfUnreadableJob(failure)};
    }
}

Json JsonOf(const std::string& path, const Finding& finding) {
    return {{"job", path},
            {"row", finding.row == 0 ? Json() : Json(finding.row)},
            {"event", finding.event < 0 ? Json() : Json(finding.event)},
            {"what", Tool::Utf8(WhatIsWrong(finding))},
            {"toDo", Tool::Utf8(WhatToDo(finding))}};
}

void Check(const CheckedJobs& jobs, Tool& tool) {
    Json all = Json::array();
    bool unreadable = false;
    for (const std::string& path : jobs.paths) {
        for (const Finding& finding : FindingsOf(path, tool)) {
            all.push_back(JsonOf(path, finding));
            unreadable = unreadable || finding.kind == FindingKind::UnreadableJob;
            if (!jobs.json) tool.PrintLine(path + ": " + Tool::Utf8(FindingLine(finding)));
        }
    }
    if (jobs.json) tool.PrintLine(all.dump(2, ' ', false, Json::error_handler_t::replace));
    if (!all.empty()) tool.EndWith(unreadable ? ExitCode::NothingToPlay : ExitCode::Failed);
}

}  // namespace

void AddCheck(CLI::App& tsj, Tool& tool) {
    const auto jobs = std::make_shared<CheckedJobs>();
    CLI::App* const check = tsj.add_subcommand("check", "Finds what will go wrong with jobs; ends with 1 when it does");
    check->add_option("JOB", jobs->paths, "the job files, or - for standard input")->required();
    check->add_flag("--json", jobs->json, "for a program to read");
    check->callback([jobs, &tool] { Check(*jobs, tool); });
}
