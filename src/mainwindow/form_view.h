// What the rules about showing and hiding need of form1 and its tray menu. The form implements this; in the tests a
// stand-in does. OpenTrayMenu pumps until the menu closes.
#pragma once

#include <string>

namespace form_view {

void SetVisible(bool visible);
bool IsMinimised();
void BringToNormal();  // neither minimised nor maximised; may show a hidden window
bool IsEnabled();
void Enable(bool enable);  // for main_window_use alone

void SetTrayOpenCaption(const std::string& caption);  // tray_open_tessarine
void OpenTrayMenu();

}  // namespace form_view
