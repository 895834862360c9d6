#include "forms/counter_form.h"

#include <algorithm>
#include <cstddef>
#include <string>

#include "forms/counter_ids.h"
#include "recording/counter_view.h"
#include "settings/settings.h"
#include "toolkit/window_tools.h"

CounterForm counter;

namespace {

// The part of the screens in which the points lie; empty without any.
platform::Rect AreaOf(const std::vector<platform::Point>& points) {
    const std::int32_t left = GetSystemMetrics(SM_XVIRTUALSCREEN);
    const std::int32_t top = GetSystemMetrics(SM_YVIRTUALSCREEN);
    const platform::Rect all = {left, top, left + GetSystemMetrics(SM_CXVIRTUALSCREEN),
                                top + GetSystemMetrics(SM_CYVIRTUALSCREEN)};
    platform::Rect area = {all.right, all.bottom, all.left, all.top};
    for (const platform::Point& point : points) {
        area.left = std::max(all.left, std::min(area.left, point.x));
        area.top = std::max(all.top, std::min(area.top, point.y));
        area.right = std::min(all.right, std::max(area.right, point.x + 1));
        area.bottom = std::min(all.bottom, std::max(area.bottom, point.y + 1));
    }
    return area;
}

// A part of the screen, taken in one step: to ask for each pixel by itself takes the better part of a second.
class ScreenCopy {
public:
    explicit ScreenCopy(const platform::Rect& part) : area(part) {
        const int width = area.right - area.left;
        const int height = area.bottom - area.top;
        if (width <= 0 || height <= 0) return;
        const HDC screen = CreateDCA("DISPLAY", nullptr, nullptr, nullptr);
        const HDC paper = CreateCompatibleDC(screen);
        BITMAPINFO info{};
        info.bmiHeader = {sizeof info.bmiHeader, width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* bits = nullptr;
        picture = CreateDIBSection(paper, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        const HGDIOBJ before = SelectObject(paper, picture);
        if (BitBlt(paper, 0, 0, width, height, screen, area.left, area.top, SRCCOPY)) {
            pixels = static_cast<const std::uint32_t*>(bits);
        }
        SelectObject(paper, before);
        DeleteDC(paper);
        DeleteDC(screen);
        GdiFlush();
    }
    ~ScreenCopy() {
        if (picture != nullptr) DeleteObject(picture);
    }
    ScreenCopy(const ScreenCopy&) = delete;
    ScreenCopy& operator=(const ScreenCopy&) = delete;

    std::uint32_t ColourAt(const platform::Point& point) const {
        const bool inside =
            point.x >= area.left && point.x < area.right && point.y >= area.top && point.y < area.bottom;
        if (pixels == nullptr || !inside) return CLR_INVALID;
        const auto row = static_cast<std::size_t>(point.y - area.top);
        const auto column = static_cast<std::size_t>(point.x - area.left);
        const std::uint32_t pixel = pixels[row * static_cast<std::size_t>(area.right - area.left) + column];
        return (pixel & 0xFF) << 16 | (pixel & 0xFF00) | (pixel >> 16 & 0xFF);
    }

private:
    platform::Rect area;
    HBITMAP picture = nullptr;
    const std::uint32_t* pixels = nullptr;  // 0x00RRGGBB, row by row
};

}  // namespace

// --- what it is ---

CounterForm::CounterForm() : FloatingForm(counter_dialog, "TessarineCounter", 255) {}

// Smoothed letters would mix with the colour that is left out, and stand in a blue seam.
std::vector<ControlRow> CounterForm::Rows() {
    return {
        {.id = counter_caption, .caption = "Starting in", .font = {250, FW_BOLD, false}},
        {.id = counter_number, .font = {900, FW_BOLD, false}},
    };
}

bool CounterForm::OnLoad() {
    if (settings.countdown_period >= 1) ShowNumber(settings.countdown_period);
    PutInMiddle(Window());
    return false;
}

// What lies below decides it, in high contrast too.
COLORREF CounterForm::TextColour(int) const {
    return digitsBlack ? RGB(0, 0, 0) : RGB(255, 255, 255);
}

// --- what it shows ---

void CounterForm::SetDigitsBlack(bool black) {
    Load();
    digitsBlack = black;
    for (const int label : {counter_caption, counter_number}) ShowWindow(Control(label), SW_SHOWNA);
}

void CounterForm::ShowNumber(int number) const {
    SetText(Window(), counter_number, std::to_string(number));
    RedrawWindow(Window(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
    GdiFlush();
}

// --- the view ---

namespace counter_view {

platform::Rect Rectangle() {
    counter.Load();
    return RectangleOf(counter.Window());
}

std::vector<std::uint32_t> ReadScreen(const std::vector<platform::Point>& points) {
    const ScreenCopy screen(AreaOf(points));
    std::vector<std::uint32_t> colours;
    colours.reserve(points.size());
    for (const platform::Point& point : points) colours.push_back(screen.ColourAt(point));
    return colours;
}

void Show() {
    counter.Show();
}

void SetDigitsBlack(bool black) {
    counter.SetDigitsBlack(black);
}

void ShowNumber(int number) {
    counter.ShowNumber(number);
}

void Unload() {
    counter.Unload();
}

}  // namespace counter_view
