// What of the settings lives on controls of the main window. The form implements it; in the tests a stand-in does.
#pragma once

// Copies Display_Recording_Window, countdown_period, display_countdown_check, Display_Executing_Status,
// Play_Menu_Sounds, play_sounds_for_keystrokes and the window's position (MainLeft, MainTop, rounded) into `settings`.
// Settings can be saved before the main window exists, when the load drops a schedule: it then changes nothing.
void CopyControlsToSettings();
