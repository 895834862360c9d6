// The windows of the simulated desktop as a tree, for its other modules. The root is the desktop itself; its children
// are the top-level windows. Children stand from front to back. Pointers are good until the window is destroyed.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/types.h"
#include "simulated/desktop.h"

namespace simulated {

enum class ShowState : std::uint8_t { Normal, Minimised, Maximised };

struct Window {
    WindowHandle handle = 0;
    WindowSpec spec;          // `rect` is the normal rectangle, in the parent's client pixels
    WindowHandle parent = 0;  // the root for a top-level window, 0 for the root
    ShowState state = ShowState::Normal;
    bool restoresToMaximised = false;
    Point minPosition = {-1, -1};
    Point maxPosition = {-1, -1};
    std::vector<WindowHandle> children;
    WindowHandle lastFocus = 0;  // of a top-level window: what had the focus when it was last active
    bool isEdit = false;
    bool refusesForeground = false;
    bool refusesPlacement = false;
    bool getsNoInput = false;  // of a top-level window: its program has a higher integrity level
    std::string text;
};

// What a test wants a window to do. Kept apart from the window, so that it can be told before the window appears.
struct Reactions {
    Action onClick;
    std::unordered_map<int, Action> onKey;
    std::function<void(const Message&)> procedure;
};
const Reactions* ReactionsOf(WindowHandle window);  // null for none

inline constexpr WindowHandle RootHandle = 0x10010;

Window* Find(WindowHandle window);  // null when it is gone
Window& Root();
const std::vector<Rect>& Monitors();  // the primary one first
bool IsTopLevel(const Window& window);
Window* TopLevelOf(WindowHandle window);  // itself or its topmost parent; null for the root and for none
bool IsSelfOrDescendant(WindowHandle window, WindowHandle ancestor);
bool IsShown(const Window& window);  // visible with all its parents, and none of them minimised

Rect ScreenRect(const Window& window);
Rect ClientRect(const Window& window);  // in screen pixels

bool SameText(std::string_view one, std::string_view other);  // as FindWindowA compares: letter case ignored

WindowHandle HitTest(Point point);

// Brings a window to the front of its siblings; a top-level one with its owners and the windows they own, every owned
// window staying above its owner, and topmost windows above all others.
void BringToFront(Window& window);

bool IsHung(std::uint32_t thread);

// Hands `action` to a window as its thread would get it: in the pump for the program's own, at once for others, when
// it goes on for a thread that hangs. It must look its window up again.
void Deliver(std::uint32_t thread, Action action);
bool DeliversAtOnce(std::uint32_t thread);

}  // namespace simulated
