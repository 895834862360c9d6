// Settings with one hotkey and two schedules, as records and as the bytes of settings.binary.
#pragma once

#include <string>

#include "platform/simulated/files.h"
#include "settings/folders.h"
#include "settings/settings.h"
#include "settings/settings_fields.h"
#include "support/file_bytes.h"

inline const std::string settingsPath = "C:\\data\\settings.binary";
inline const std::string hotkeyJob = "C:\\data\\Letter.tsj";
inline const std::string scheduledJob = "C:\\data\\Backup.tsj";

inline Settings SampleSettings() {
    Settings sample;
    sample.MainLeft = 100;
    sample.MainTop = 200;
    sample.EditorLeft = -300;
    sample.EditorTop = 400;
    sample.EditorWidth = 500;
    sample.EditorHeight = 600;
    sample.EditorState = 2;
    sample.display_countdown_check = 1;
    sample.Display_Recording_Window = 0;
    sample.countdown_period = 10;
    sample.Check_updates = 1;
    sample.play_sounds_for_keystrokes = 0;
    sample.Play_Menu_Sounds = 1;
    sample.Display_Executing_Status = 0;
    sample.RecentJobs = {scheduledJob, hotkeyJob, "", "", "C:\\last.tsj"};
    sample.create_shortcut_on_desktop = 1;
    sample.Display_Start_Program_Dialog = 0;
    sample.Capture_Mouse_Moves = 1;
    sample.Hotkeys = {{HotkeyControl | HotkeyShift, 'L', hotkeyJob}};
    sample.Schedules = {{.schedule_type = ScheduleMonthly,
                         .schedule_name = "Month's end",
                         .date_field = "31",
                         .start_time = "07:30:00",
                         .job_path = scheduledJob,
                         .enabled = -1,
                         .next_run = "2026-11-15@14:30:00",
                         .last_run = "2026-10-31@07:30:00",
                         .last_result = ScheduleCanceled,
                         .log_path = "C:\\data\\Month's end.log"},
                        {.schedule_type = ScheduleWeekly,
                         .schedule_name = "At start",
                         .date_field = "",
                         .start_time = "00:00:00",
                         .when_computer_starts = 1,
                         .wait_items_loaded = 1,
                         .only_once_per_day = 1,
                         .days_of_week = 0x7F,
                         .job_path = scheduledJob,
                         .next_run = "Never",
                         .last_run = "",
                         .last_result = 3,
                         .log_path = ""}};
    return sample;
}

// The options of the sample, byte by byte: a file without hotkeys and schedules but for the two counts.
inline FileBytes SampleOptions() {
    FileBytes file;
    file.Int32(306).Int32(100).Int32(200).Int32(-300).Int32(400).Int32(500).Int32(600).Int32(2);
    file.Int32(1).Int32(0).Int32(10).Int16(-1).Int32(1).Int32(0).Int32(1).Int32(0);
    file.Text(scheduledJob, 512).Text(hotkeyJob, 512).Text("", 1024).Text("C:\\last.tsj", 512);
    file.Int32(1).Int32(0).Int32(1);
    return file;
}

inline std::string SampleSettingsBytes() {
    FileBytes file = SampleOptions();
    file.Int32(1);
    file.Int32(6).Int16('L').Text(hotkeyJob, 512);
    file.Int32(2);
    file.Int32(3).Text("Month's end", 256).Text("31", 10).Text("07:30:00", 8).Words(4, 0).Text(scheduledJob, 512);
    file.Int16(-1).Text("2026-11-15@14:30:00", 19).Text("2026-10-31@07:30:00", 19).Int32(-101);
    file.Text("C:\\data\\Month's end.log", 512).Int32(0);
    file.Int32(2).Text("At start", 256).Text("", 10).Text("00:00:00", 8).Int32(1).Int32(1).Int32(1).Int32(0x7F);
    file.Text(scheduledJob, 512).Int16(0).Text("Never", 19).Text("", 19).Int32(3).Text("", 512).Int32(0);
    return file;
}

inline std::string SmallestSettingsBytes() {
    return SampleOptions().Int32(0).Int32(0);
}

// The data folder as a test begins: both jobs are there.
inline void PutJobs() {
    folders.DataFolder = "C:\\data";
    simulated::PutFile(hotkeyJob, "job");
    simulated::PutFile(scheduledJob, "job");
}

// All of the settings, one field a line.
inline std::string Dump(const Settings& options) {
    TextDump dump;
    dump.Add("options", options);
    for (const Hotkey& hotkey : options.Hotkeys) dump.Add("hotkey", hotkey);
    for (const Schedule& schedule : options.Schedules) dump.Add("schedule", schedule);
    return dump.text;
}
