#include "tsj_desktop/run_report.h"

#include <cmath>
#include <cstdio>

#include "base/product.h"
#include "base/text.h"
#include "platform/clock.h"
#include "platform/machine.h"
#include "tsj/json.h"
#include "tsj/tool.h"
#include "tsj/words.h"

namespace {

std::string Iso(const platform::LocalTime& time) {
    char text[64];
    std::snprintf(text, sizeof text, "%04d-%02d-%02dT%02d:%02d:%02d", time.year, time.month, time.day, time.hour,
                  time.minute, time.second);
    return text;
}

const char* WordOf(Verdict verdict) {
    switch (verdict) {
        case Verdict::Ok:
            return "ok";
        case Verdict::Failed:
            return "failed";
        default:
            return "not reached";
    }
}

// To the microsecond.
Json Ms(double ms) {
    return ms < 0 ? Json() : Json(static_cast<double>(std::llround(ms * 1000)) / 1000);
}

Json RowJson(const RunReport& report, const RowReport& row) {
    const bool wasSent = row.sent >= 0;
    Json json = {{"pass", row.pass},
                 {"row", row.row},
                 {"text", Tool::Utf8(report.TextOf(row))},
                 {"dueMs", Ms(row.due)},
                 {"sentMs", Ms(row.sent)},
                 {"latenessMs", wasSent ? Json(Ms(std::max(0.0, row.sent - row.due))) : Json()},
                 {"searchMs", Ms(row.searchMs)},
                 {"searches", row.searches},
                 {"searchRounds", row.searchRounds},
                 {"verdict", WordOf(row.verdict)},
                 {"reason", Tool::Utf8(row.reason)}};
    if (!row.picture.empty()) json["picture"] = row.picture;
    return json;
}

Json MachineJson() {
    Json monitors = Json::array();
    for (const platform::Monitor& monitor : platform::Monitors()) {
        monitors.push_back({{"left", monitor.place.left},
                            {"top", monitor.place.top},
                            {"width", monitor.place.right - monitor.place.left},
                            {"height", monitor.place.bottom - monitor.place.top},
                            {"scalingPercent", monitor.dpi * 100 / 96},
                            {"primary", monitor.primary}});
    }
    return {{"system", platform::SystemVersion()},
            {"monitors", monitors},
            {"keyboardLayout", platform::KeyboardLayoutName()}};
}

}  // namespace

void RunReport::Begin() {
    startedAt = Iso(platform::LocalNow());
    startTick = platform::TickCount();
}

void RunReport::End(ExitCode exitCode) {
    code = exitCode;
    durationMs = platform::TickCount() - startTick;
}

void RunReport::PassBegins(std::int32_t pass, const std::vector<std::string>& texts) {
    passes = pass + 1;
    while (!rows.empty() && rows.size() + texts.size() > MostRows) {
        rows.pop_front();
        ++rowsLeftOut;
    }
    passStart = rows.size();
    for (std::size_t i = 0; i < texts.size(); ++i) {
        RowReport& row = rows.emplace_back();
        row.pass = passes;
        row.row = static_cast<std::int32_t>(i) + 1;
    }
    if (rowTexts.empty()) rowTexts = texts;
}

std::string RunReport::TextOf(const RowReport& row) const {
    return Trim(rowTexts[static_cast<std::size_t>(row.row) - 1]);
}

// A job of nothing but moves has no rows.
RowReport* RunReport::Row(std::size_t row) {
    const std::size_t index = passStart + row;
    return index < rows.size() ? &rows[index] : &unknown;
}

void RunReport::RowIsSent(std::size_t row, double due, double sent) {
    Row(row)->due = due;
    Row(row)->sent = sent;
}

void RunReport::Searched(std::size_t row, double ms, std::int32_t rounds, std::int32_t) {
    RowReport& searched = *Row(row);
    searched.searchMs += ms;
    searched.searches += 1;
    searched.searchRounds += rounds;
}

void RunReport::RowFails(std::size_t row, const std::string& why) {
    RowReport& failed = *Row(row);
    const bool first = failed.verdict != Verdict::Failed;
    failed.verdict = Verdict::Failed;
    failed.reason = why;
    if (first && keepPicture) failed.picture = keepPicture(failed);
}

// A row of several actions can fail in one of them, and is told as failed although the last was good.
void RunReport::RowEnds(std::size_t row, bool good) {
    RowReport& ended = *Row(row);
    if (ended.verdict != Verdict::Failed) ended.verdict = good ? Verdict::Ok : Verdict::Failed;
}

void RunReport::RunEnds(std::int32_t result, const std::string& why) {
    if (result < 1) reason = why;
}

const char* OutcomeWord(ExitCode code) {
    switch (code) {
        case ExitCode::Success:
            return "success";
        case ExitCode::Cancelled:
            return "cancelled";
        case ExitCode::NothingToPlay:
            return "nothing to play";
        case ExitCode::Busy:
            return "busy";
        case ExitCode::DesktopUnreachable:
            return "desktop unreachable";
        case ExitCode::TimedOut:
            return "timed out";
        default:
            return "failed";
    }
}

std::string JsonOf(const RunReport& report) {
    Json rows = Json::array();
    for (const RowReport& row : report.rows) rows.push_back(RowJson(report, row));
    const Json json = {{"format", 1},
                       {"tool", std::string("tsj ") + ProductVersion},
                       {"job",
                        {{"path", report.jobPath},
                         {"speedPercent", report.job.SpeedPercent},
                         {"repeats", report.job.RepeatCount},
                         {"safety", SafetyWord(report.job.SafetyLevel)}}},
                       {"machine", MachineJson()},
                       {"startedAt", report.startedAt},
                       {"durationMs", report.durationMs},
                       {"outcome", OutcomeWord(report.code)},
                       {"exitCode", static_cast<int>(report.code)},
                       {"reason", Tool::Utf8(report.reason)},
                       {"passes", report.passes},
                       {"rowsLeftOut", report.rowsLeftOut},
                       {"rows", rows}};
    return Indented(json) + "\n";
}
