// The user's wish to leave the program. No schedule fires while the program is not running, so the wish is questioned
// when a scheduled run is near: by schedule_warning, whose texts and rules are here.
#pragma once

#include <functional>
#include <string>

struct ScheduleWarning {
    std::string title;
    std::string job;
    std::string startsIn;  // "is scheduled to start in:"
    std::string Label2;    // how long it is until then
    std::string Label6;    // and the time of day
    std::string notRunning;
    std::string question;
    bool open = false;
    bool leave = false;  // the answer
};
extern ScheduleWarning scheduleWarning;

// ExitProgram: calls `quit` unless the user, asked about a run that is near, decides to stay. `quit` ends the process
// and need not return. When the run is about to begin, nothing is asked and the program stays. Pumps while it asks.
void ExitProgram(const std::function<void()>& quit);

// The buttons YES and NO of schedule_warning.
void schedule_warning_Command2();
void schedule_warning_command3();
