#include "recording/input_capture.h"

#include <algorithm>
#include <cmath>
#include <new>
#include <utility>

#include "base/runtime_failure.h"
#include "identity/window_identity.h"
#include "platform/boxes.h"
#include "platform/input.h"
#include "platform/pump.h"
#include "recording/click_fixups.h"
#include "recording/hook_watch.h"
#include "recording/recording_session.h"
#include "recording/recording_status.h"
#include "settings/settings.h"
#include "trace/debug_trace.h"

namespace {

constexpr std::uint32_t PauseKey = 19;
constexpr std::int32_t SecondsToWait = 10;  // for the window of a press or a key-down
constexpr std::int32_t SpareWindows = 25;

constexpr std::uint32_t MouseMoveMessage = 0x200;

struct MouseAction {
    std::int32_t flag = 0;  // 0: not known
    bool captured = false;  // carries a window
    bool hasData = false;   // wheel delta or X button
};

MouseAction ActionOf(std::uint32_t message) {
    switch (message) {
        case MouseMoveMessage:
            return {platform::MouseMove};
        case 0x201:
            return {platform::MouseLeftDown, true};
        case 0x202:
            return {platform::MouseLeftUp};
        case 0x204:
            return {platform::MouseRightDown, true};
        case 0x205:
            return {platform::MouseRightUp};
        case 0x207:
            return {platform::MouseMiddleDown, true};
        case 0x208:
            return {platform::MouseMiddleUp};
        case 0x20A:
            return {platform::MouseWheel, true, true};
        case 0x20B:
            return {platform::MouseXDown, true, true};
        case 0x20C:
            return {platform::MouseXUp, false, true};
        default:
            return {};
    }
}

// The bits of a hook's flags as a KeyState: 0 down, 1 extended down, 2 up, 3 extended up. Taking 126 away turns the
// "up" bit (128) into 2 and the remainder drops the ALT bit (32). An injected key keeps its bit, and its state is then
// 16 or more; job files have such values.
std::int32_t ReducedState(std::uint32_t flags) {
    return static_cast<std::int32_t>((flags > 126 ? flags - 126 : flags) % 32);
}

bool& KeyDownFlag(std::uint32_t virtualKey) {
    return CheckedAt(recordingSession.keyDown, virtualKey, "Key code");
}

// Without memory for it, nothing has changed.
std::int32_t TakeSlot() {
    RecordingSession& session = recordingSession;
    const std::int32_t index = session.eventCount + 1;
    session.recordingEvents.NewSlot(index);
    session.eventCount = index;
    if (0.9 * session.eventCapacity <= index) session.growEvents = true;
    return index;
}

// False for one of our own windows, and not by focus.
bool CaptureInto(JobEvent& event, bool byFocus) {
    const int windows = CaptureWindow(event, byFocus);
    if (windows == 0) event.WindowChainIndex = NoWindowMarker;
    return windows != 0;
}

// --- keys ---

JobEvent KeyEvent(const platform::KeyboardHookRecord& key, std::int32_t state) {
    JobEvent event;
    event.dwType() = platform::InputKeyboard;
    event.KeyCode() = static_cast<std::int32_t>(key.scanCode * 65536 + key.vkCode);
    event.KeyState() = state;
    event.keyTime() = RecordedTime();
    event.keyExtraInfo() = static_cast<std::int32_t>(key.dwExtraInfo);
    if (state == 0) event.WaitForWindow = SecondsToWait;  // an extended key-down has its window and no wait
    return event;
}

// The event is complete but for its window before the window is looked for: when that fails, it has none. The time is
// that after the look, so a slow one makes keys later, and never mouse events.
void WriteKey(std::int32_t index, const platform::KeyboardHookRecord& key, std::int32_t state) {
    JobEvent& event = recordingSession.recordingEvents[index];
    event = KeyEvent(key, state);
    if (state != 0 && state != platform::KeyExtended) return;
    CaptureInto(event, true);
    event.keyTime() = RecordedTime();
}

bool IsDown(std::int32_t keyState) {
    return (keyState & platform::KeyUp) == 0;
}

// A key on a box of our own, or its release, which can come after the box has closed. A key that was recorded as it
// went down, before the box came, comes up in the recording, too: no job may hold a key for ever.
bool IsLeftOut(std::uint32_t virtualKey, std::int32_t state) {
    bool& leftOut = CheckedAt(recordingSession.keyLeftOut, virtualKey, "Key code");
    bool& recorded = CheckedAt(recordingSession.keyRecorded, virtualKey, "Key code");
    if (!IsDown(state)) {
        recorded = false;
        return std::exchange(leftOut, false);
    }
    const bool out = IsForOwnBox(true);
    recorded = recorded || !out;
    leftOut = out && !recorded;
    return out;
}

void NoteKey(bool& down, std::int32_t state) {
    if (state == 0) down = true;
    if (state == platform::KeyUp) down = false;
}

// --- mouse ---

std::int32_t DataOf(const platform::MouseHookRecord& mouse, const MouseAction& action) {
    return action.hasData ? static_cast<std::int16_t>(mouse.mouseData >> 16) : 0;
}

JobEvent MouseEvent(const platform::MouseHookRecord& mouse, const MouseAction& action) {
    JobEvent event;
    event.dx() = mouse.pt.x;
    event.dy() = mouse.pt.y;
    event.mouseData() = DataOf(mouse, action);
    event.dwFlags() = MouseFlagBase + action.flag;
    event.mouseTime() = RecordedTime();
    if (action.captured) event.WaitForWindow = SecondsToWait;
    return event;
}

// The input was for one of our own windows and is no part of the recording. Its slot can be given back only while it
// is the newest; otherwise the event is made harmless.
bool GiveBack(std::int32_t index, JobEvent& event) {
    if (recordingSession.eventCount == index) {
        --recordingSession.eventCount;
        return true;
    }
    event.dwFlags() = MouseFlagBase + platform::MouseMove;
    return false;
}

// False when the event is no more.
bool WriteTarget(std::int32_t index, JobEvent& event, const MouseAction& action) {
    const bool byFocus = action.flag == platform::MouseWheel;  // the wheel turns what has the keyboard
    const bool foreign = CaptureInto(event, byFocus);
    if (byFocus) DebugTrace("Spremljen WHEEL PROZOR: ");
    return foreign || !GiveBack(index, event);
}

constexpr std::int32_t ButtonDowns =
    platform::MouseLeftDown | platform::MouseRightDown | platform::MouseMiddleDown | platform::MouseXDown;
constexpr std::int32_t ButtonUps = ButtonDowns << 1;  // every release flag follows its press flag

// A press on a box of our own, or its release, or a turn of the wheel while it has the keyboard.
bool IsLeftOut(const MouseAction& action) {
    std::int32_t& leftOut = recordingSession.buttonsLeftOut;
    if ((action.flag & ButtonUps) != 0) return (std::exchange(leftOut, leftOut & ~action.flag) & action.flag) != 0;
    if (!action.captured) return false;
    const bool out = IsForOwnBox(action.flag == platform::MouseWheel);
    if ((action.flag & ButtonDowns) != 0) leftOut = out ? leftOut | action.flag << 1 : leftOut & ~(action.flag << 1);
    return out;
}

void TraceData(const MouseAction& action) {
    if (action.hasData) DebugTrace("mousedata: ");
}

void PairWithLastClick(std::int32_t index) {
    const RecordingSession& session = recordingSession;
    PairClick(index, session.doubleClickTime, session.screen.width, session.screen.height, false);
}

// From the next pump, for the desktop waits for a hook; and one box for all that come until it is closed, for a single
// swipe on a touchpad is dozens of them.
void RefuseMouseEvent() {
    static bool told = false;
    if (told) return;
    platform::CallFromPump([] {
        platform::ShowBox("Unknown mouse event! It will not be captured.", "Unknown mouse event",
                          platform::BoxIcon::Error);
        told = false;
    });
    told = true;
}

std::int32_t Grown(std::int32_t capacity) {
    return static_cast<std::int32_t>(std::floor(capacity * 1.2));
}

template <class Array>
void Provide(Array& array, std::int32_t capacity) {
    array.Reserve(static_cast<std::size_t>(std::max(capacity, 0)));
}

void Grow() {
    RecordingSession& session = recordingSession;
    if (session.growEvents) {
        session.growEvents = false;
        session.eventCapacity = Grown(session.eventCapacity);
        session.recordingEvents.Reserve(session.eventCapacity);
    }
    if (windowArrays.growChains) {
        windowArrays.growChains = false;
        windowArrays.chainCapacity = Grown(windowArrays.chainCapacity);
        Provide(windowArrays.chains, windowArrays.chainCapacity);
    }
    if (windowArrays.growWindows) {
        windowArrays.growWindows = false;
        windowArrays.windowCapacity += SpareWindows;
        Provide(windowArrays.windows, windowArrays.windowCapacity);
    }
}

void RecordKey(const platform::KeyboardHookRecord& key) {
    bool& down = KeyDownFlag(key.vkCode);
    const std::int32_t state = ReducedState(key.flags);
    if (!down && state == platform::KeyUp) return;  // held since before the recording; an extended key is let through
    if (key.vkCode == PauseKey) {
        recordingSession.stoppedByPauseKey = true;
        return StopRecording();
    }
    if (!IsLeftOut(key.vkCode, state)) {
        const std::int32_t index = TakeSlot();
        NoteKey(down, state);
        WriteKey(index, key, state);
    }
    // Other programs' hooks hear of keys, but not of the stop key; of the mouse they hear nothing. It has always been
    // so.
    platform::PassKeyOn();
    GrowArrays();
}

void RecordMouse(const platform::MouseHookRecord& mouse) {
    const MouseAction action = ActionOf(mouse.message);
    if (IsLeftOut(action)) return;
    const std::int32_t index = TakeSlot();
    if (mouse.message != MouseMoveMessage) recordingSession.LastCursorPosition = mouse.pt;
    if (action.flag == 0) return RefuseMouseEvent();  // the slot stays all zero and counts
    JobEvent& event = recordingSession.recordingEvents[index];
    event = MouseEvent(mouse, action);
    if (action.captured && !WriteTarget(index, event, action)) return;
    TraceData(action);
    PairWithLastClick(index);
    GrowArrays();
}

// Without memory the next event would be missing without a word. So the recording ends with what it has.
template <class Call>
void EndWithoutMemory(const Call& record) {
    try {
        record();
    } catch (const std::bad_alloc&) {
        recordingSession.outOfMemory = true;
        StopRecording();
    }
}

bool Listens() {
    return recordingSession.state == RecordingState::Recording && !recordingSession.hookBusy;
}

}  // namespace

void OnKeyboardHook(const platform::KeyboardHookRecord& record) {
    NoteHookCall();
    KeyboardHookProc(HookAction, record);
}

// While paused, only the Stop button gets through: Pause/Break has no meaning then.
void KeyboardHookProc(std::int32_t nCode, const platform::KeyboardHookRecord& record) {
    if (recordingStatus.stopRequested) return StopRecording();
    if (!Listens()) return;
    if (nCode == HookAction) return EndWithoutMemory([&record] { RecordKey(record); });
    recordingSession.hookBusy = true;  // no desktop calls with another code; the recording is deaf from then on
}

void MouseHookProc(const platform::MouseHookRecord& record) {
    NoteHookCall();
    if (record.message == MouseMoveMessage && settings.Capture_Mouse_Moves == 0) return;
    if (Listens()) EndWithoutMemory([&record] { RecordMouse(record); });
}

void GrowArrays() {
    try {
        Grow();
    } catch (const std::bad_alloc&) {  // there is still room for what comes next, as a rule
    }
}
