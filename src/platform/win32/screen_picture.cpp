#include "platform/screen_picture.h"

#include "win32/handles.h"
#include "win32/wine.h"

namespace platform {
namespace {

constexpr std::size_t BytesOfPixel = 4;  // as the bitmap has it: blue, green, red, nothing

// The screen's device context, and one of memory that draws into a bitmap of the desktop's size.
class Copy {
public:
    Copy(int width, int height) {
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = width;
        info.bmiHeader.biHeight = -height;  // from top to bottom
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        info.bmiHeader.biCompression = BI_RGB;
        bitmap = CreateDIBSection(screen, &info, DIB_RGB_COLORS, &bytes, nullptr, 0);
        if (bitmap != nullptr) before = SelectObject(memory, bitmap);
    }
    Copy(const Copy&) = delete;
    Copy& operator=(const Copy&) = delete;
    ~Copy() {
        if (bitmap != nullptr) SelectObject(memory, before);
        DeleteObject(bitmap);
        DeleteDC(memory);
        ReleaseDC(nullptr, screen);
    }

    // Layered windows, too: people see them.
    bool Take(int left, int top, int width, int height) {
        return bitmap != nullptr && BitBlt(memory, 0, 0, width, height, screen, left, top, SRCCOPY | CAPTUREBLT) != 0 &&
               GdiFlush() != 0;
    }

    const std::uint8_t* Bytes() const { return static_cast<const std::uint8_t*>(bytes); }

private:
    HDC screen = GetDC(nullptr);
    HDC memory = CreateCompatibleDC(screen);
    void* bytes = nullptr;
    HBITMAP bitmap = nullptr;
    HGDIOBJ before = nullptr;
};

}  // namespace

Picture TakeScreenPicture() {
    Picture picture;
    const RECT screen = VirtualScreen();
    const int width = screen.right - screen.left;
    const int height = screen.bottom - screen.top;
    Copy copy(width, height);
    if (!copy.Take(screen.left, screen.top, width, height)) return {};
    const std::size_t pixels = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    picture.width = width;
    picture.height = height;
    picture.pixels.reserve(pixels * 3);
    for (const std::uint8_t* pixel = copy.Bytes(); picture.pixels.size() < pixels * 3; pixel += BytesOfPixel) {
        picture.pixels.insert(picture.pixels.end(), {pixel[2], pixel[1], pixel[0]});
    }
    return picture;
}

}  // namespace platform
