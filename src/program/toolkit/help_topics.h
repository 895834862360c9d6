// The pages of the help that forms open, by their file names in assets/help. tests/help holds them against what is
// there.
#pragma once

namespace help_topic {

inline constexpr const char* None = "";

// the main window
inline constexpr const char* Record = "Recording_a_new_job.htm";
inline constexpr const char* MyJobs = "my_jobs.htm";
inline constexpr const char* Speed = "speed.htm";
inline constexpr const char* Repeat = "repeat.htm";
inline constexpr const char* Safety = "safety_levels.htm";
inline constexpr const char* Hotkey = "assign_hotkeys.htm";
inline constexpr const char* Schedules = "schedule.htm";
inline constexpr const char* Options = "options.htm";
inline constexpr const char* About = "about.htm";
inline constexpr const char* Tray = "tray.htm";

// the other forms
inline constexpr const char* StartProgram = "start_program.htm";
inline constexpr const char* SaveAs = "save_as.htm";
inline constexpr const char* Running = "running.htm";
inline constexpr const char* WindowNotFound = "window_not_found.htm";
inline constexpr const char* JobEditor = "job_editor.htm";
inline constexpr const char* SaveName = "save_name.htm";
inline constexpr const char* Language = "language.htm";
inline constexpr const char* ScheduleWarning = "schedule_warning.htm";

}  // namespace help_topic
