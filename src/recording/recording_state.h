// What the rest of the program asks of a recording: whether one is under way, and to let go of the hooks. No job can be
// recorded yet, so none ever is. Nothing here pumps.
#pragma once

// True from the start of a recording until it is stopped. A run is refused meanwhile.
bool RecordingActive();

// True while any part of the program listens to the keyboard: a recording, or an edit of keystrokes.
bool KeyboardHookInstalled();

// Takes out the mouse and the keyboard hook, whichever of them is installed.
void UnhookRecording();

// Ends the recording that is under way; the click on the tray icon that asked for it is not part of it.
void StopRecordingFromTray();
