// `recording`, the status form of a recording, as its logic speaks to it. The form implements this; in the tests a
// stand-in does. Calls for a form that is not loaded are ignored. Nothing here pumps.
#pragma once

#include <string>

namespace recording_view {

// Makes the form, hidden: 10 pixels from the left and the top of the screen, always on top, layered with alpha 255 and
// blue as the colour key; ownWindows.recordingStatus is set. A form that is loaded stays as it is.
void Load();

void Show();    // loads it if need be; not modal
void Unload();  // ownWindows.recordingStatus is 0 again

void SetCommand1(const std::string& caption);
void SetCommand2(const std::string& caption);
void SetLabel1(const std::string& text);
void SetInfo(const std::string& text);  // label_info
void SetTime(const std::string& text);  // label_vrijeme ("time")
void ShowIndicator(bool visible);       // Picture1

}  // namespace recording_view
