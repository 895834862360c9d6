// The main window of a test, as the shell and the tray see it, and what becomes of the process. What is said to them is
// kept in order; a job that the shell starts runs in no time with the result that the test wants.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

// Thrown where the program would end at once: nothing that stands behind it may happen.
struct ProcessEnded {};

struct ShellStandIn {
    std::vector<std::string> calls;  // in order: "CreateMainWindow", "Hide", "RunJob C:\job.tsj", ...

    bool visible = false;  // as the form has it
    bool minimised = false;
    bool enabled = true;
    std::string trayOpenCaption;

    std::function<void()> duringLanguageSelection;

    std::int32_t runResult = 1;
    std::function<void()> duringRun;
};
extern ShellStandIn shellStandIn;

// The place of `call` among the calls, -1 when it was never made.
int PlaceOf(const std::string& call);
inline bool WasCalled(const std::string& call) {
    return PlaceOf(call) >= 0;
}
