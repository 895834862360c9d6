// Keyboard and mouse: injecting input, and the state of both. None of these pumps.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "platform/types.h"

namespace platform {

inline constexpr std::int32_t InputMouse = 0;     // INPUT_MOUSE
inline constexpr std::int32_t InputKeyboard = 1;  // INPUT_KEYBOARD

// Flags of a mouse record, as in MOUSEINPUT.
inline constexpr std::int32_t MouseMove = 0x0001;
inline constexpr std::int32_t MouseLeftDown = 0x0002;
inline constexpr std::int32_t MouseLeftUp = 0x0004;
inline constexpr std::int32_t MouseRightDown = 0x0008;
inline constexpr std::int32_t MouseRightUp = 0x0010;
inline constexpr std::int32_t MouseMiddleDown = 0x0020;
inline constexpr std::int32_t MouseMiddleUp = 0x0040;
inline constexpr std::int32_t MouseXDown = 0x0080;
inline constexpr std::int32_t MouseXUp = 0x0100;
inline constexpr std::int32_t MouseWheel = 0x0800;
inline constexpr std::int32_t MouseAbsolute = 0x8000;

// Flags of a keyboard record, as in KEYBDINPUT. They are also the KeyState of a recorded key event.
inline constexpr std::int32_t KeyExtended = 1;
inline constexpr std::int32_t KeyUp = 2;

inline constexpr int VirtualKeyCapital = 20;
inline constexpr int VirtualKeyEscape = 27;

// One input, in the shape of a 32-bit INPUT: a type and six words whose meaning follows from it. Recorded
// events begin with such a record, so that replay can hand them over without a copy. Positions are pixels of the
// virtual desktop, on whatever monitor, and buttons are what hooks tell: with the buttons of the mouse swapped, the
// left one is the one under the right forefinger of the user.
struct InputRecord {
    std::array<std::int32_t, 7> word{};

    std::int32_t& dwType() { return word[0]; }
    std::int32_t dwType() const { return word[0]; }

    // Mouse: position in pixels, data (wheel delta or X button), action flags, time in ms.
    std::int32_t& dx() { return word[1]; }
    std::int32_t dx() const { return word[1]; }
    std::int32_t& dy() { return word[2]; }
    std::int32_t dy() const { return word[2]; }
    std::int32_t& mouseData() { return word[3]; }
    std::int32_t mouseData() const { return word[3]; }
    std::int32_t& dwFlags() { return word[4]; }
    std::int32_t dwFlags() const { return word[4]; }
    std::int32_t& mouseTime() { return word[5]; }
    std::int32_t mouseTime() const { return word[5]; }

    // Keyboard: scan code * 65536 + virtual key; KeyExtended and KeyUp; time in ms; extra info.
    std::int32_t& KeyCode() { return word[1]; }
    std::int32_t KeyCode() const { return word[1]; }
    std::int32_t& KeyState() { return word[2]; }
    std::int32_t KeyState() const { return word[2]; }
    std::int32_t& keyTime() { return word[3]; }
    std::int32_t keyTime() const { return word[3]; }
    std::int32_t& keyExtraInfo() { return word[4]; }
    std::int32_t keyExtraInfo() const { return word[4]; }
};

// Injects one record (SendInput with one INPUT). The position of a mouse record counts when it moves (MouseMove with
// MouseAbsolute). Returns the number of events inserted: 1, or 0 when the system refused it. A success does not prove
// that the input arrived: windows of higher privilege (TakesOurInput) and a locked desktop (InputReachesDesktop)
// discard it in silence.
int SendInput(const InputRecord& record);

// Lets the program in the foreground take what was sent to it, before another window comes forward: a key that its
// thread has not fetched by then is lost with the focus. The system does not tell when it has. So its thread is asked
// for an answer again and again, which it gives between two messages: that is enough for some ten keys, and takes
// 30 ms, or LongestArrivalMs where no answer comes. What is sent to a window of this thread arrives when it pumps.
inline constexpr int LongestArrivalMs = 500;
void LetInputArrive();

// Moves the cursor to a pixel of the virtual desktop; monitors left of the primary one and above it have negative
// coordinates. Beyond all monitors it stops at the nearest edge. Returns as SendInput does. The desktops alone know the
// system's scale: logic speaks of pixels.
inline int MoveCursorTo(Point pixel) {
    InputRecord record;
    record.dwType() = InputMouse;
    record.dx() = pixel.x;
    record.dy() = pixel.y;
    record.dwFlags() = MouseAbsolute | MouseMove;
    return SendInput(record);
}

// False while input goes to another desktop than that of this program: the workstation is locked, or the system asks
// for a consent or a password on a desktop of its own (OpenInputDesktop).
bool InputReachesDesktop();

// False when the program of `window` has a higher integrity level than this one: Windows then keeps all injected input
// but moves from it. True where that cannot be known. Asked of the system once for each process, so it is cheap.
bool TakesOurInput(WindowHandle window);

// GetAsyncKeyState: the high bit tells that the key is down now, the low bit that it went down since the last
// call. A tap shorter than the pause between two polls shows only in the low bit.
std::int16_t AsyncKeyState(int virtualKey);

// GetKeyState of the calling thread: high bit down, low bit toggled.
std::int16_t KeyState(int virtualKey);

// MapVirtualKeyA(key, 0): the scan code, 0 for none.
int ScanCodeOf(int virtualKey);

// MapVirtualKeyA(key, 2): the unshifted character, 0 for none. Dead keys have the top bit set (negative).
int CharacterOf(int virtualKey);

// GetCursorPos, in pixels of the virtual desktop. The origin while the desktop is locked.
Point CursorPosition();

// SM_CXSCREEN and SM_CYSCREEN: the primary screen in pixels.
Size ScreenSize();

// What the system makes a double click of: two presses of one button in one window, at most DoubleClickTime ms apart
// (GetDoubleClickTime; 1..5000, the user's choice), the second within a rectangle of DoubleClickSize round the first
// (SM_CXDOUBLECLK and SM_CYDOUBLECLK). A press of another button between them makes them single clicks. Presses are
// stamped with the system's coarse tick, so they may be taken for up to 16 ms closer than they were.
int DoubleClickTime();
Size DoubleClickSize();

// When the last input came, from the user or injected, on the scale of TickCount (GetLastInputInfo). As coarse as the
// system's tick, 16 ms. Hooks have no part in it. A moment long past where the system does not tell; injected input
// that brought a time of its own can stand there with that time.
std::int64_t LastInputTick();

// BlockInput: stops or restarts input from the user; injected input still goes through. Refused without a
// word where the system does not allow it.
void BlockInput(bool block);

}  // namespace platform
