// The program's options, the recent jobs, the hotkey table and the schedule table, and their store, settings.binary
// in the data folder (docs/job_format.md tells the bytes). The rest of the program reads the fields directly.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/types.h"
#include "settings/hotkey_record.h"
#include "settings/schedule_record.h"

// Check boxes are 0 or 1. Window positions are twips.
struct Settings {
    std::int32_t MainLeft = 0;
    std::int32_t MainTop = 0;
    std::int32_t EditorLeft = 0;
    std::int32_t EditorTop = 0;
    std::int32_t EditorWidth = 0;
    std::int32_t EditorHeight = 0;
    std::int32_t EditorState = 0;  // at its last close: 1 normal, 2 maximised, 0 minimised or never set
    std::int32_t display_countdown_check = 0;
    std::int32_t Display_Recording_Window = 0;
    std::int32_t countdown_period = 0;  // seconds, 0..10
    std::int32_t Check_updates = 0;
    std::int32_t play_sounds_for_keystrokes = 0;
    std::int32_t Play_Menu_Sounds = 0;
    std::int32_t Display_Executing_Status = 0;
    std::array<std::string, 5> RecentJobs;  // full paths, newest first
    std::int32_t create_shortcut_on_desktop = 0;
    std::int32_t Display_Start_Program_Dialog = 0;
    std::int32_t Capture_Mouse_Moves = 0;
    std::vector<Hotkey> Hotkeys;
    std::vector<Schedule> Schedules;

    bool SettingsLoaded = false;  // false after a failed load: the main window then applies the first-run values
    bool NothingLoaded = false;   // tells the schedule page that there was nothing to load
    bool KeepOldFile = false;  // the file in the data folder was never read: it gets another name before the next save
};
extern Settings settings;

// Fills `settings` from the file and drops hotkeys and schedules whose job is gone; each such schedule shows a box,
// and the file is then written again. A missing file gives the defaults without a word. One that is there and cannot be
// read (held, damaged, of a newer version) gives the defaults too, and is kept beside the new one under another name:
// at once if the system lets it, else by the next save. One box tells so; a file that is held is tried again after it.
// Never throws: the program starts whatever the file holds.
void LoadSettings();

// Copies what lives on controls into `settings` and writes the file in one step. A file failure when it cannot be
// written, or when an old one that was never read cannot be kept; the old file is then as it was.
void SaveSettings();

// What the main window does while it loads when nothing could be loaded: sets every option to the value of a first
// run, and SettingsLoaded.
void ApplyFirstRunValues();

// Where the main window opens, in twips as everything given: at MainLeft, MainTop if that lies on the screen, else
// centred.
platform::Point MainWindowPosition(platform::Size window, platform::Size screen);
