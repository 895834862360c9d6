// `schedule_start_form`, the small window that tells of a run before it begins: "Upcoming Schedule:", a status label, a
// name label, and the button Cancel, which calls CancelStart. The form implements this; in the tests a stand-in does.
// Nothing here pumps.
#pragma once

#include <string>

namespace schedule_start_view {

// Not modal, without taking the foreground: always on top, layered with this alpha value, 20 pixels from the top and
// the right edge of the screen.
void Show(int alpha);

void SetStatus(const std::string& text);  // Label3
void SetName(const std::string& text);
void SetAlpha(int alpha);  // 0..255
void Unload();

}  // namespace schedule_start_view
