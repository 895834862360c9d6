// Stands apart from what a recording does: whoever only asks for its state needs none of its forms.
#include "recording/recording_state.h"

#include "platform/hooks.h"
#include "recording/recording_session.h"

RecordingSession recordingSession;

bool RecordingActive() {
    return recordingSession.state != RecordingState::Idle;
}

bool RecordingPaused() {
    return recordingSession.state == RecordingState::Paused;
}

bool CaptureIsOn() {
    return recordingSession.state == RecordingState::Recording || RecordingPaused();
}

bool KeyboardHookInstalled() {
    return platform::KeyboardHookInstalled();
}
