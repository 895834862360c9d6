#include "replay/focus_watch.h"

#include "identity/live_chain.h"
#include "keystrokes/notation.h"
#include "platform/window_services.h"

namespace {

constexpr std::int32_t Tab = 9;
constexpr std::int32_t Enter = 13;
constexpr std::int32_t Space = 32;
constexpr std::int32_t LeftWindows = 91;
constexpr std::int32_t MenuKey = 93;
constexpr std::int32_t F1 = 112;
constexpr std::int32_t F24 = 135;
constexpr std::int32_t LeftControl = 162;
constexpr std::int32_t RightAlt = 165;

bool IsWindowsKey(std::int32_t virtualKey) {
    return virtualKey == LeftWindows || virtualKey == LeftWindows + 1;
}

bool IsModifier(std::int32_t virtualKey) {
    return IsWindowsKey(virtualKey) || (virtualKey >= LeftControl && virtualKey <= RightAlt);
}

bool IsAlt(std::int32_t virtualKey) {
    return virtualKey == RightAlt || virtualKey == RightAlt - 1;
}

// Such a key alone can open or close a window.
bool IsCommand(std::int32_t virtualKey) {
    return virtualKey == Enter || virtualKey == platform::VirtualKeyEscape || virtualKey == MenuKey ||
           (virtualKey >= F1 && virtualKey <= F24);
}

// With Alt or Ctrl held, such a key leads to other programs: the task switcher, the next window, the start menu.
bool Switches(std::int32_t virtualKey) {
    return virtualKey == Tab || virtualKey == platform::VirtualKeyEscape || virtualKey == Space;
}

}  // namespace

FocusWatch::FocusWatch(platform::WindowHandle foreground) : home(foreground), expected(foreground) {
    Expect(foreground);
}

bool FocusWatch::Stolen() {
    const platform::WindowHandle foreground = platform::ForegroundWindow();
    if (foreground == expected) return false;
    if (foreground != home && !OpenedByTheRow(foreground)) return true;
    Expect(foreground);
    return false;
}

void FocusWatch::GoOnHere() {
    Expect(platform::ForegroundWindow());
    home = expected;
}

void FocusWatch::Sent(std::int32_t virtualKey, std::int32_t action) {
    if (IsModifier(virtualKey)) {
        modifiersHeld += action == ActionDown ? 1 : 0;
        modifiersHeld -= action == ActionUp && modifiersHeld > 0 ? 1 : 0;
    }
    const bool chord = modifiersHeld > 0;
    commandSent = commandSent || chord || IsCommand(virtualKey) || IsAlt(virtualKey);
    switchSent = switchSent || IsWindowsKey(virtualKey) || (chord && Switches(virtualKey));
}

// Dialogs belong to the thread of the window that they were opened from, or are owned by it.
bool FocusWatch::OpenedByTheRow(platform::WindowHandle window) const {
    if (switchSent) return true;
    return commandSent && window != 0 && (platform::ThreadOf(window) == thread || LiveChain(window).Root() == expected);
}

void FocusWatch::Expect(platform::WindowHandle window) {
    expected = window;
    expectedCaption = LiveCaption(window);
    thread = platform::ThreadOf(window);
}
