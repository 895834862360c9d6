// The forms of a test that have to do with schedules: the schedule page, the countdown and the exit warning.
#pragma once

#include <functional>
#include <string>
#include <vector>

struct ScheduleViewsStandIn {
    int pageShown = 0;               // how often the controls were told to follow the page
    std::vector<std::string> calls;  // "menu", "focus Combo1", "focus schedule_save_as"

    // schedule_start_form
    struct StartForm {
        bool shown = false;
        std::string name;
        std::string status;
    };
    StartForm start;
    std::vector<std::string> starts;  // "name|status" as the form appeared, and at each change of the name
    std::vector<int> alphas;          // of the last form

    // schedule_warning
    bool warningShown = false;
    int warnings = 0;
    std::function<void()> duringWarning;  // runs while the form is open; it closes by itself when nothing closes it
};
extern ScheduleViewsStandIn scheduleViewsStandIn;
