// The layout of settings.binary, field by field. docs/job_format.md shows the same as tables.
#pragma once

#include "settings/settings.h"
#include "storage/archive.h"

inline constexpr std::size_t JobPathWidth = 512;

template <class Archive>
void Fields(Archive& file, In<Archive, Hotkey>& hotkey) {
    file.Int32("modifiers", hotkey.modifiers);
    file.Int16("virtual_key", hotkey.virtual_key);
    file.Text("job_path", hotkey.job_path, JobPathWidth);
}

template <class Archive>
void Fields(Archive& file, In<Archive, Schedule>& schedule) {
    file.Int32("schedule_type", schedule.schedule_type);
    file.Text("schedule_name", schedule.schedule_name, 256);
    file.Text("date_field", schedule.date_field, 10);
    file.Text("start_time", schedule.start_time, 8);
    file.Int32("when_computer_starts", schedule.when_computer_starts);
    file.Int32("wait_items_loaded", schedule.wait_items_loaded);
    file.Int32("only_once_per_day", schedule.only_once_per_day);
    file.Int32("days_of_week", schedule.days_of_week);
    file.Text("job_path", schedule.job_path, JobPathWidth);
    file.Int16("enabled", schedule.enabled);
    file.Text("next_run", schedule.next_run, 19);
    file.Text("last_run", schedule.last_run, 19);
    file.Int32("last_result", schedule.last_result);
    file.Text("log_path", schedule.log_path, 512);
    // A cancelled schedule keeps silent for as long as the process lives, and no longer.
    file.Constant32("suppressed", 0);
}

// The options in front of the two tables; the version before them is read on its own.
template <class Archive>
void Fields(Archive& file, In<Archive, Settings>& options) {
    file.Int32("MainLeft", options.MainLeft);
    file.Int32("MainTop", options.MainTop);
    file.Int32("EditorLeft", options.EditorLeft);
    file.Int32("EditorTop", options.EditorTop);
    file.Int32("EditorWidth", options.EditorWidth);
    file.Int32("EditorHeight", options.EditorHeight);
    file.Int32("EditorState", options.EditorState);
    file.Int32("display_countdown_check", options.display_countdown_check);
    file.Int32("Display_Recording_Window", options.Display_Recording_Window);
    file.Int32("countdown_period", options.countdown_period);
    file.Constant16("SettingsLoaded", -1);
    file.Int32("Check_updates", options.Check_updates);
    file.Int32("play_sounds_for_keystrokes", options.play_sounds_for_keystrokes);
    file.Int32("Play_Menu_Sounds", options.Play_Menu_Sounds);
    file.Int32("Display_Executing_Status", options.Display_Executing_Status);
    for (auto& path : options.RecentJobs) file.Text("RecentJobs", path, JobPathWidth);
    file.Int32("create_shortcut_on_desktop", options.create_shortcut_on_desktop);
    file.Int32("Display_Start_Program_Dialog", options.Display_Start_Program_Dialog);
    file.Int32("Capture_Mouse_Moves", options.Capture_Mouse_Moves);
}
