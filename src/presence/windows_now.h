// Which of a job's windows are there now, as its run would choose them, and whether the places where it recorded them
// and its presses are on a monitor. Only looks; nothing here pumps.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "jobs/job_records.h"

enum class WindowPresence {
    There,
    Similar,  // another caption, which the job allows
    Several,  // of this name, and none stands where it was recorded
    Missing,
};

// A top-level window that the run looks for, by class and caption.
struct WindowNow {
    std::int32_t row = 0;  // the number of the first row that is for it, as the editor shows it
    std::string title;     // recorded; in the system code page, as all texts here
    std::string className;
    WindowPresence presence = WindowPresence::Missing;
    std::string titleNow;     // of the window that would be taken; empty for none
    bool isOnMonitor = true;  // any part of its recorded place
};

struct DesktopNow {
    std::vector<WindowNow> windows;             // in the order of their first rows; none at low safety
    std::vector<std::int32_t> rowsOffMonitors;  // numbers of rows that press where no monitor is
};

// Takes any job; what leads nowhere is left out (CheckJob tells of it).
DesktopNow CheckWindowsNow(const Job& job);

// In English: "The window 'Report' is not there."
std::string SentenceOf(const WindowNow& window);
