// The way to a new recording, from the record button, the tray menu and Ctrl+Shift+N alike.
#pragma once

// command3_Click: the dialogs that the options ask for, the countdown, and StartRecording. Ignored while a recording or
// a run is under way. When the user cancels, everything is as before. Pumps.
void RecordNewJob();
