// A picture as the bytes of a PNG file.
#pragma once

#include <string>

#include "platform/screen_picture.h"

std::string PngOf(const platform::Picture& picture);
