#include "recording/recording_state.h"

#include "platform/hooks.h"

bool RecordingActive() {
    return false;
}

bool KeyboardHookInstalled() {
    return platform::KeyboardHookInstalled();
}

void UnhookRecording() {
    if (platform::MouseHookInstalled()) platform::RemoveMouseHook();
    if (platform::KeyboardHookInstalled()) platform::RemoveKeyboardHook();
}

void StopRecordingFromTray() {}
