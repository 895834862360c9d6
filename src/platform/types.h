// The neutral types of the platform operations. No <windows.h> here or in any other header of this
// directory: what a desktop is made of is stated in these words, and both desktops (win32/ and
// simulated/) speak them.
#pragma once

#include <cstdint>

namespace platform {

// A window, or 0 for none. Signed and wide enough for every handle of the system; logic that tests for
// "above 0" means "a window". Handles are valid only while the window lives and mean nothing after it.
using WindowHandle = std::intptr_t;

// Screen pixels; the origin is the primary screen's upper left corner.
struct Point {
    std::int32_t x = 0;
    std::int32_t y = 0;
    friend bool operator==(const Point&, const Point&) = default;
};

// Screen pixels; right and bottom lie just outside.
struct Rect {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;
    friend bool operator==(const Rect&, const Rect&) = default;
};

struct Size {
    std::int32_t width = 0;
    std::int32_t height = 0;
    friend bool operator==(const Size&, const Size&) = default;
};

// WINDOWPLACEMENT, member by member. Coordinates are those of GetWindowPlacement: work-area pixels for a
// top-level window, the parent's client pixels for a child.
struct WindowPlacement {
    std::uint32_t length = 0;
    std::uint32_t flags = 0;
    std::uint32_t showCmd = 0;
    Point ptMinPosition;
    Point ptMaxPosition;
    Rect rcNormalPosition;
    friend bool operator==(const WindowPlacement&, const WindowPlacement&) = default;
};

// Values of WindowPlacement::showCmd that the program itself uses.
inline constexpr std::uint32_t ShowNormal = 1;     // SW_SHOWNORMAL
inline constexpr std::uint32_t ShowMinimized = 2;  // SW_SHOWMINIMIZED
inline constexpr std::uint32_t ShowMaximized = 3;  // SW_SHOWMAXIMIZED

}  // namespace platform
