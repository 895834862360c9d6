#include "job_editor/job_grid.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <exception>

#include "base/product.h"
#include "dictionary/dictionary.h"
#include "editor/row_edits.h"
#include "folding/popuni_listu.h"
#include "platform/registry.h"
#include "toolkit/system_look.h"
#include "toolkit/window_tools.h"

namespace {

constexpr UINT_PTR SubclassId = 1;
constexpr int MostRowsTold = 1000;
constexpr const char* WidthsValue = "EditorColumns";
constexpr int WidestColumn = 30000;  // twips

constexpr std::array<int, GridColumnCount> DesignedWidths = {500, 1350, 2300, 1000, 1300, 800, 2000, 4000};
constexpr int CellMargin = 14;  // pixels at 100 percent, on both sides of a text together
constexpr int NumberColumn = 0;
constexpr int DelayColumn = 3;
constexpr int StartTimeColumn = 4;
constexpr int DurationColumn = 5;

std::string RegistryKey() {
    std::string key = "Software\\";
    return key += ProductName;
}

// None while no job is open.
int RowCount() {
    return static_cast<int>(editState.RowIndex.size());
}

std::array<std::string, GridColumnCount> Headers() {
    return {Translate("No#"),        Translate("Mouse/Keyboard"),
            Translate("Action"),     Translate("Delay"),
            Translate("Start time"), Translate("Duration"),
            Translate("Window"),     Translate("Coordinates, Keystrokes")};
}

// A row whose times differ by more than a number can hold has no words. A box about it, at each painting, would be
// worse.
GridColumns ColumnsOf(int row) {
    try {
        return RowColumns(row);
    } catch (const std::exception&) {
        return {};
    }
}

// Of the columns whose texts have a length that can be told.
const char* LongestTextOf(int column) {
    switch (column) {
        case NumberColumn:
            return "99999";
        case DelayColumn:
        case DurationColumn:
            return "100000ms";
        case StartTimeColumn:
            return "00:00:00.000";
        default:
            return "";
    }
}

bool IsSelected(int row) {
    std::int32_t from = 0;
    std::int32_t to = 0;
    GetOdkudDokud(from, to);
    return row >= from && row <= to;
}

}  // namespace

// --- life ---

void JobGrid::Attach(HWND list) {
    window = list;
    told = {};
    shownRow = -1;
    dpi = 0;
    ListView_SetExtendedListViewStyle(list, LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER);
    widthsAreChosen = LoadWidths();
    for (int column = 0; column < static_cast<int>(GridColumnCount); ++column) {
        LVCOLUMNA made{};
        made.mask = LVCF_FMT | LVCF_WIDTH;
        made.fmt = column == DelayColumn || column == DurationColumn ? LVCFMT_RIGHT : LVCFMT_LEFT;
        SendMessageA(list, LVM_INSERTCOLUMNA, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&made));
    }
    SetWindowSubclass(list, ListThunk, SubclassId, reinterpret_cast<DWORD_PTR>(this));
}

void JobGrid::OnDestroy() {
    SaveWidths();
    RemoveWindowSubclass(window, ListThunk, SubclassId);
    window = nullptr;
}

LRESULT CALLBACK JobGrid::ListThunk(HWND list, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                    DWORD_PTR grid) noexcept {
    auto& self = *reinterpret_cast<JobGrid*>(grid);
    return Guarded<LRESULT>(0, [&]() -> LRESULT {
        if (message == WM_DESTROY)
            self.OnDestroy();
        else if (self.OnMessage(message, wParam, lParam))
            return 0;
        return DefSubclassProc(list, message, wParam, lParam);
    });
}

// --- mouse and keys ---

bool JobGrid::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_KEYDOWN:
            return OnKey(wParam);
        case WM_CHAR:  // the list would look for a row that begins with it
            return true;
        case WM_LBUTTONDOWN:
            OnPress(PointOf(lParam), (wParam & MK_SHIFT) != 0);
            return true;
        case WM_LBUTTONDBLCLK:
            OnPress(PointOf(lParam), false);
            ReleaseCapture();
            if (RowAt(PointOf(lParam)) >= 0 && Edit) Edit();
            return true;
        case WM_RBUTTONDOWN:
            OnRightPress(PointOf(lParam));
            return true;
        case WM_MOUSEMOVE:
            if (GetCapture() == window) OnDrag(PointOf(lParam));
            return false;
        case WM_LBUTTONUP:
            if (GetCapture() == window) ReleaseCapture();
            return true;
        case WM_MOUSEWHEEL:
            OnWheel(GET_WHEEL_DELTA_WPARAM(wParam));
            return true;
        default:
            return false;
    }
}

// Ctrl changes nothing: it would take single rows out of the block.
bool JobGrid::OnKey(WPARAM key) {
    const int count = RowCount();
    const int page = std::max(1, ListView_GetCountPerPage(window) - 1);
    int row = editSelection.RowSel;
    switch (key) {
        case VK_UP:
            row -= 1;
            break;
        case VK_DOWN:
            row += 1;
            break;
        case VK_PRIOR:
            row -= page;
            break;
        case VK_NEXT:
            row += page;
            break;
        case VK_HOME:
            row = 0;
            break;
        case VK_END:
            row = count - 1;
            break;
        case VK_SPACE:
            return true;
        default:
            return false;
    }
    if (count > 0) Choose(std::clamp(row, 0, count - 1), KeyIsDown(VK_SHIFT));
    return true;
}

void JobGrid::OnPress(POINT place, bool extend) {
    SetFocus(window);
    SetCapture(window);
    if (const int row = RowAt(place); row >= 0) Choose(row, extend);
    grid_mouseDown();
}

// A block stays as it is under a press in it.
void JobGrid::OnRightPress(POINT place) {
    SetFocus(window);
    if (const int row = RowAt(place); row >= 0 && !IsSelected(row)) Choose(row, false);
    grid_mouseDown();
}

// Past the first or the last row that is seen, the block grows by a row with each move of the mouse.
void JobGrid::OnDrag(POINT place) {
    if (RowCount() == 0) return;
    RECT area{};
    GetClientRect(window, &area);
    const int top = ListView_GetTopIndex(window);
    int row = RowAt(place);
    if (place.y >= area.bottom) row = top + ListView_GetCountPerPage(window);
    if (row < 0 && place.y < area.bottom / 2) row = top - 1;
    if (row < 0 && place.y >= area.bottom / 2) row = RowCount() - 1;
    row = std::clamp(row, 0, RowCount() - 1);
    if (row != editSelection.RowSel) Choose(row, true);
}

void JobGrid::OnWheel(int delta) {
    wheel += delta;
    const int notches = wheel / WHEEL_DELTA;
    wheel -= notches * WHEEL_DELTA;
    const int step = notches < 0 ? -WHEEL_DELTA : WHEEL_DELTA;
    RECT place{};
    if (!ListView_GetItemRect(window, ListView_GetTopIndex(window), &place, LVIR_BOUNDS)) return;
    for (int notch = 0; notch < std::abs(notches); ++notch) {
        const int top = ListView_GetTopIndex(window);
        const bool lastRowVisible = top + ListView_GetCountPerPage(window) >= RowCount();
        ListView_Scroll(window, 0, (Scrollaj(step, top, lastRowVisible) - top) * (place.bottom - place.top));
    }
}

// -1 beside the rows.
int JobGrid::RowAt(POINT place) const {
    LVHITTESTINFO hit{};
    hit.pt = place;
    SendMessageA(window, LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&hit));
    return hit.iItem < RowCount() ? hit.iItem : -1;
}

// --- selection ---

void JobGrid::Choose(int row, bool extend) {
    Select(extend ? editSelection.Row : row, row);
    if (window != nullptr) ListView_EnsureVisible(window, row, FALSE);
}

// A keystroke row that is shown as plain text is typed into its box, which takes the keyboard for that.
void JobGrid::Select(int row, int rowSel) {
    const bool hadFocus = GetFocus() == window;
    SelectRows(row, rowSel);
    if (window == nullptr) return;
    if (hadFocus && GetFocus() != window) SetFocus(window);
    ShowSelection();
}

void JobGrid::SelectAll() {
    if (RowCount() > 0) Select(0, RowCount() - 1);
}

void JobGrid::ShowSelection() {
    std::int32_t from = 0;
    std::int32_t to = -1;
    if (RowCount() > 0) GetOdkudDokud(from, to);
    const int end = editSelection.RowSel;
    TellSelection(to - from < MostRowsTold ? Block{from, to} : Block{end, end});
    if (RowCount() > 0) SetRowState(end, LVIS_FOCUSED, LVIS_FOCUSED);
    InvalidateRect(window, nullptr, FALSE);
}

void JobGrid::TellSelection(Block block) {
    for (int row = told.from; row <= told.to; ++row) {
        if (!block.Has(row)) SetRowState(row, 0, LVIS_SELECTED);
    }
    for (int row = block.from; row <= block.to; ++row) {
        if (!told.Has(row)) SetRowState(row, LVIS_SELECTED, LVIS_SELECTED);
    }
    told = block;
}

void JobGrid::SetRowState(int row, UINT state, UINT mask) const {
    LVITEMA item{};
    item.state = state;
    item.stateMask = mask;
    SendMessageA(window, LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

// --- rows ---

void JobGrid::ShowRows() {
    if (window == nullptr) return;
    TellSelection({});
    shownRow = -1;
    ListView_SetItemCountEx(window, RowCount(), LVSICF_NOINVALIDATEALL | LVSICF_NOSCROLL);
    ShowSelection();
    if (RowCount() > 0) ListView_EnsureVisible(window, editSelection.RowSel, FALSE);
}

void JobGrid::Repaint() {
    shownRow = -1;
    if (window != nullptr) InvalidateRect(window, nullptr, FALSE);
}

bool JobGrid::OnNotify(const NMHDR& notice, LRESULT& result) {
    switch (notice.code) {
        case LVN_GETDISPINFOA:
            OnGetText(const_cast<NMLVDISPINFOA&>(reinterpret_cast<const NMLVDISPINFOA&>(notice)).item);
            return true;
        case LVN_ODFINDITEMA:
            result = -1;
            return true;
        case static_cast<UINT>(NM_CUSTOMDRAW):
            result = OnDraw(const_cast<NMLVCUSTOMDRAW&>(reinterpret_cast<const NMLVCUSTOMDRAW&>(notice)),
                            GetFocus() == window);
            return true;
        default:
            return false;
    }
}

// The list asks for one column after the other. It may ask while something pumps and no job is open.
void JobGrid::OnGetText(LVITEMA& item) {
    if ((item.mask & LVIF_TEXT) == 0 || item.pszText == nullptr || item.cchTextMax <= 0) return;
    *item.pszText = '\0';
    if (item.iItem < 0 || item.iItem >= RowCount() || item.iSubItem >= static_cast<int>(GridColumnCount)) return;
    if (item.iItem != shownRow) {
        shownColumns = ColumnsOf(item.iItem);
        shownRow = item.iItem;
    }
    lstrcpynA(item.pszText, shownColumns[static_cast<std::size_t>(item.iSubItem)].c_str(), item.cchTextMax);
}

// Without the keyboard a selected row is grey, as in all lists; among few strong colours a grey would not be seen.
LRESULT JobGrid::OnDraw(NMLVCUSTOMDRAW& draw, bool focused) {
    constexpr int greyPercent = 15;
    if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
    if (draw.nmcd.dwDrawStage != CDDS_ITEMPREPAINT) return CDRF_DODEFAULT;
    const int row = static_cast<int>(draw.nmcd.dwItemSpec);
    const bool selected = row < RowCount() && IsSelected(row);
    const bool strong = selected && (focused || HighContrast());
    const COLORREF text = GetSysColor(COLOR_WINDOWTEXT);
    const COLORREF back = GetSysColor(COLOR_WINDOW);
    draw.nmcd.uItemState &= ~static_cast<UINT>(CDIS_SELECTED);  // the list would paint its own block
    draw.clrText = strong ? GetSysColor(COLOR_HIGHLIGHTTEXT) : text;
    draw.clrTextBk = strong ? GetSysColor(COLOR_HIGHLIGHT) : Mixed(back, text, selected ? greyPercent : 0);
    return CDRF_NEWFONT;
}

// --- columns ---

void JobGrid::SetHeaders() {
    std::array<std::string, GridColumnCount> headers = Headers();
    for (std::size_t column = 0; column < headers.size(); ++column) {
        LVCOLUMNA named{};
        named.mask = LVCF_TEXT;
        named.pszText = headers[column].data();
        SendMessageA(window, LVM_SETCOLUMNA, column, reinterpret_cast<LPARAM>(&named));
    }
    FitWidths();
    Repaint();
}

// What the user has made of the columns counts, at whatever scale.
void JobGrid::Scale() {
    if (window == nullptr) return;
    TakeWidths();
    dpi = DpiOf(window);
    FitWidths();
}

// As designed, and wide enough for the header and what can stand below it, until the user has chosen other widths.
void JobGrid::FitWidths() {
    if (dpi == 0) return;
    const std::array<std::string, GridColumnCount> headers = Headers();
    const int margin = MulDiv(CellMargin, dpi, USER_DEFAULT_SCREEN_DPI);
    for (std::size_t column = 0; column < GridColumnCount; ++column) {
        const auto needed = [&](const char* text) {
            return Twips(ListView_GetStringWidth(window, text) + margin, dpi);
        };
        const int least = std::max(needed(headers[column].c_str()), needed(LongestTextOf(static_cast<int>(column))));
        if (!widthsAreChosen) widths[column] = std::max(DesignedWidths[column], least);
        ListView_SetColumnWidth(window, static_cast<int>(column), Pixels(widths[column], dpi));
    }
}

// Eight numbers with commas between them; any other text is none of ours. False without them.
bool JobGrid::LoadWidths() {
    const std::string stored = platform::ReadRegistry(RegistryKey(), WidthsValue).value_or("");
    Widths read{};
    const char* next = stored.data();
    const char* const end = stored.data() + stored.size();
    for (int& width : read) {
        const auto [behind, error] = std::from_chars(next, end, width);
        if (error != std::errc() || width < 0 || width > WidestColumn) return false;
        next = behind == end ? end : behind + 1;
    }
    widths = read;
    return true;
}

// A column that the user has drawn to another width: from then on all of them are the user's.
void JobGrid::TakeWidths() {
    if (dpi == 0) return;
    for (std::size_t column = 0; column < GridColumnCount; ++column) {
        const int width = ListView_GetColumnWidth(window, static_cast<int>(column));
        if (width == Pixels(widths[column], dpi)) continue;
        widths[column] = Twips(width, dpi);
        widthsAreChosen = true;
    }
}

void JobGrid::SaveWidths() {
    TakeWidths();
    if (!widthsAreChosen) return;
    std::string text;
    for (const int width : widths) text += (text.empty() ? "" : ",") + std::to_string(width);
    platform::WriteRegistry(RegistryKey(), WidthsValue, text);
}
