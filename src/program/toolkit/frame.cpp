#include "toolkit/frame.h"

#include "toolkit/resource_ids.h"
#include "toolkit/system_look.h"
#include "toolkit/window_tools.h"

namespace {

// One bitmap for each scale, of three by three squares.
struct FramePictures {
    int scale;  // percent
    int resource;
};
constexpr FramePictures AllPictures[] = {
    {100, FRAME_100}, {125, FRAME_125}, {150, FRAME_150}, {200, FRAME_200}, {300, FRAME_300}};
constexpr int SquareAt100 = 16;
constexpr COLORREF PictureBody = RGB(0xfb, 0xfc, 0xfc);

// The sharpest that is not larger than the screen's scale: the smaller ones are stretched.
FramePictures PicturesFor(int dpi) {
    FramePictures best = AllPictures[0];
    for (const FramePictures& pictures : AllPictures) {
        if (pictures.scale * USER_DEFAULT_SCREEN_DPI <= dpi * 100) best = pictures;
    }
    return best;
}

struct Span {
    int begin;
    int length;
};

// A side of the frame, cut into corner, edge and corner.
Span PartOf(int part, int begin, int end, int corner) {
    if (part == 0) return {begin, corner};
    if (part == 1) return {begin + corner, end - begin - 2 * corner};
    return {end - corner, corner};
}

}  // namespace

void FormFrame::Load(HWND form) {
    Free();
    if (HighContrast()) return;
    const int dpi = DpiOf(form);
    pictures = LoadBitmapA(ProgramInstance(), MAKEINTRESOURCEA(PicturesFor(dpi).resource));
    corner = MulDiv(SquareAt100, dpi, USER_DEFAULT_SCREEN_DPI);
}

void FormFrame::Free() {
    if (pictures != nullptr) DeleteObject(pictures);
    pictures = nullptr;
}

COLORREF FormFrame::BodyColour() {
    return HighContrast() ? GetSysColor(COLOR_WINDOW) : PictureBody;
}

// Without pictures, a line around it.
void FormFrame::Paint(HDC paper, const RECT& area) const {
    if (pictures != nullptr) return PaintPictures(paper, area);
    FillRect(paper, &area, GetSysColorBrush(COLOR_WINDOW));
    FrameRect(paper, &area, GetSysColorBrush(COLOR_WINDOWTEXT));
}

// Colours are not mixed: a blue that is not quite pure would show.
void FormFrame::PaintPictures(HDC paper, const RECT& area) const {
    BITMAP picture{};
    GetObjectA(pictures, sizeof picture, &picture);
    const int square = picture.bmWidth / 3;

    const HDC source = CreateCompatibleDC(paper);
    const HGDIOBJ before = SelectObject(source, pictures);
    SetStretchBltMode(paper, COLORONCOLOR);
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            const Span x = PartOf(column, area.left, area.right, corner);
            const Span y = PartOf(row, area.top, area.bottom, corner);
            StretchBlt(paper, x.begin, y.begin, x.length, y.length, source, column * square, row * square, square,
                       square, SRCCOPY);
        }
    }
    SelectObject(source, before);
    DeleteDC(source);
}
