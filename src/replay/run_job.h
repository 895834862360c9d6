// The one door to replay: every start of a job comes here, from a button, a menu, a hotkey, a schedule or the command
// line.
#pragma once

#include <cstdint>
#include <string>

#include "base/exit_codes.h"
#include "base/runtime_failure.h"
#include "jobs/job_records.h"

// Results of RunJob beside those of ReplayEvents.
inline constexpr std::int32_t RunProgramMissing = 0;      // the job's program could not be started
inline constexpr std::int32_t RunRefusedOrNoFile = -10;   // another run is under way, of this program or another, or
                                                          // the job cannot be opened
inline constexpr std::int32_t RunRefusedRecording = -11;  // a recording is under way

struct RunState {
    bool ReplayRunning = false;
    bool programWasMissing = false;  // nothing is under way, although ReplayRunning stays set until the program ends
};
extern RunState runState;

inline bool RunIsUnderWay() {
    return runState.ReplayRunning && !runState.programWasMissing;
}

// Runs a job file from start to end and returns the passes done, or 0 or less. With a log path the run is unattended:
// it is logged, shows no failure box and leaves the recent jobs alone. `noInputBlock` keeps the user's input on from
// the start, for a hotkey whose keys are still to come up. `reserved` is ignored. Pumps.
//
// A run-time failure, or a lack of memory, leaves everything put right (held keys released, the main window enabled,
// the next run possible), is logged where there is a log, and is thrown on.
std::int32_t RunJob(const std::string& jobPath, std::int32_t reserved, const std::string& logPath, bool noInputBlock);

// The same for a job that is no file, under this name; it is no recent job. Attended, with the user's input blocked.
std::int32_t RunLoadedJob(Job job, const std::string& name);

// What a program that plays one job leaves with: for a result of RunJob, and for a failure that came out of it (of kind
// Range: an index that leads nowhere, which the fold finds before anything is sent).
ExitCode ExitCodeOf(std::int32_t result);
ExitCode ExitCodeOf(const RuntimeFailure& failure);
