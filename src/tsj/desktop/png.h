// A picture as the bytes of a PNG file; none of a picture without pixels.
#pragma once

#include <string>

#include "platform/screen_picture.h"

std::string PngOf(const platform::Picture& picture);
