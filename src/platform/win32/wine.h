// What is there for Wine alone. The program is written to the documented behaviour of Windows; where Wine's differs so
// much that a job would go wrong, the mend stands here and is called from the one place that needs it. On Windows each
// of these does nothing, or what it asks about never comes up; VirtualScreen alone is asked for everywhere.
#pragma once

#include "win32/handles.h"

namespace platform {

bool RunsOnWine();

// Some injected moves of the mouse are taken back: Wine's display driver answers them with an event of a position that
// the pointer had before, and mostly with one of the right position after it; a press would land at the first, and a
// double click that meets either would select something else. For two seconds after a move of ours its position is
// watched; as soon as the cursor is anywhere else, the user has the mouse, and it is left alone. A press waits for the
// answer to the move before it (a few ms, on a busy machine up to a second) and takes the position along.
void SteadyWineCursor(MOUSEINPUT& next);  // an input that is about to be sent
void PutWineCursorRight();                // the position of the cursor is about to be asked for

// The rectangle of all monitors, in pixels. Its four numbers (SM_XVIRTUALSCREEN and the like) take Wine as long as an
// input does, so there they hold for a hundredth of a second.
RECT VirtualScreen();

// A window that comes to the front of its kind is not raised on Wine's screen while a topmost one is shown. The next
// move of the mouse meets the window that is on top there, and Wine then puts that one on top for the programs too.
void RaiseOnWinesScreen(HWND top);

// The setting for swapped buttons is kept, and nothing is swapped.
bool SwapsNothing();

// SetWindowPlacement is refused for windows of other processes. The parts of a placement have to do; what they cannot
// do is to give a minimised window its place for later without showing it there first.
bool PlaceInParts(HWND window, const WINDOWPLACEMENT& placement);

// GetWindowPlacement tells screen pixels for a child of another process: the parent's client pixels, read in another
// way that is right everywhere.
RECT NormalPosition(HWND window, const WINDOWPLACEMENT& placement);

// GetWindowText makes up a text for a window that vanishes in that moment. Asked after the text was read, while the
// last error is still that of GetWindowText.
bool CaptionIsMadeUp(HWND window);

}  // namespace platform
