// What the rest of the program asks of a recording: whether one is under way, to end it, and to let go of the hooks.
#pragma once

// True from the record button on, or from the start of a recording into an open job, until the recording has been
// handed over. A run is refused meanwhile.
bool RecordingActive();

bool RecordingPaused();

// True while any part of the program listens to the keyboard: a recording, or an edit of keystrokes.
bool KeyboardHookInstalled();

// Takes out the mouse and the keyboard hook, whichever of them is installed. A recording under way ends as with the
// Stop button: nothing could end it without its hooks, and what was recorded is the user's work. Pumps until the Save
// As form is closed.
void EndRecording();

// Windows ends: what is being recorded, or waits to be saved, is written as "Recovered", and nobody is asked. The
// recording is over afterwards but for that the program is about to end.
void RescueRecording();

// Ends the recording that is under way; the click on the tray icon that asked for it is not part of it. Ignored before
// a recording has begun, and while it is handed over. Pumps until the Save As form is closed.
enum class TrayButton { Left, Right };
void StopRecordingFromTray(TrayButton button);
