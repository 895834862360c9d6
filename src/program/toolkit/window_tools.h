// Small tools that the forms share: the frame of a message procedure, texts, fonts and sizes of windows.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

#include "platform/types.h"
#include "win32/failure_guard.h"
#include "win32/handles.h"

// What a message procedure returns: the value of `call`, or `otherwise` after a failure, which has been shown.
template <class Result, class Call>
Result Guarded(Result otherwise, Call&& call) noexcept {
    Result result = otherwise;
    platform::GuardedCall([&] { result = call(); });
    return result;
}

HINSTANCE ProgramInstance();

// The whole window, in screen pixels; empty for a window that is gone.
platform::Rect RectangleOf(HWND window);
void MoveWindowTo(HWND window, int left, int top);  // neither sized nor activated

// "Button", "Edit", ...; empty for a window that is gone.
std::string ClassOf(HWND window);

// The whole text of a window of the program's own.
std::string WindowText(HWND window);

// To the direct children, one after the other.
void SendToChildren(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// A text that stays as it is must not flicker, nor cost a painting.
void ShowText(HWND window, const std::string& text);
void SetText(HWND form, int control, const std::string& text);
std::string TextOf(HWND form, int control);

// Whether `notice` tells that the link `control` was followed, by the mouse or by Enter.
bool LinkFollowed(const NMHDR& notice, int control);

// Check boxes and option buttons.
void SetTick(HWND form, int control, bool ticked);
bool IsTicked(HWND form, int control);

// Where the mouse is, as a message tells it.
POINT PointOf(LPARAM lParam);

// As of the message that is being dealt with (GetKeyState).
bool KeyIsDown(int virtualKey);

// Lengths as settings keep them, whatever the scale. 1440 twips are an inch.
std::int32_t Twips(int pixels, int dpi);
int Pixels(std::int32_t twips, int dpi);

// Opens a popup menu and takes it away again; the command that was chosen, 0 for none. Pumps while it is open.
int TrackMenu(HMENU menu, HWND owner, POINT place);

// 96 at 100 percent.
int DpiOf(HWND window);

// A font like the window's own, `percent` as large. The caller deletes it.
HFONT FontLike(HWND window, int percent, int weight, bool smooth = true);

// An icon of the resources (resource_ids.h) at `size` pixels, drawn from the nearest picture. Shared: nobody destroys
// it.
HICON IconOf(int resource, int size);
HICON ProgramIcon(int size);

// The icon in a static control with SS_ICON, as large as that.
void SetPicture(HWND form, int control);

// Registers a class for a dialog template that names it.
void RegisterDialogClass(const char* className, HBRUSH background);
