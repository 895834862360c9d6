// What a run does with the main window. The main window's form implements this; in the tests a stand-in does.
#pragma once

#include <string>

namespace main_window_view {

bool IsVisible();
bool IsNormal();  // neither minimised nor maximised
void Minimise();
void Restore();
void Enable(bool enable);  // false takes it from the user, true gives it back; a box may hold it as well
void EnableExitButton(bool enable);

}  // namespace main_window_view
