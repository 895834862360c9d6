// What a run was like, row by row, for scripts: as JSON (docs/run_report.schema.json says what is in it) and as JUnit's
// XML.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "base/exit_codes.h"
#include "jobs/job_records.h"
#include "replay/run_listener.h"

enum class Verdict { Ok, Failed, NotReached };

// Times are milliseconds since the pass began; negative for what did not come to pass.
struct RowReport {
    std::int32_t pass = 0;  // from 1
    std::int32_t row = 0;   // its number in the action list, from 1
    double due = -1;
    double sent = -1;
    double searchMs = 0;
    std::int32_t searches = 0;
    std::int32_t searchRounds = 0;
    Verdict verdict = Verdict::NotReached;
    std::string reason;   // of the failure
    std::string picture;  // file of the desktop at that moment
};

class RunReport : public RunListener {
public:
    // A run without an end would fill the memory: of more rows than these the newest are kept.
    static constexpr std::size_t MostRows = 100000;

    std::string jobPath;  // as typed, UTF-8
    JobHeader job;        // as it was played
    std::string startedAt;
    std::int64_t startTick = 0;
    std::int64_t durationMs = 0;
    ExitCode code = ExitCode::Success;
    std::string reason;
    std::int32_t passes = 0;  // begun
    std::int64_t rowsLeftOut = 0;
    std::deque<RowReport> rows;
    std::vector<std::string> rowTexts;  // of each pass the same, in the system code page

    std::string TextOf(const RowReport& row) const;

    // Called at a failure, and gives the name of the file in which the desktop was kept, "" for none.
    std::function<std::string(const RowReport&)> keepPicture;

    void Begin();
    void End(ExitCode exitCode);

    void PassBegins(std::int32_t pass, const std::vector<std::string>& texts) override;
    void RowIsSent(std::size_t row, double due, double sent) override;
    void Searched(std::size_t row, double ms, std::int32_t rounds, std::int32_t result) override;
    void RowFails(std::size_t row, const std::string& why) override;
    void RowEnds(std::size_t row, bool good) override;
    void RunEnds(std::int32_t result, const std::string& why) override;

private:
    RowReport* Row(std::size_t row);
    std::size_t passStart = 0;  // where the rows of the pass begin
    RowReport unknown;          // for what a pass without rows tells of
};

// One word an exit code: "success", "failed", "cancelled", ...
const char* OutcomeWord(ExitCode code);

std::string JsonOf(const RunReport& report);

// One test case a row, as the readers of continuous integration take it.
std::string JUnitOf(const RunReport& report);
