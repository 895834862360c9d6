#include "controls/list_painter.h"

#include <algorithm>

#include "controls/painted_control.h"
#include "toolkit/system_look.h"
#include "toolkit/window_tools.h"

namespace {

constexpr int PointsPerInch = 72;
constexpr int HoverPercent = 6;       // of the selection's colour, in the row under the mouse
constexpr int SmallTextPercent = 43;  // of the back's colour, in the small text
constexpr int LinePercent = 12;       // of the text's colour, in the line between rows
constexpr BYTE VeilAlpha = 150;       // over a disabled list

RECT ToRect(const platform::Rect& rect) {
    return {rect.left, rect.top, rect.right, rect.bottom};
}

SIZE TextSize(HDC paper, HFONT font, const std::string& text) {
    SIZE size{};
    const HGDIOBJ before = SelectObject(paper, font);
    GetTextExtentPoint32A(paper, text.c_str(), static_cast<int>(text.size()), &size);
    SelectObject(paper, before);
    return size;
}

void DrawLine(HDC paper, HFONT font, COLORREF colour, const std::string& text, RECT place, UINT format) {
    const HGDIOBJ before = SelectObject(paper, font);
    SetTextColor(paper, colour);
    DrawTextA(paper, text.c_str(), static_cast<int>(text.size()), &place,
              format | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
    SelectObject(paper, before);
}

struct Colours {
    COLORREF back;
    COLORREF text;
    COLORREF smallText;
    COLORREF line;
};

// The system's few colours are made to be seen: nothing is mixed from them.
Colours StrongColours(bool selected) {
    const COLORREF text = GetSysColor(selected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT);
    return {GetSysColor(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW), text, text, text};
}

Colours ColoursOf(const RowLook& look, bool selected, bool hot) {
    if (HighContrast()) return StrongColours(selected);
    if (selected) return {look.back, look.text, look.text, look.back};
    const COLORREF back = hot ? Mixed(look.back, ListModel::SelectedBack, HoverPercent) : look.back;
    return {back, look.text, Mixed(look.text, look.back, SmallTextPercent), Mixed(look.back, look.text, LinePercent)};
}

// What is painted stays to be seen, as something that cannot be used just now.
void Veil(HDC paper, const RECT& area) {
    const HDC source = CreateCompatibleDC(paper);
    const HBITMAP pixel = CreateCompatibleBitmap(paper, 1, 1);
    const HGDIOBJ before = SelectObject(source, pixel);
    SetPixel(source, 0, 0, GetSysColor(COLOR_3DFACE));
    const BLENDFUNCTION blend{AC_SRC_OVER, 0, VeilAlpha, 0};
    GdiAlphaBlend(paper, 0, 0, area.right, area.bottom, source, 0, 0, 1, 1, blend);
    SelectObject(source, before);
    DeleteObject(pixel);
    DeleteDC(source);
}

}  // namespace

// --- measures ---

ListPainter::~ListPainter() {
    if (bigFont != nullptr) DeleteObject(bigFont);
}

void ListPainter::MakeFonts(HWND window, HFONT font, int points) {
    if (bigFont != nullptr) DeleteObject(bigFont);
    smallFont = font != nullptr ? font : static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
    LOGFONTA big{};
    GetObjectA(smallFont, sizeof big, &big);
    big.lfHeight = -MulDiv(points, DpiOf(window), PointsPerInch);
    big.lfWidth = 0;
    big.lfWeight = FW_SEMIBOLD;
    bigFont = CreateFontIndirectA(&big);
    const HDC paper = GetDC(window);
    bigHeight = TextSize(paper, bigFont, "X").cy;
    smallHeight = TextSize(paper, smallFont, "X").cy;
    ReleaseDC(window, paper);
}

platform::Size ListPainter::ButtonSize(HWND window, const ListModel& list, const ListMeasures& least) const {
    const HDC paper = GetDC(window);
    platform::Size size = {least.smallButton.width, std::max(least.smallButton.height, smallHeight + least.margin)};
    const auto fit = [&](const std::string& text) {
        const int width = TextSize(paper, smallFont, text).cx + 2 * least.margin;
        if (!text.empty()) size.width = std::max(size.width, width);
    };
    fit(gumb);
    fit(gumb1);
    for (int i = 0; i < list.ListCount(); ++i) fit(list.Row(i).gumb);
    ReleaseDC(window, paper);
    return size;
}

// --- painting ---

class ListPainter::Sheet {
public:
    Sheet(const ListPainter& painter, HWND window, HDC dc, const ListModel& model, const ListState& listState)
        : tools(painter), control(window), paper(dc), list(model), state(listState) {}

    void Row(int index) const {
        const RECT place = ToRect(list.RowRect(index));
        const bool selected = index == list.listindex();
        const Colours colours = ColoursOf(list.LookOf(index), selected, index == state.hot.index);
        Fill(paper, place, colours.back);
        Fill(paper, {place.left, place.bottom - 1, place.right, place.bottom}, colours.line);
        Icon(index);
        Texts(index, colours);
        if (!list.Row(index).mark.empty()) Mark(index);
        for (const ListPart part : {ListPart::gumb, ListPart::gumb1}) {
            if (HasButton(index, part)) Button({index, part});
        }
        if (selected && state.focus) Focus(place, colours);
    }

private:
    bool HasButton(int index, ListPart part) const {
        const RowLook look = list.LookOf(index);
        return part == ListPart::gumb ? look.gumb : look.gumb1;
    }

    void Icon(int index) const {
        const RECT place = ToRect(list.IconRect(index));
        const int size = list.Measures().ImageSize;
        DrawIconEx(paper, place.left, place.top, tools.IconOf(list.GetIcon(index), size), size, size, 0, nullptr,
                   DI_NORMAL);
    }

    RECT TextPlace(int index) const {
        const int margin = list.Measures().margin;
        RECT place = ToRect(list.RowRect(index));
        place.left = list.IconRect(index).right + margin * 3 / 2;
        place.right -= margin;
        if (!list.Row(index).mark.empty()) place.right = list.MarkRect(index).left - margin;
        for (const ListPart part : {ListPart::gumb, ListPart::gumb1}) {
            if (!HasButton(index, part)) continue;
            place.right = std::min(place.right, LONG{list.ButtonRect(index, part).left - margin});
        }
        return place;
    }

    void Mark(int index) const {
        const RECT place = ToRect(list.MarkRect(index));
        DrawIconEx(paper, place.left, place.top, LoadIconA(nullptr, IDI_WARNING), place.right - place.left,
                   place.bottom - place.top, 0, nullptr, DI_NORMAL);
    }

    // The two lines together stand in the middle of the row.
    void Texts(int index, const Colours& colours) const {
        const ListRow& row = list.Row(index);
        RECT place = TextPlace(index);
        const int height = row.Text2.empty() ? tools.bigHeight : tools.TextHeight();
        place.top += (place.bottom - place.top - height) / 2;
        DrawLine(paper, tools.bigFont, colours.text, row.Text, place, DT_LEFT);
        place.top += tools.bigHeight;
        DrawLine(paper, tools.smallFont, colours.smallText, row.Text2, place, DT_LEFT);
    }

    Look LookOf(ListHit button) const {
        if (!state.enabled) return Look::Disabled;
        if (button != state.hot) return Look::Normal;
        return button == state.pressed ? Look::Pressed : Look::Hot;
    }

    void Button(ListHit button) const {
        const RECT place = ToRect(list.ButtonRect(button.index, button.part));
        DrawButton(control, paper, place, LookOf(button));
        const COLORREF colour = GetSysColor(state.enabled ? COLOR_BTNTEXT : COLOR_GRAYTEXT);
        DrawLine(paper, tools.smallFont, colour, tools.ButtonText(list.Row(button.index), button.part), place,
                 DT_CENTER | DT_VCENTER);
    }

    void Focus(RECT place, const Colours& colours) const {
        InflateRect(&place, -2, -2);
        SetTextColor(paper, colours.text);
        SetBkColor(paper, colours.back);
        DrawFocusRect(paper, &place);
    }

    const ListPainter& tools;
    HWND control;
    HDC paper;
    const ListModel& list;
    const ListState& state;
};

void ListPainter::Paint(HWND window, HDC paper, const ListModel& list, const ListState& state) const {
    RECT area{};
    GetClientRect(window, &area);
    Fill(paper, area, HighContrast() ? GetSysColor(COLOR_WINDOW) : ListModel::White);
    SetBkMode(paper, TRANSPARENT);
    const Sheet sheet(*this, window, paper, list, state);
    for (int i = list.ScrollValue(); i < list.ListCount(); ++i) {
        if (list.RowRect(i).top >= area.bottom) break;
        sheet.Row(i);
    }
    if (!state.enabled) Veil(paper, area);
}

HICON ListPainter::IconOf(int number, int size) const {
    const auto count = static_cast<int>(icons.size());
    return number >= 0 && number < count ? icons[static_cast<std::size_t>(number)] : ProgramIcon(size);
}

const std::string& ListPainter::ButtonText(const ListRow& row, ListPart button) const {
    if (button == ListPart::gumb1) return gumb1;
    return row.gumb.empty() ? gumb : row.gumb;
}
