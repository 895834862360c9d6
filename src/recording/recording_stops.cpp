// The ends of a recording that come from outside it.
#include "platform/hooks.h"
#include "recording/recording_session.h"
#include "recording/recording_state.h"
#include "recording/recording_status.h"

void UnhookRecording() {
    if (platform::MouseHookInstalled()) platform::RemoveMouseHook();
    if (platform::KeyboardHookInstalled()) platform::RemoveKeyboardHook();
    if (!recordingSession.running) return;
    UnloadRecordingStatus();
    AbandonRecording();
}

// The press on the icon is the newest event. While paused, or without a mouse hook, it was not recorded, and the newest
// event is one that the user wants.
void StopRecordingFromTray() {
    RecordingSession& session = recordingSession;
    if (!session.running) return;
    UnloadRecordingStatus();
    if (session.MouseHook && !session.paused && session.eventCount >= 0) --session.eventCount;
    StopRecording();
}
