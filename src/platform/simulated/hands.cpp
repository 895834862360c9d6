// The user's hands.
#include "simulated/agenda.h"
#include "simulated/input_flow.h"
#include "simulated/key_layout.h"
#include "simulated/window_tree.h"

namespace simulated {

namespace {

constexpr int LeftShift = 160;

struct HandState {
    bool blocked = false;
    int waiting = 0;  // inputs that wait for the pump
};

HandState hand;

// The system deals with inputs one after the other: one that waits for a hook holds up all that follow it.
template <class Input>
void Act(const platform::InputRecord& record, const Input& input) {
    if (hand.blocked) return;
    NoteInput();
    const auto arrive = [record, input] {
        WriteDown(false, input.time, record);
        Feed(input);
    };
    if (hand.waiting == 0 && !HookWaitsFor(record.dwType())) return arrive();
    ++hand.waiting;
    SendBySystem([arrive] {
        --hand.waiting;
        arrive();
    });
}

// A keyboard sends the left key for a plain modifier.
int OnKeyboard(int virtualKey) {
    const bool plain = virtualKey >= 16 && virtualKey <= 18;
    return plain ? 160 + (virtualKey - 16) * 2 : virtualKey;
}

void ActKey(int virtualKey, bool up) {
    KeyInput input;
    input.virtualKey = OnKeyboard(virtualKey);
    input.scanCode = platform::ScanCodeOf(input.virtualKey);
    input.extended = IsExtendedKey(input.virtualKey);
    input.up = up;
    input.time = NowMs();

    platform::InputRecord record;
    record.dwType() = platform::InputKeyboard;
    record.KeyCode() = input.scanCode * 65536 + input.virtualKey;
    record.KeyState() = (input.extended ? platform::KeyExtended : 0) | (up ? platform::KeyUp : 0);
    Act(record, input);
}

void ActMouse(std::int32_t action, std::int32_t data) {
    MouseInput input;
    input.action = action;
    input.data = data;
    input.time = NowMs();

    platform::InputRecord record;
    record.dwFlags() = action;
    record.mouseData() = data;
    Act(record, input);
}

std::int32_t DownFlag(Button button) {
    switch (button) {
        case Button::Left:
            return platform::MouseLeftDown;
        case Button::Right:
            return platform::MouseRightDown;
        case Button::Middle:
            return platform::MouseMiddleDown;
        default:
            return platform::MouseXDown;
    }
}

std::int32_t DataOf(Button button) {
    if (button == Button::X1) return 1;
    return button == Button::X2 ? 2 : 0;
}

void TypeCharacter(char character) {
    const std::optional<Stroke> stroke = StrokeFor(character);
    if (!stroke) return;
    if (stroke->shift) UserPressesKey(LeftShift);
    UserTaps(stroke->virtualKey);
    if (stroke->shift) UserReleasesKey(LeftShift);
}

}  // namespace

void UserPressesKey(int virtualKey) {
    ActKey(virtualKey, false);
}

void UserReleasesKey(int virtualKey) {
    ActKey(virtualKey, true);
}

void UserTaps(int virtualKey) {
    UserPressesKey(virtualKey);
    UserReleasesKey(virtualKey);
}

void UserTypes(const std::string& text) {
    for (const char character : text) TypeCharacter(character);
}

void UserMovesTo(Point point) {
    MouseInput input;
    input.action = platform::MouseMove;
    input.point = point;
    input.time = NowMs();

    platform::InputRecord record;
    record.dx() = point.x;
    record.dy() = point.y;
    record.dwFlags() = platform::MouseMove | platform::MouseAbsolute;
    Act(record, input);
}

void UserPresses(Button button) {
    ActMouse(DownFlag(button), DataOf(button));
}

void UserReleases(Button button) {
    ActMouse(DownFlag(button) << 1, DataOf(button));
}

void UserClicks(Point point, Button button) {
    UserMovesTo(point);
    UserPresses(button);
    UserReleases(button);
}

void UserTurnsWheel(int delta) {
    ActMouse(platform::MouseWheel, delta);
}

void UserHolds(int virtualKey, std::int64_t from, std::int64_t to) {
    MeanwhileAt(from, [virtualKey] { UserPressesKey(virtualKey); });
    MeanwhileAt(to, [virtualKey] { UserReleasesKey(virtualKey); });
}

void UserHoldsEscapeFrom(std::int64_t from, std::int64_t to) {
    UserHolds(platform::VirtualKeyEscape, from, to);
}

bool InputBlocked() {
    return hand.blocked;
}

}  // namespace simulated

namespace platform {

void BlockInput(bool block) {
    simulated::hand.blocked = block;
}

}  // namespace platform
