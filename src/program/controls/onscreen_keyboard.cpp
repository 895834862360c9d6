#include "controls/onscreen_keyboard.h"

#include <oleacc.h>

#include <algorithm>
#include <array>
#include <cstddef>

#include "dictionary/dictionary.h"
#include "editor/keystroke_box.h"
#include "keystrokes/notation.h"
#include "platform/pump.h"
#include "toolkit/system_look.h"
#include "toolkit/window_tools.h"

namespace {

constexpr int CharacterPercent = 40;  // of a key's height: the fonts
constexpr int NamePercent = 31;
constexpr int SmallPercent = 24;
constexpr int EdgePercent = 30;      // of black, in the edge of a key
constexpr int DisabledPercent = 45;  // of the key's back, in the text of one that cannot be used
constexpr int LeftArrow = 37;
constexpr int RightArrow = 39;
constexpr int DownArrow = 40;

enum Command { PressCommand = 1, DownCommand, UpCommand };

struct Paint {
    COLORREF back;
    COLORREF text;
    COLORREF edge;
    COLORREF heldEdge;
};

// The system's few colours are made to be seen: nothing is mixed from them.
Paint StrongPaint(const KeyColours& colours, bool usable) {
    const bool hot = colours == KeyUnderMouse;
    const COLORREF text = GetSysColor(hot ? COLOR_HIGHLIGHTTEXT : usable ? COLOR_BTNTEXT : COLOR_GRAYTEXT);
    return {GetSysColor(hot ? COLOR_HIGHLIGHT : COLOR_BTNFACE), text, text, GetSysColor(COLOR_HIGHLIGHT)};
}

Paint PaintOf(const KeyPart& part) {
    const KeyColours& colours = onscreenKeyboard.colours[static_cast<std::size_t>(part.index)];
    const bool usable = TextIsUsable();
    if (HighContrast()) return StrongPaint(colours, usable);
    const COLORREF text = usable ? colours.text : Mixed(colours.text, colours.back, DisabledPercent);
    return {colours.back, text, Mixed(colours.back, RGB(0, 0, 0), EdgePercent), KeyUnderMouse.back};
}

int KeyOf(const KeyPart& part) {
    return part.index % SecondPart;
}

HFONT FontOf(HFONT like, int height) {
    LOGFONTA font{};
    GetObjectA(like != nullptr ? like : GetStockObject(DEFAULT_GUI_FONT), sizeof font, &font);
    font.lfHeight = -std::max(height, 6);
    font.lfWidth = 0;
    return CreateFontIndirectA(&font);
}

HRGN RoundRegion(const RECT& place, int radius) {
    return CreateRoundRectRgn(place.left, place.top, place.right + 1, place.bottom + 1, radius, radius);
}

// Of the arrow that points up, in thirds of its size from the middle of the key; the others are turned from it.
void PaintArrow(HDC paper, int key, const RECT& place, COLORREF colour) {
    const int size = std::min(place.right - place.left, place.bottom - place.top) / 5;
    const POINT middle{(place.left + place.right) / 2, (place.top + place.bottom) / 2};
    std::array<POINT, 3> corners = {POINT{0, -size}, POINT{size, size}, POINT{-size, size}};
    for (POINT& corner : corners) {
        if (key == DownArrow) corner.y = -corner.y;
        if (key == LeftArrow) corner = {corner.y, corner.x};
        if (key == RightArrow) corner = {-corner.y, corner.x};
        corner = {corner.x + middle.x, corner.y + middle.y};
    }
    SetDCBrushColor(paper, colour);
    SetDCPenColor(paper, colour);
    const HGDIOBJ brush = SelectObject(paper, GetStockObject(DC_BRUSH));
    const HGDIOBJ pen = SelectObject(paper, GetStockObject(DC_PEN));
    Polygon(paper, corners.data(), static_cast<int>(corners.size()));
    SelectObject(paper, pen);
    SelectObject(paper, brush);
}

// What a caption takes up in the font of the paper, in lines as wide as the place; a word can be wider.
constexpr UINT CaptionFormat = DT_CENTER | DT_WORDBREAK | DT_NOPREFIX | DT_NOCLIP;
SIZE CaptionSize(HDC paper, const std::string& caption, const RECT& place) {
    RECT needed{0, 0, place.right - place.left, 0};
    DrawTextA(paper, caption.c_str(), static_cast<int>(caption.size()), &needed, CaptionFormat | DT_CALCRECT);
    return {needed.right, needed.bottom};
}

bool IsArrow(int key) {
    return key >= LeftArrow && key <= DownArrow;
}

void AddEntry(HMENU menu, Command command, const std::string& text, bool enabled) {
    AppendMenuA(menu, MF_STRING | (enabled ? MF_ENABLED : MF_GRAYED), command, text.c_str());
}

void Choose(int command) {
    if (command == PressCommand) press_key_Click();
    if (command == DownCommand) key_down_Click();
    if (command == UpCommand) key_up_Click();
}

}  // namespace

void RegisterOnscreenKeyboard() {
    OwnControl::RegisterControlClass("TessarineKeyboard");
}

// --- life ---

OnscreenKeyboardControl::~OnscreenKeyboardControl() {
    FreeFonts();
}

void OnscreenKeyboardControl::Attach(HWND control) {
    AttachTo(control);
    MakeFonts();
    PodesiRjecnik();
}

void OnscreenKeyboardControl::PodesiRjecnik() {
    NacrtajTipkovnicu();
    ShowText();
}

void OnscreenKeyboardControl::ShowText() {
    held = KeysHeldAt(keystrokeBox.text, keystrokeBox.SelStart);
    if (Window() != nullptr) InvalidateRect(Window(), nullptr, FALSE);
}

// --- messages ---

LRESULT OnscreenKeyboardControl::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_MOUSEMOVE:
            OnMouseMove(PointOf(lParam));
            return 0;
        case WM_MOUSELEAVE:
            ShowHot(0);
            return 0;
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
            if (const int key = KeyAt(OnBoard(PointOf(lParam))); key != 0) button_MouseDown(key);
            return 0;
        case WM_RBUTTONDOWN:
        case WM_RBUTTONDBLCLK:
            OnRightPress(PointOf(lParam));
            return 0;
        case WM_INPUTLANGCHANGE:
            PodesiRjecnik();
            return Default(message, wParam, lParam);
        case WM_SIZE:
        case WM_SETFONT:
        case WM_DPICHANGED_AFTERPARENT:
        case WM_THEMECHANGED:
        case WM_SYSCOLORCHANGE: {
            const LRESULT result = Default(message, wParam, lParam);
            MakeFonts();
            InvalidateRect(Window(), nullptr, FALSE);
            return result;
        }
        default:
            return Default(message, wParam, lParam);
    }
}

void OnscreenKeyboardControl::OnMouseMove(POINT point) {
    TRACKMOUSEEVENT leave{sizeof leave, TME_LEAVE, Window(), 0};
    TrackMouseEvent(&leave);
    ShowHot(KeyAt(OnBoard(point)));
}

void OnscreenKeyboardControl::ShowHot(int key) {
    if (button_MouseMove(key)) InvalidateRect(Window(), nullptr, FALSE);
}

// The menu runs a loop of its own, in which the editor may close.
void OnscreenKeyboardControl::OnRightPress(POINT point) {
    const int key = KeyAt(OnBoard(point));
    const auto popup = key == 0 ? std::nullopt : PopupOf(key);
    if (!popup) return;
    const HMENU menu = CreatePopupMenu();
    AddEntry(menu, PressCommand, Translate("Key PRESS"), popup->press_key);
    AddEntry(menu, DownCommand, Translate("Key DOWN"), popup->key_down);
    AddEntry(menu, UpCommand, Translate("Key UP"), popup->key_up);
    ClientToScreen(Window(), &point);
    Choose(TrackMenu(menu, GetAncestor(Window(), GA_ROOT), point));
}

// --- places ---

platform::Point OnscreenKeyboardControl::OnBoard(POINT point) const {
    RECT area{};
    GetClientRect(Window(), &area);
    if (!PtInRect(&area, point)) return {-1, -1};
    return {static_cast<std::int32_t>(point.x * KeyboardSize.width / area.right),
            static_cast<std::int32_t>(point.y * KeyboardSize.height / area.bottom)};
}

RECT OnscreenKeyboardControl::Scaled(const platform::Rect& place) const {
    RECT area{};
    GetClientRect(Window(), &area);
    const auto x = [&](int quarters) { return quarters * area.right / KeyboardSize.width; };
    const auto y = [&](int quarters) { return quarters * area.bottom / KeyboardSize.height; };
    return {x(place.left), y(place.top), x(place.right), y(place.bottom)};
}

// --- screen readers ---

int OnscreenKeyboardControl::PartCount() const {
    return static_cast<int>(onscreenKeyboard.button.size());
}

std::optional<std::string> OnscreenKeyboardControl::NameOf(int part) const {
    if (part == 0) return OwnControl::NameOf(part);
    const KeyPart& key = onscreenKeyboard.button[static_cast<std::size_t>(part - 1)];
    return key.caption.empty() ? KeyNameFromCode(KeyOf(key)) : key.caption;
}

std::optional<long> OnscreenKeyboardControl::RoleOf(int part) const {
    return part == 0 ? ROLE_SYSTEM_GROUPING : ROLE_SYSTEM_PUSHBUTTON;
}

std::optional<long> OnscreenKeyboardControl::StateOf(int part) const {
    const long usable = TextIsUsable() ? 0L : STATE_SYSTEM_UNAVAILABLE;
    if (part == 0) return usable;
    return usable | (IsHeld(onscreenKeyboard.button[static_cast<std::size_t>(part - 1)]) ? STATE_SYSTEM_PRESSED : 0L);
}

RECT OnscreenKeyboardControl::PlaceOf(int part) const {
    RECT place = Scaled(onscreenKeyboard.button[static_cast<std::size_t>(part - 1)].place);
    MapWindowPoints(Window(), nullptr, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

int OnscreenKeyboardControl::PartAt(POINT place) const {
    ScreenToClient(Window(), &place);
    const int key = KeyAt(OnBoard(place));
    const auto& button = onscreenKeyboard.button;
    const auto found =
        std::find_if(button.begin(), button.end(), [key](const KeyPart& part) { return KeyOf(part) == key; });
    return found == button.end() ? 0 : static_cast<int>(found - button.begin()) + 1;
}

std::optional<std::string> OnscreenKeyboardControl::ActionOf(int part) const {
    return part == 0 ? std::string() : Translate("Key PRESS");
}

bool OnscreenKeyboardControl::DoAction(int part) {
    if (part < 1 || part > PartCount()) return false;
    platform::CallOutsideHooks(
        [key = KeyOf(onscreenKeyboard.button[static_cast<std::size_t>(part - 1)])] { button_MouseDown(key); });
    return true;
}

// --- looks ---

void OnscreenKeyboardControl::MakeFonts() {
    FreeFonts();
    const RECT key = Scaled({0, 0, 4, 4});
    const int side = static_cast<int>(std::min(key.right, key.bottom));
    characterFont = FontOf(Font(), side * CharacterPercent / 100);
    nameFont = FontOf(Font(), side * NamePercent / 100);
    smallFont = FontOf(Font(), side * SmallPercent / 100);
}

void OnscreenKeyboardControl::FreeFonts() {
    for (HFONT* const font : {&characterFont, &nameFont, &smallFont}) {
        if (*font != nullptr) DeleteObject(*font);
        *font = nullptr;
    }
}

bool OnscreenKeyboardControl::IsHeld(const KeyPart& part) const {
    return held[static_cast<std::size_t>(KeyOf(part))];
}

void OnscreenKeyboardControl::OnPaint(HDC paper) const {
    RECT area{};
    GetClientRect(Window(), &area);
    Fill(paper, area, GetSysColor(COLOR_3DFACE));
    SetBkMode(paper, TRANSPARENT);
    for (const KeyPart& part : onscreenKeyboard.button) PaintKey(paper, part);
    for (const KeyPart& part : onscreenKeyboard.button) PaintCaption(paper, part);
}

// The pieces of a key that overlap are one shape.
void OnscreenKeyboardControl::PaintKey(HDC paper, const KeyPart& part) const {
    const int gap = std::max(1, DpiOf(Window()) / USER_DEFAULT_SCREEN_DPI);
    const HRGN shape = CreateRectRgn(0, 0, 0, 0);
    for (const KeyPart& piece : onscreenKeyboard.button) {
        if (KeyOf(piece) != KeyOf(part)) continue;
        RECT place = Scaled(piece.place);
        InflateRect(&place, -gap, -gap);
        const HRGN round = RoundRegion(place, 6 * gap);
        CombineRgn(shape, shape, round, RGN_OR);
        DeleteObject(round);
    }
    const Paint paint = PaintOf(part);
    const HBRUSH back = CreateSolidBrush(paint.back);
    const HBRUSH edge = CreateSolidBrush(IsHeld(part) ? paint.heldEdge : paint.edge);
    const int thickness = IsHeld(part) ? 3 * gap : gap;
    FillRgn(paper, shape, back);
    FrameRgn(paper, shape, edge, thickness, thickness);
    DeleteObject(edge);
    DeleteObject(back);
    DeleteObject(shape);
}

// A word that is too long for its key is written smaller.
void OnscreenKeyboardControl::PaintCaption(HDC paper, const KeyPart& part) const {
    RECT place = Scaled(part.place);
    const COLORREF colour = PaintOf(part).text;
    if (IsArrow(part.index)) return PaintArrow(paper, part.index, place, colour);
    InflateRect(&place, -MulDiv(2, DpiOf(Window()), USER_DEFAULT_SCREEN_DPI), 0);
    const HGDIOBJ before = SelectObject(paper, part.caption.size() == 1 ? characterFont : nameFont);
    SIZE needed = CaptionSize(paper, part.caption, place);
    if (needed.cx > place.right - place.left) {
        SelectObject(paper, smallFont);
        needed = CaptionSize(paper, part.caption, place);
    }
    place.top += (place.bottom - place.top - needed.cy) / 2;
    SetTextColor(paper, colour);
    DrawTextA(paper, part.caption.c_str(), static_cast<int>(part.caption.size()), &place, CaptionFormat);
    SelectObject(paper, before);
}
