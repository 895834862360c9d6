// A replay without waits: a window to play into, and events, the i-th of a kind, always at time zero.
#pragma once

#include "jobs/job_records.h"
#include "platform/input.h"
#include "replay/target_search.h"
#include "simulated/desktop.h"

// A window with an element that has the focus.
struct TargetWindow {
    platform::WindowHandle top = simulated::AddWindow({.className = "Target", .rect = {100, 100, 700, 500}});
    platform::WindowHandle edit =
        simulated::AddWindow({.className = "Edit", .rect = {0, 0, 600, 400}, .parent = top, .controlId = 15});

    TargetWindow() { simulated::SetFocus(edit); }
};

// The job's window 0 is an element that was recorded without a window around it, and chain 0 is its.
inline Job JobForElement() {
    Job job;
    job.SpeedPercent = MaximumSpeed;
    job.SafetyLevel = SafetyLow;
    job.Windows.push_back({{}, "", "Edit", 15});
    job.Chains.emplace_back();
    return job;
}

inline JobEvent Mouse(std::int32_t action, int i) {
    JobEvent event;
    event.dwType() = platform::InputMouse;
    event.dwFlags() = MouseFlagBase + action;
    event.dx() = 150 + i % 300;
    event.dy() = 150 + i % 200;
    return event;
}

// A key-down is for the window of chain 0.
inline JobEvent Key(std::int32_t state, int i) {
    JobEvent event;
    event.dwType() = platform::InputKeyboard;
    event.KeyCode() = platform::ScanCodeOf('A' + i % 26) * 65536 + 'A' + i % 26;
    event.KeyState() = state;
    if (state == 0) event.WindowChainIndex = 0;
    return event;
}
