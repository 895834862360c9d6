// Finds what will go wrong with a job, without a desktop. A finding is something that a run would stumble over, or that
// will make it fail on another day; what a recording holds by its nature is none: a key that the end of the recording
// has cut off, the release of a press on our own windows, clicks of the Scroll Lock key at time zero, moves anywhere.
// One pass over the events; the job is folded into rows only when there is something to number. Nothing here pumps or
// shows a box.
#pragma once

#include <vector>

#include "base/runtime_failure.h"
#include "findings/finding.h"
#include "jobs/job_records.h"

struct CheckOptions {
    // Whether the program that the job starts is looked for. Where paths are not those of Windows, none can be.
    bool looksForProgram = true;

    // Whether what this keyboard lacks cannot be typed. Elsewhere a letter beyond ASCII may be on the keyboard that the
    // job was recorded with.
    bool keyboardIsThatOfTheJob = true;
};

// In the order of the rows, those of the job as a whole first; no two are alike. Keystrokes are judged by the present
// keyboard layout.
std::vector<Finding> CheckJob(const Job& job, const CheckOptions& options = {});

// Of a job that cannot be read at all.
Finding FindingOfUnreadableJob(const RuntimeFailure& failure);

// From these on, a wait is worth a word.
inline constexpr std::int32_t LongWaitSeconds = 120;

// Events whose times lie closer together have their order from the hooks: a key takes its time after the look at its
// window, a press before it.
inline constexpr std::int32_t TimeToleranceMs = 2000;

// A recorded place is that within the work area, without a task bar on the left or on top of the screen.
inline constexpr std::int32_t PlaceToleranceInPixels = 200;
