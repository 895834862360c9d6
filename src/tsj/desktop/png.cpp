#include "tsj_desktop/png.h"

#define STB_IMAGE_WRITE_IMPLEMENTATION
#define STB_IMAGE_WRITE_STATIC
#define STBI_WRITE_NO_STDIO
#include <stb/stb_image_write.h>

namespace {

void Append(void* text, void* bytes, int size) {
    static_cast<std::string*>(text)->append(static_cast<const char*>(bytes), static_cast<std::size_t>(size));
}

}  // namespace

std::string PngOf(const platform::Picture& picture) {
    constexpr int BytesOfPixel = 3;
    std::string png;
    const int bytesOfLine = picture.width * BytesOfPixel;
    if (bytesOfLine <= 0) return png;  // the encoder would ask for no memory
    stbi_write_png_to_func(Append, &png, picture.width, picture.height, BytesOfPixel, picture.pixels.data(),
                           bytesOfLine);
    return png;
}
