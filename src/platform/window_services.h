// The windows of the desktop, our own and those of other programs. A window may vanish between two calls:
// every query then answers with its empty value. Nothing here pumps, and nothing waits for a window that does
// not answer: what would need its cooperation gives up after a bounded time (BoundedMilliseconds) and says so.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "platform/types.h"

namespace platform {

// The longest time that any one of these calls waits for another program, in ms.
inline constexpr int BoundedMilliseconds = 1000;

WindowHandle WindowAt(Point point);  // WindowFromPoint; 0 where there is none
WindowHandle ForegroundWindow();     // GetForegroundWindow
WindowHandle DesktopRoot();          // GetDesktopWindow

// SetForegroundWindow, for a child too (its top-level window comes forward, over the other windows). Where the system
// refuses, as it does when the user has touched the mouse last, it is asked once more after an input that does nothing.
// What was sent to the window that was in front may arrive there first (LetInputArrive).
// True when the window, or one that it owns, is in the foreground after that (GetForegroundWindow); false too when it
// did not answer in time.
bool BringToForeground(WindowHandle window);

// The thread that owns the window; 0 for a window that is gone.
std::uint32_t ThreadOf(WindowHandle window);  // GetWindowThreadProcessId
std::uint32_t CurrentThread();

// The focus of another thread's input queue (AttachThreadInput, GetFocus). `attached` tells whether the queue
// could be asked; the window is 0 when it could not or when the thread has no focus.
struct FocusAnswer {
    bool attached = false;
    WindowHandle window = 0;
};
FocusAnswer FocusOf(std::uint32_t thread);

// Gives the keyboard focus to a window, or an element in one, of the foreground thread (AttachThreadInput, SetFocus).
// False when it cannot have it, or its thread did not answer in time. The window may hand it on to one inside it.
bool GiveFocus(WindowHandle window);

WindowHandle ParentOf(WindowHandle window);    // GetParent: the parent, or the owner of a popup; 0 at the top
WindowHandle TopLevelOf(WindowHandle window);  // GetAncestor(GA_ROOT): itself or its topmost parent; not an owner
WindowHandle FindTopWindow(const std::string& className, const std::string& caption);  // FindWindowA: exact

// EnumWindows and EnumChildWindows (all descendants), topmost first. The visitor returns false to stop.
using WindowVisitor = std::function<bool(WindowHandle)>;
void ForEachTopWindow(const WindowVisitor& visit);
void ForEachDescendant(WindowHandle window, const WindowVisitor& visit);

std::string ClassOf(WindowHandle window);          // GetClassNameA, at most 99 characters
std::string CaptionOf(WindowHandle window);        // GetWindowTextA, at most 1023 characters
std::int32_t ControlIdOf(WindowHandle window);     // GetDlgCtrlID
WindowPlacement PlacementOf(WindowHandle window);  // GetWindowPlacement; all zero for a window that is gone
bool WindowExists(WindowHandle window);            // IsWindow
bool IsShown(WindowHandle window);                 // IsWindowVisible; a minimised window is shown, too

// SetWindowPlacement. The record's `length` need not be set. False when the window is gone, refuses, or
// did not answer in time; it may still follow later.
bool SetPlacement(WindowHandle window, const WindowPlacement& placement);

}  // namespace platform
