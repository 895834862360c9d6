#include <algorithm>
#include <cstdio>

#include "base/xml.h"
#include "tsj/tool.h"
#include "tsj_desktop/run_report.h"

namespace {

std::string Attribute(const char* name, const std::string& value) {
    return std::string(" ") + name + "=\"" + EscapedXml(value) + "\"";
}

std::string Seconds(double ms) {
    char text[32];
    std::snprintf(text, sizeof text, "%.3f", ms < 0 ? 0 : ms / 1000);
    return text;
}

std::string Inside(const RowReport& row, const std::string& runReason) {
    switch (row.verdict) {
        case Verdict::Ok:
            return {};
        case Verdict::Failed:
            return "<failure" + Attribute("message", Tool::Utf8(row.reason.empty() ? runReason : row.reason)) + "/>";
        default:
            return "<skipped" + Attribute("message", "not reached") + "/>";
    }
}

// From the first input of the row before, or the start of the pass, to its own.
double MsOf(const RunReport& report, std::size_t index) {
    const RowReport& row = report.rows[index];
    const bool first = index == 0 || report.rows[index - 1].pass != row.pass;
    return row.sent - (first ? 0 : std::max(0.0, report.rows[index - 1].sent));
}

std::string CaseOf(const RunReport& report, std::size_t index) {
    const RowReport& row = report.rows[index];
    return "    <testcase" + Attribute("classname", report.jobPath) +
           Attribute("name", "pass " + std::to_string(row.pass) + ": " + Tool::Utf8(report.TextOf(row))) +
           Attribute("time", Seconds(MsOf(report, index))) + ">" + Inside(row, report.reason) + "</testcase>\n";
}

std::size_t CountOf(const RunReport& report, Verdict verdict) {
    std::size_t count = 0;
    for (const RowReport& row : report.rows) count += row.verdict == verdict ? 1 : 0;
    return count;
}

// Of the run as a whole: one that is cancelled, or refused, has no row that failed.
std::string RunCase(const RunReport& report) {
    const bool good = report.code == ExitCode::Success;
    const std::string message = std::string(OutcomeWord(report.code)) + ": " + Tool::Utf8(report.reason);
    return "    <testcase" + Attribute("classname", report.jobPath) + Attribute("name", "the run") +
           Attribute("time", Seconds(static_cast<double>(report.durationMs))) + ">" +
           (good ? "" : "<error" + Attribute("message", message) + "/>") + "</testcase>\n";
}

}  // namespace

std::string JUnitOf(const RunReport& report) {
    const bool good = report.code == ExitCode::Success;
    std::string xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuites>\n  <testsuite";
    xml += Attribute("name", report.jobPath) + Attribute("tests", std::to_string(report.rows.size() + 1)) +
           Attribute("failures", std::to_string(CountOf(report, Verdict::Failed))) +
           Attribute("errors", good ? "0" : "1") +
           Attribute("skipped", std::to_string(CountOf(report, Verdict::NotReached))) +
           Attribute("time", Seconds(static_cast<double>(report.durationMs))) +
           Attribute("timestamp", report.startedAt) + ">\n";
    for (std::size_t index = 0; index < report.rows.size(); ++index) xml += CaseOf(report, index);
    return xml + RunCase(report) + "  </testsuite>\n</testsuites>\n";
}
