#include "jobs/event_targets.h"

bool IsButtonPress(const JobEvent& event) {
    if (event.dwType() != platform::InputMouse) return false;
    switch (event.dwFlags()) {
        case MouseFlagBase + platform::MouseLeftDown:
        case MouseFlagBase + platform::MouseRightDown:
        case MouseFlagBase + platform::MouseMiddleDown:
        case MouseFlagBase + platform::MouseXDown:
        case DoubleClickFlags:
            return true;
        default:
            return false;
    }
}

bool IsWheelTurn(const JobEvent& event) {
    return event.dwType() == platform::InputMouse && event.dwFlags() == MouseFlagBase + platform::MouseWheel;
}

bool IsKeyDown(const JobEvent& event) {
    return event.dwType() == platform::InputKeyboard &&
           (event.KeyState() == 0 || event.KeyState() == platform::KeyExtended);
}

bool LooksForWindow(const JobEvent& event) {
    return event.dwType() == INPUT_TEXT || IsKeyDown(event) || IsButtonPress(event) || IsWheelTurn(event);
}

bool GoesToFocus(const JobEvent& event) {
    return event.dwType() != platform::InputMouse || IsWheelTurn(event);
}

bool IsWithoutPlaceAndTime(const JobEvent& event) {
    return event.dwType() == platform::InputMouse && event.WindowChainIndex < 0 && event.dx() == 0 && event.dy() == 0 &&
           event.time() == 0;
}
