// `counter`, the countdown before a recording. The form implements this; in the tests a stand-in does. Nothing here
// pumps.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/types.h"

namespace counter_view {

// Where the form will stand: centred on the screen.
platform::Rect Rectangle();

// The colours of the screen at these points, 0x00BBGGRR each; 0xFFFFFFFF where it cannot be read.
std::vector<std::uint32_t> ReadScreen(const std::vector<platform::Point>& points);

// Not modal, centred, always on top, layered with alpha 255 and blue as the colour key.
void Show();
void SetDigitsBlack(bool black);  // else white; makes them visible
void ShowNumber(int number);      // painted before it returns: nothing pumps while it counts
void Unload();

}  // namespace counter_view
