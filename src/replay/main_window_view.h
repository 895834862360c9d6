// What a run does with the main window. The main window's form implements this; in the tests a stand-in does.
#pragma once

#include <string>

namespace main_window_view {

bool IsVisible();
bool IsNormal();  // neither minimised nor maximised
void Minimise();
void Restore();
void Enable(bool enable);
void EnableExitButton(bool enable);

}  // namespace main_window_view
