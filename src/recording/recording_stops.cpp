// The ends of a recording that come from outside it.
#include "platform/hooks.h"
#include "platform/input.h"
#include "platform/pump.h"
#include "recording/recording_session.h"
#include "recording/recording_state.h"
#include "recording/recording_status.h"

namespace {

bool IsMouse(const JobEvent& event, std::int32_t flag) {
    return event.dwType() == platform::InputMouse && event.dwFlags() == MouseFlagBase + flag;
}

// The index of the press on the icon. As a rule it is the newest event; a move may have come after it, and the right
// button is told of on its release, which was recorded too. Without such a press the newest event is taken for it: the
// keyboard can press the icon as well.
std::int32_t PressOnIcon(TrayButton button) {
    const bool left = button == TrayButton::Left;
    const std::int32_t down = left ? platform::MouseLeftDown : platform::MouseRightDown;
    const std::int32_t up = left ? platform::MouseLeftUp : platform::MouseRightUp;
    for (std::int32_t index = recordingSession.eventCount; index >= 0; --index) {
        const JobEvent& event = recordingSession.recordingEvents[index];
        if (IsMouse(event, down)) return index;
        if (!IsMouse(event, up) && !IsMouse(event, platform::MouseMove)) break;
    }
    return recordingSession.eventCount;
}

// While paused, or without a mouse hook, the press was not recorded, and the newest event is one that the user wants.
bool PressWasRecorded() {
    return recordingSession.state == RecordingState::Recording && platform::MouseHookInstalled() &&
           recordingSession.eventCount >= 0;
}

}  // namespace

void EndRecording() {
    platform::CallOutsideHooks([] {
        StopRecording();
        if (platform::MouseHookInstalled()) platform::RemoveMouseHook();
        if (platform::KeyboardHookInstalled()) platform::RemoveKeyboardHook();
    });
}

// The shell sends what the icon hears, so that it can come inside a hook call, when the press is not the newest event.
void StopRecordingFromTray(TrayButton button) {
    platform::CallOutsideHooks([button] {
        if (PressWasRecorded()) recordingSession.eventCount = PressOnIcon(button) - 1;
        StopRecording();
    });
}
