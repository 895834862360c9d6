// Foreground and focus, for the other modules of the simulated desktop.
#pragma once

#include "simulated/window_tree.h"

namespace simulated {

WindowHandle Foreground();
WindowHandle FocusOfThread(std::uint32_t thread);

// Where keys go: the focus of the foreground thread, else the foreground window, else 0.
WindowHandle KeyTarget();

// To the front and the foreground; the focus goes to the window that had it last, none when minimised.
void ActivateTopLevel(Window& top);
void GiveFocus(Window& window);
void ActivateDesktop();  // a press on the bare desktop: it is in the foreground itself, with no focus

// After a change that may have taken foreground or focus away from a window that was hidden, minimised or is about to
// be destroyed: the next window becomes active, and a lost child hands the focus to its parent.
void LeaveWindow(Window& window);

// Its focus comes back, as after a restore.
void ReturnFocusTo(const Window& top);

// Minimised: stays in the foreground, without a focus.
void DropFocusOf(Window& top);

}  // namespace simulated
