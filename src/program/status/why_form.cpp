#include "status/why_form.h"

#include <algorithm>
#include <array>
#include <numeric>

#include "base/product.h"
#include "dictionary/sentences.h"
#include "platform/boxes.h"
#include "toolkit/clipboard.h"
#include "toolkit/system_look.h"
#include "toolkit/window_tools.h"

WhyForm why;

namespace {

constexpr int CellMargin = 16;  // of both sides of a cell; lengths are pixels at 100 percent
constexpr int ReasonGap = 8;    // between the sentences and the table
constexpr COLORREF DifferenceColour = RGB(0xa8, 0x3f, 0x10);
constexpr int HeadingTint = 8;  // percent of the text's colour in the back

const std::string& TextIn(const ExplanationRow& row, int column) {
    const std::string* const texts[] = {&row.what, &row.recorded, &row.live, &row.equal};
    return *texts[std::clamp(column, 0, 3)];
}

// Columns as wide as their texts, and what is over for all. Where there is too little room, the longer titles give way,
// never the words about them.
std::array<int, 4> SharedOut(std::array<int, 4> widths, int width) {
    auto& [what, recorded, live, equal] = widths;
    const int room = std::max(width - what - equal, 0);
    if (recorded + live > room) {
        int& shorter = recorded < live ? recorded : live;
        int& longer = recorded < live ? live : recorded;
        shorter = std::min(shorter, room / 2);
        longer = room - shorter;
    }
    const int over = width - std::accumulate(widths.begin(), widths.end(), 0);
    for (int& each : widths) each += over / 4;
    return widths;
}

// Of the text in the static control, at its present width.
int HeightOfText(HWND control) {
    RECT area{};
    GetClientRect(control, &area);
    const HDC paper = GetDC(control);
    const HGDIOBJ before = SelectObject(paper, reinterpret_cast<HFONT>(SendMessageA(control, WM_GETFONT, 0, 0)));
    const int height =
        DrawTextA(paper, WindowText(control).c_str(), -1, &area, DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX);
    SelectObject(paper, before);
    ReleaseDC(control, paper);
    return height;
}

}  // namespace

void WhyForm::ShowFor(const Explanation& shown, HWND owner) {
    Close();
    explanation = shown;
    if (!Create(owner)) return;
    PutInMiddle(Window());
    // A status window stays above all others, and what belongs to it has to stand above that.
    const bool topmost = (GetWindowLongPtrA(owner, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
    SetWindowPos(Window(), topmost ? HWND_TOPMOST : HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_SHOWWINDOW);
    SetForegroundWindow(Window());
}

// --- what it is ---

std::string WhyForm::Caption() const {
    return explanation.result < NothingLookedFor ? Question("Why is the window not found")
                                                 : Translate("The search for the window");
}

std::vector<ControlRow> WhyForm::Rows() {
    return {
        {.id = why_row, .member = Shown([this] { return explanation.row; }), .anchors = AcrossTop},
        {.id = why_reason,
         .member = Shown([this] { return LikelyReason(explanation); }),
         .anchors = AcrossTop,
         .font = {110, FW_SEMIBOLD}},
        {.id = why_table, .name = "Windows that the search looked at", .anchors = AllEdges},
        {.id = IDHELP, .anchors = AtBottomLeft},
        {.id = why_copy,
         .caption = "Copy as &text",
         .tip = "Copy all of this as text, to send it to somebody or to keep it",
         .clicked = [this] { OnCopy(); },
         .anchors = AtBottomRight},
        {.id = why_close, .caption = "&Close", .clicked = [this] { Close(); }, .anchors = AtBottomRight},
    };
}

void WhyForm::OnInit() {
    const HWND list = Control(why_table);
    ListView_SetExtendedListViewStyle(list, LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER);
    for (std::size_t column = 0; column < Columns; ++column) {
        LVCOLUMNA made{};
        made.mask = LVCF_WIDTH;
        SendMessageA(list, LVM_INSERTCOLUMNA, column, reinterpret_cast<LPARAM>(&made));
    }
}

void WhyForm::OnUnload() {
    if (headingFont != nullptr) DeleteObject(headingFont);
    headingFont = nullptr;
}

void WhyForm::PodesiRjecnik() {
    if (Window() == nullptr) return;
    Form::PodesiRjecnik();
    const HWND list = Control(why_table);
    ExplanationColumns header = ExplanationHeader();
    std::size_t column = 0;
    for (std::string* const text : {&header.what, &header.recorded, &header.live, &header.equal}) {
        LVCOLUMNA named{};
        named.mask = LVCF_TEXT;
        named.pszText = text->data();
        SendMessageA(list, LVM_SETCOLUMNA, column++, reinterpret_cast<LPARAM>(&named));
    }
    table = ExplanationTable(explanation);
    ListView_SetItemCount(list, static_cast<int>(table.size()));
    InvalidateRect(list, nullptr, TRUE);
    OnLayout();
}

void WhyForm::OnLooks() {
    if (headingFont != nullptr) DeleteObject(headingFont);
    const auto icon = reinterpret_cast<LPARAM>(ProgramIcon(GetSystemMetrics(SM_CXSMICON)));
    SendMessageA(Window(), WM_SETICON, ICON_SMALL, icon);
    headingFont = FontLike(Control(why_table), 100, FW_SEMIBOLD);
}

void WhyForm::OnLayout() {
    FitReason();
    FitColumns();
}

// The sentences take what they need, with titles as long as they may be, and the table begins below them.
void WhyForm::FitReason() const {
    const HWND reason = Control(why_reason);
    const HWND list = Control(why_table);
    const platform::Rect words = RectangleOf(reason);
    const platform::Rect lines = RectangleOf(list);
    const int height = HeightOfText(reason);
    POINT corner = {words.left, words.top + height + MulDiv(ReasonGap, DpiOf(Window()), USER_DEFAULT_SCREEN_DPI)};
    const int below = lines.bottom - static_cast<int>(corner.y);
    ScreenToClient(Window(), &corner);
    SetWindowPos(reason, nullptr, 0, 0, words.right - words.left, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    SetWindowPos(list, nullptr, static_cast<int>(corner.x), static_cast<int>(corner.y), lines.right - lines.left, below,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

void WhyForm::FitColumns() const {
    const HWND list = Control(why_table);
    RECT area{};
    GetClientRect(list, &area);
    const bool hasScrollBar = (GetWindowLongPtrA(list, GWL_STYLE) & WS_VSCROLL) != 0;
    const int scrollBar = hasScrollBar ? 0 : GetSystemMetrics(SM_CXVSCROLL);
    const auto widths = SharedOut(WidthsOfTexts(), static_cast<int>(area.right) - scrollBar);
    for (std::size_t column = 0; column < Columns; ++column) {
        ListView_SetColumnWidth(list, static_cast<int>(column), widths[column]);
    }
}

std::array<int, WhyForm::Columns> WhyForm::WidthsOfTexts() const {
    const HWND list = Control(why_table);
    const HDC paper = GetDC(list);
    const HGDIOBJ plain = reinterpret_cast<HFONT>(SendMessageA(list, WM_GETFONT, 0, 0));
    const HGDIOBJ before = SelectObject(paper, plain);
    std::array<int, Columns> widths{};
    const auto measure = [&](const ExplanationRow& row) {
        SelectObject(paper, row.heading && headingFont != nullptr ? headingFont : plain);
        for (std::size_t column = 0; column < Columns; ++column) {
            const std::string& text = TextIn(row, static_cast<int>(column));
            SIZE size{};
            GetTextExtentPoint32A(paper, text.data(), static_cast<int>(text.size()), &size);
            widths[column] = std::max(widths[column], static_cast<int>(size.cx));
        }
    };
    const ExplanationColumns header = ExplanationHeader();
    measure({.what = header.what, .recorded = header.recorded, .live = header.live, .equal = header.equal});
    std::ranges::for_each(table, measure);
    SelectObject(paper, before);
    ReleaseDC(list, paper);
    const int margin = MulDiv(CellMargin, DpiOf(Window()), USER_DEFAULT_SCREEN_DPI);
    for (int& each : widths) each += margin;
    return widths;
}

// --- messages ---

bool WhyForm::OnMessage(UINT message, WPARAM, LPARAM lParam, LRESULT& result) {
    if (message == WM_CLOSE) {
        Close();
        return true;
    }
    if (message != WM_NOTIFY) return false;
    auto* const notice = reinterpret_cast<NMHDR*>(lParam);
    if (notice->idFrom != why_table) return false;
    switch (notice->code) {
        case LVN_GETDISPINFOA:
            OnGetText(reinterpret_cast<NMLVDISPINFOA*>(notice)->item);
            return true;
        case LVN_ODFINDITEMA:
            result = -1;
            return true;
        case static_cast<UINT>(NM_CUSTOMDRAW):
            result = OnDraw(*reinterpret_cast<NMLVCUSTOMDRAW*>(notice));
            return true;
        default:
            return false;
    }
}

// Esc, or Enter where nothing else takes it.
bool WhyForm::OnClicked(int id) {
    if (id == IDCANCEL || id == IDOK) Close();
    return id == IDCANCEL || id == IDOK;
}

void WhyForm::OnCopy() {
    if (CopyToClipboard(Window(), ExplanationText(explanation))) return;
    platform::ShowBox(Translate("The text could not be copied: another program holds the clipboard. Please try again."),
                      ProductName, platform::BoxIcon::Error);
}

void WhyForm::OnGetText(LVITEMA& item) const {
    if ((item.mask & LVIF_TEXT) == 0 || item.pszText == nullptr || item.cchTextMax <= 0) return;
    *item.pszText = '\0';
    if (item.iItem < 0 || item.iItem >= static_cast<int>(table.size())) return;
    const std::string& text = TextIn(table[static_cast<std::size_t>(item.iItem)], item.iSubItem);
    lstrcpynA(item.pszText, text.c_str(), item.cchTextMax);
}

LRESULT WhyForm::OnDraw(NMLVCUSTOMDRAW& draw) const {
    if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
    if (draw.nmcd.dwDrawStage != CDDS_ITEMPREPAINT || draw.nmcd.dwItemSpec >= table.size()) return CDRF_DODEFAULT;
    const ExplanationRow& row = table[draw.nmcd.dwItemSpec];
    if (row.heading) {
        draw.clrTextBk =
            Mixed(GetSysColor(COLOR_WINDOW), GetSysColor(COLOR_WINDOWTEXT), HighContrast() ? 0 : HeadingTint);
        SelectObject(draw.nmcd.hdc, headingFont);
    } else if (row.differs && !HighContrast()) {
        draw.clrText = DifferenceColour;
    }
    return CDRF_NEWFONT;
}
