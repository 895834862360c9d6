// The status form of a recording, `recording`, less its window: what its buttons do, what its labels say, where it
// jumps. The form calls the handlers, and shows through recording_view.h. The form may be hidden by the options; its
// state is read all the same.
#pragma once

#include <cstdint>
#include <string>

#include "platform/types.h"

struct RecordingStatus {
    bool stopRequested = false;            // the Stop button was pressed
    std::int64_t pausePressTick = 0;       // of the last press that paused
    platform::WindowHandle returnTo = -1;  // gets the foreground back when the recording goes on
    std::string command2Caption;
    bool indicatorVisible = true;
};
extern RecordingStatus recordingStatus;

// Shows the form as a recording begins with: "Recording", "Stop", "Pause".
void ShowRecordingStatus();

// Over it, for a recording into an open job: the time that its place in the job has, and no pause.
void ShowInsertCaptions();

void UnloadRecordingStatus();

// Command1 ("Stop"), on its press. The recording is over, and the Save As form closed, when it returns.
void Command1_MouseDown();

// Command2. Its press pauses, its release resumes, at least a second after the press that paused.
void Command2_MouseDown();
void Command2_MouseMove();
void Command2_MouseUp();

// timer_recording, once a second while a recording runs.
void OnTimerRecording();

// Where the form's left edge (pixels) goes when the pointer comes over it: to the other side of the screen.
// `pixelsPerInch` counts for the rule, which is in twips.
std::int32_t DodgeTo(const platform::Rect& form, platform::Size screen, int pixelsPerInch);
