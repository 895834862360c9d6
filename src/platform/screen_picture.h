// What the screen shows. Nothing here pumps.
#pragma once

#include <cstdint>
#include <vector>

namespace platform {

// Three bytes a pixel (red, green, blue), rows from top to bottom, nothing between them.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> pixels;
};

// The whole virtual desktop, all monitors. Empty when the system refuses (a locked desktop).
Picture TakeScreenPicture();

}  // namespace platform
