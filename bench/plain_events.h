// Events of a replay without waits: the i-th of a kind, always at time zero.
#pragma once

#include "jobs/job_records.h"
#include "platform/input.h"

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
