// Input that the program injects.
#include "platform/clock.h"
#include "platform/hooks.h"
#include "platform/input.h"
#include "simulated/activation.h"
#include "simulated/agenda.h"
#include "simulated/input_flow.h"
#include "simulated/window_tree.h"

namespace simulated {

namespace {

Injection fate = Injection::Works;
bool desktopLocked = false;

// A plain modifier becomes the left or the right one, which is what hooks and key states tell.
int SidedKey(int virtualKey, int scanCode, bool extended) {
    switch (virtualKey) {
        case 16:
            return scanCode == 54 ? 161 : 160;
        case 17:
            return extended ? 163 : 162;
        case 18:
            return extended ? 165 : 164;
        default:
            return virtualKey;
    }
}

void InjectKey(const platform::InputRecord& record) {
    KeyInput input;
    input.scanCode = static_cast<int>(static_cast<std::uint32_t>(record.KeyCode()) >> 16);
    input.extended = (record.KeyState() & platform::KeyExtended) != 0;
    input.up = (record.KeyState() & platform::KeyUp) != 0;
    // The system knows keys of one byte only.
    input.virtualKey = SidedKey(record.KeyCode() & 0xFF, input.scanCode, input.extended);
    input.injected = true;
    input.time = NowMs();
    input.extraInfo = record.keyExtraInfo();
    Feed(input);
}

// One record can carry several actions; the system makes them single inputs, the move first.
void InjectMouse(const platform::InputRecord& record) {
    MouseInput input;
    input.point = ResolvedPoint(record);
    input.data = record.mouseData();
    input.injected = true;
    input.time = NowMs();
    for (std::int32_t action = platform::MouseMove; action <= platform::MouseWheel; action <<= 1) {
        if ((record.dwFlags() & action) == 0) continue;
        input.action = action;
        Feed(input);
    }
}

// Where it would go. Moves get through to the windows of any program.
WindowHandle ReceiverOf(const platform::InputRecord& record) {
    if (record.dwType() == platform::InputKeyboard || (record.dwFlags() & platform::MouseWheel) != 0) {
        return KeyTarget();
    }
    const bool moves = (record.dwFlags() & platform::MouseMove) != 0;
    return moves ? 0 : HitTest(platform::CursorPosition());
}

bool IsLost(const platform::InputRecord& record) {
    return desktopLocked || !platform::TakesOurInput(ReceiverOf(record));
}

}  // namespace

void LockDesktop(bool locked) {
    desktopLocked = locked;
}

void SetInjection(Injection newFate) {
    fate = newFate;
}

}  // namespace simulated

namespace platform {

int SendInput(const InputRecord& record) {
    const bool known = record.dwType() == InputMouse || record.dwType() == InputKeyboard;
    if (!known || simulated::fate == simulated::Injection::Refused) return 0;
    if (simulated::IsLost(record)) return 1;
    simulated::NoteInput();
    simulated::WriteDown(true, simulated::NowMs(), record);
    if (record.dwType() == InputMouse) {
        simulated::InjectMouse(record);
    } else {
        simulated::InjectKey(record);
    }
    return 1;
}

void LetInputArrive() {
    const simulated::Window* const front = simulated::Find(simulated::Foreground());
    if (front == nullptr) return;
    const std::uint32_t thread = front->spec.thread;
    for (int ms = 0; ms < LongestArrivalMs && simulated::IsHung(thread); ++ms) Sleep(1);
}

bool InputReachesDesktop() {
    return !simulated::desktopLocked;
}

bool TakesOurInput(WindowHandle window) {
    const simulated::Window* top = simulated::TopLevelOf(window);
    return top == nullptr || !top->getsNoInput;
}

}  // namespace platform
