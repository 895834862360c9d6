#include "forms/counter_form.h"

#include <algorithm>
#include <cstddef>
#include <string>

#include "base/product.h"
#include "dictionary/dictionary.h"
#include "forms/counter_ids.h"
#include "forms/form_place.h"
#include "recording/counter_view.h"
#include "settings/settings.h"
#include "toolkit/frame.h"
#include "toolkit/window_tools.h"

CounterForm counter;

namespace {

constexpr const char* WindowClass = "TessarineCounter";
constexpr BYTE Alpha = 255;
constexpr int CaptionPercent = 250;  // of the dialog's font
constexpr int NumberPercent = 900;

// Smoothed letters would mix with the colour that is left out, and stand in a blue seam.
HFONT PlainFont(HWND form, int percent) {
    const HFONT smooth = FontLike(form, percent, FW_BOLD);
    LOGFONTA font{};
    GetObjectA(smooth, sizeof font, &font);
    DeleteObject(smooth);
    font.lfQuality = NONANTIALIASED_QUALITY;
    return CreateFontIndirectA(&font);
}

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

// --- life ---

void CounterForm::Load() {
    if (window != nullptr) return;
    nothing = CreateSolidBrush(FormFrame::LeftOut);
    RegisterDialogClass(WindowClass, nullptr);
    CreateDialogParamA(ProgramInstance(), MAKEINTRESOURCEA(counter_dialog), nullptr, DialogThunk, 0);
}

void CounterForm::OnInitDialog(HWND form) {
    window = form;
    captionFont = PlainFont(form, CaptionPercent);
    numberFont = PlainFont(form, NumberPercent);
    SendDlgItemMessageA(form, counter_caption, WM_SETFONT, reinterpret_cast<WPARAM>(captionFont), FALSE);
    SendDlgItemMessageA(form, counter_number, WM_SETFONT, reinterpret_cast<WPARAM>(numberFont), FALSE);
    SetWindowTextA(form, ProductName);
    PodesiRjecnik();
    if (settings.countdown_period >= 1) SetText(form, counter_number, std::to_string(settings.countdown_period));
    SetLayeredWindowAttributes(form, FormFrame::LeftOut, Alpha, LWA_COLORKEY | LWA_ALPHA);
    PutInMiddle(form);
}

void CounterForm::PodesiRjecnik() {
    SetText(window, counter_caption, Translate("Starting in"));
}

void CounterForm::Show() {
    Load();
    SetWindowPos(window, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
}

void CounterForm::Unload() {
    if (window == nullptr) return;
    DestroyWindow(window);
    window = nullptr;
    DeleteObject(captionFont);
    DeleteObject(numberFont);
    DeleteObject(nothing);
}

// --- messages ---

INT_PTR CALLBACK CounterForm::DialogThunk(HWND form, UINT message, WPARAM wParam, LPARAM) noexcept {
    return Guarded<INT_PTR>(FALSE, [&]() -> INT_PTR {
        if (message == WM_INITDIALOG) {
            counter.OnInitDialog(form);
            return FALSE;  // the focus stays where it is
        }
        return counter.window == form ? counter.OnDialogMessage(message, wParam) : FALSE;
    });
}

INT_PTR CounterForm::OnDialogMessage(UINT message, WPARAM wParam) {
    if (message == WM_CTLCOLORDLG) return reinterpret_cast<INT_PTR>(nothing);
    if (message == WM_CTLCOLORSTATIC) return reinterpret_cast<INT_PTR>(BrushOf(reinterpret_cast<HDC>(wParam)));
    return FALSE;
}

HBRUSH CounterForm::BrushOf(HDC paper) const {
    SetBkColor(paper, FormFrame::LeftOut);
    SetTextColor(paper, digitsBlack ? RGB(0, 0, 0) : RGB(255, 255, 255));
    return nothing;
}

// --- what it shows ---

void CounterForm::SetDigitsBlack(bool black) {
    Load();
    digitsBlack = black;
    for (const int label : {counter_caption, counter_number}) ShowWindow(GetDlgItem(window, label), SW_SHOWNA);
}

void CounterForm::ShowNumber(int number) const {
    SetText(window, counter_number, std::to_string(number));
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
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
