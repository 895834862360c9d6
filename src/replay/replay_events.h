// The replay loop: turns the events of a loaded job back into input, once per pass. Runs on the user-interface thread
// from start to end and stays responsive because it pumps in its waits, at its traces and every few events.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "folding/action_row.h"
#include "jobs/job_records.h"

inline constexpr std::int32_t ReplayCanceled = -2;
inline constexpr std::int32_t ReplayNothingToDo = -200;

// Replays `job` with the options in its header. Returns the number of passes done (1 or more), 0 or less for a search
// or a sending that stopped it, ReplayCanceled, or ReplayNothingToDo; `reason` is then set where there is one to tell.
// The events are changed in place while they are sent and put back afterwards. Rows that only move the mouse are
// dropped from `rows`. With a log path the run is logged with LogLine (the file is not written here). Held keys stay
// in heldInput for the caller to release, whichever way this returns or throws.
std::int32_t ReplayEvents(Job& job, std::vector<ActionRow>& rows, std::string& reason, const std::string& logPath);
