#include "controls/list_control.h"

#include <oleacc.h>
#include <windowsx.h>

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "base/text.h"
#include "toolkit/system_look.h"
#include "toolkit/window_tools.h"

namespace {

// Posted to the control itself: a list that is being filled changes dozens of times at once, and its scroll bar and
// what is said of it follow once, before the next painting.
constexpr UINT UpdateMessage = WM_APP;

constexpr LPARAM ByKeyboard = -1;  // of WM_CONTEXTMENU

// The system's clock of input: typing counts as quick that was quick when the program was busy.
std::int64_t InputTime() {
    return static_cast<std::uint32_t>(GetMessageTime());
}

POINT OnScreen(HWND window, platform::Point point) {
    POINT place{point.x, point.y};
    ClientToScreen(window, &place);
    return place;
}

platform::Point MousePlace(HWND window) {
    POINT place{};
    GetCursorPos(&place);
    ScreenToClient(window, &place);
    return {place.x, place.y};
}

ListMeasures Scaled(ListMeasures lengths, int dpi) {
    for (int* const length : {&lengths.ItemHeight, &lengths.ImageSize, &lengths.smallButton.width,
                              &lengths.smallButton.height, &lengths.margin}) {
        *length = MulDiv(*length, dpi, USER_DEFAULT_SCREEN_DPI);
    }
    return lengths;
}

}  // namespace

void RegisterListControl() {
    OwnControl::RegisterControlClass("TessarineList");
}

// --- life ---

void ListControl::Attach(HWND control, ListModel& listModel, const ListMeasures& lengths) {
    AttachTo(control);
    model = &listModel;
    atHundred = lengths;
    model->events.Changed = [this] { OnModelChanged(); };
    SetWindowLongPtrA(control, GWL_EXSTYLE, GetWindowLongPtrA(control, GWL_EXSTYLE) | WS_EX_CLIENTEDGE);
    SetWindowPos(control, nullptr, 0, 0, 0, 0,
                 SWP_FRAMECHANGED | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    Measure();
}

void ListControl::OnDestroy() {
    model->events.Changed = nullptr;
    updatePosted = capturing = false;
    pressed = hot = {};
}

void ListControl::Refresh() {
    if (Window() != nullptr) Measure();
}

void ListControl::SetIcons(std::vector<HICON> icons) {
    painter.icons = std::move(icons);
    Refresh();
}

void ListControl::SetSmallButtonTexts(const std::string& gumb, const std::string& gumb1) {
    painter.gumb = gumb;
    painter.gumb1 = gumb1;
    Refresh();
}

void ListControl::StaviFocus() {
    SetFocus(Window());
}

// --- messages ---

LRESULT ListControl::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST) {
        return OnMouse(message, wParam, {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)})
                   ? 0
                   : Default(message, wParam, lParam);
    }
    if (OnKeyboard(message, wParam, lParam)) return 0;
    switch (message) {
        case WM_GETDLGCODE:
            return DLGC_WANTARROWS | DLGC_WANTCHARS;
        case WM_MOUSELEAVE:
            SetHot({});
            return 0;
        case WM_CAPTURECHANGED:
            if (capturing) EndPress();
            return 0;
        case WM_VSCROLL:
            OnScroll(LOWORD(wParam));
            return 0;
        case UpdateMessage:
            Update();
            return 0;
        case WM_NCDESTROY:
            OnDestroy();
            return Default(message, wParam, lParam);
        default:
            return OnLooks(message, wParam, lParam);
    }
}

LRESULT ListControl::OnLooks(UINT message, WPARAM wParam, LPARAM lParam) {
    const LRESULT result = DefaultWithBorder(message, wParam, lParam);
    switch (message) {
        case WM_SIZE:
        case WM_SETFONT:
        case WM_DPICHANGED_AFTERPARENT:
            Measure();
            break;
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
        case WM_UPDATEUISTATE:
            InvalidateRect(Window(), nullptr, FALSE);
            break;
        default:
            break;
    }
    return result;
}

// --- the mouse ---

bool ListControl::OnMouse(UINT message, WPARAM wParam, platform::Point point) {
    switch (message) {
        case WM_MOUSEMOVE:
            OnMouseMove(wParam, point);
            return true;
        case WM_LBUTTONDOWN:
            OnPress(ListButton::Left, point);
            return true;
        case WM_RBUTTONDOWN:
        case WM_RBUTTONDBLCLK:
            OnPress(ListButton::Right, point);
            return true;
        case WM_MBUTTONDOWN:
        case WM_MBUTTONDBLCLK:
            OnPress(ListButton::Middle, point);
            return true;
        case WM_LBUTTONDBLCLK:
            OnDoubleClick(point);
            return true;
        case WM_LBUTTONUP:
            OnRelease(ListButton::Left, point);
            return true;
        case WM_RBUTTONUP:
            OnRelease(ListButton::Right, point);
            return true;
        case WM_MBUTTONUP:
            OnRelease(ListButton::Middle, point);
            return true;
        case WM_MOUSEWHEEL:
            model->Wheel(GET_WHEEL_DELTA_WPARAM(wParam));
            return true;
        default:
            return false;
    }
}

// Setting the focus comes first: what is typed elsewhere is taken over before the list asks what to do with it.
void ListControl::OnPress(ListButton button, platform::Point point) {
    SetFocus(Window());
    menuPlace = OnScreen(Window(), point);
    pressPoint = point;
    if (button == ListButton::Left) lastPress = pressed = model->HitTest(point);
    model->PressMouse(button, point);
    if (button == ListButton::Left) HoldPress();
}

// The handler may have opened a box, which swallowed the release. The mouse is captured only now: otherwise the box
// would not have got it.
void ListControl::HoldPress() {
    capturing = KeyIsDown(VK_LBUTTON) && IsWindowEnabled(Window());
    if (!capturing) return EndPress();
    SetCapture(Window());
    InvalidateRect(Window(), nullptr, FALSE);
}

void ListControl::EndPress() {
    const bool captured = std::exchange(capturing, false);
    if (captured && GetCapture() == Window()) ReleaseCapture();
    pressed = {};
    model->CancelPress();
    InvalidateRect(Window(), nullptr, FALSE);
}

void ListControl::OnRelease(ListButton button, platform::Point point) {
    if (button == ListButton::Left && std::exchange(capturing, false)) ReleaseCapture();
    if (button == ListButton::Left) pressed = {};
    InvalidateRect(Window(), nullptr, FALSE);
    model->ReleaseMouse(button, point);
}

// The first click may have selected the row, so that a small button has come up below the mouse: the second one still
// means the row. On a small button that was there before it is one more press.
void ListControl::OnDoubleClick(platform::Point point) {
    const ListHit hit = model->HitTest(point);
    const bool onRow = lastPress.part == ListPart::Row && lastPress.index == hit.index;
    if (!onRow) return OnPress(ListButton::Left, point);
    lastPress = {};
    model->DoubleClick({0, point.y});
}

void ListControl::OnMouseMove(WPARAM buttons, platform::Point point) {
    if (capturing && (buttons & MK_LBUTTON) == 0) EndPress();
    if (IsDragged(point)) return StartDrag();
    TRACKMOUSEEVENT leave{sizeof leave, TME_LEAVE, Window(), 0};
    TrackMouseEvent(&leave);
    SetHot(model->HitTest(point));
    model->MoveMouse(point);
}

bool ListControl::IsDragged(platform::Point point) const {
    if (!capturing || pressed.part != ListPart::Row || !BeginDrag) return false;
    const auto dpi = static_cast<UINT>(DpiOf(Window()));
    return std::abs(point.x - pressPoint.x) > GetSystemMetricsForDpi(SM_CXDRAG, dpi) ||
           std::abs(point.y - pressPoint.y) > GetSystemMetricsForDpi(SM_CYDRAG, dpi);
}

void ListControl::StartDrag() {
    const int index = pressed.index;
    EndPress();
    SetHot({});
    if (index < model->ListCount()) BeginDrag(index);
}

// During a press only what is pressed can be hot.
void ListControl::SetHot(ListHit hit) {
    if (capturing && hit != pressed) hit = {};
    if (hit == std::exchange(hot, hit)) return;
    InvalidateRect(Window(), nullptr, FALSE);
}

// --- the keyboard ---

bool ListControl::OnKeyboard(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_KEYDOWN:
            return OnKey(static_cast<int>(wParam));
        case WM_CHAR:
            model->TypeCharacter(static_cast<char>(wParam), InputTime());
            return true;
        case WM_CONTEXTMENU:
            if (lParam == ByKeyboard) OnMenuKey();
            return lParam == ByKeyboard;
        default:
            return false;
    }
}

// Who walks through the list with keys wants to see where the keyboard is.
bool ListControl::OnKey(int key) {
    if (!model->KeyDown(key, InputTime())) return false;
    SendMessageA(Window(), WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS), 0);
    return true;
}

void ListControl::OnMenuKey() {
    const int index = model->listindex();
    if (index < 0) return;
    if (!model->on_screen(index)) model->ScrollTo(index);
    const platform::Rect row = model->RowRect(index);
    const platform::Point middle = {(row.left + row.right) / 2, (row.top + row.bottom) / 2};
    OnPress(ListButton::Right, middle);
    OnRelease(ListButton::Right, middle);
}

// --- the scroll bar ---

void ListControl::OnScroll(int code) {
    const int row = model->ScrollValue();
    const int page = std::max(1, model->ListCount() - model->ScrollMaximum());
    switch (code) {
        case SB_LINEUP:
            return model->ScrollTo(row - 1);
        case SB_LINEDOWN:
            return model->ScrollTo(row + 1);
        case SB_PAGEUP:
            return model->ScrollTo(row - page);
        case SB_PAGEDOWN:
            return model->ScrollTo(row + page);
        case SB_TOP:
            return model->ScrollTo(0);
        case SB_BOTTOM:
            return model->scrolldown();
        case SB_THUMBTRACK:
        case SB_THUMBPOSITION:
            return model->ScrollTo(ThumbPlace());
        default:
            return;
    }
}

void ListControl::UpdateScrollBar() {
    SetScrollBar(model->ScrollVisible(), model->ListCount(), model->ListCount() - model->ScrollMaximum(),
                 model->ScrollValue());
}

// --- what is shown ---

void ListControl::FitWholeRows() const {
    const int row = model == nullptr ? 0 : model->Measures().ItemHeight;
    RECT inside{};
    GetClientRect(Window(), &inside);
    if (row == 0 || inside.bottom < row || inside.bottom % row == 0) return;
    const platform::Rect outside = RectangleOf(Window());
    SetWindowPos(Window(), nullptr, 0, 0, outside.right - outside.left,
                 outside.bottom - outside.top - inside.bottom % row, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

ListMeasures ListControl::Measures() const {
    RECT area{};
    GetClientRect(Window(), &area);
    ListMeasures pixels = Scaled(atHundred, DpiOf(Window()));
    pixels.ItemHeight = std::max(pixels.ItemHeight, painter.TextHeight() + 2 * pixels.margin);
    pixels.smallButton = painter.ButtonSize(Window(), *model, pixels);
    pixels.visible = {area.right, area.bottom};
    return pixels;
}

void ListControl::Measure() {
    painter.MakeFonts(Window(), Font(), atHundred.FontSize);
    model->Measure(Measures());
}

void ListControl::OnModelChanged() {
    InvalidateRect(Window(), nullptr, FALSE);
    if (!updatePosted) updatePosted = PostMessageA(Window(), UpdateMessage, 0, 0) != FALSE;
}

void ListControl::Update() {
    updatePosted = false;
    const ListMeasures measures = Measures();
    if (measures.smallButton != model->Measures().smallButton) model->Measure(measures);
    UpdateScrollBar();
    if (hot.part != ListPart::None) SetHot(model->HitTest(MousePlace(Window())));
    Say(SelectedTexts());
    TellOfRows();
}

// --- screen readers ---

// A part is a row, counted from 1. To the list itself belongs part 0.
const ListRow* ListControl::RowOfPart(int part) const {
    return part >= 1 && part <= PartCount() ? &model->Row(part - 1) : nullptr;
}

void ListControl::TellOfRows() {
    if (model->ListCount() != std::exchange(saidCount, model->ListCount())) {
        NotifyWinEvent(EVENT_OBJECT_REORDER, Window(), OBJID_CLIENT, CHILDID_SELF);
    }
    if (model->listindex() == std::exchange(saidSelection, model->listindex())) return;
    NotifyWinEvent(EVENT_OBJECT_SELECTION, Window(), OBJID_CLIENT, SelectedPart());
    if (GetFocus() == Window()) NotifyWinEvent(EVENT_OBJECT_FOCUS, Window(), OBJID_CLIENT, SelectedPart());
}

int ListControl::PartCount() const {
    return model->ListCount();
}

std::optional<std::string> ListControl::NameOf(int part) const {
    const ListRow* const row = RowOfPart(part);
    return row == nullptr ? OwnControl::NameOf(part) : row->Text;
}

std::optional<std::string> ListControl::DescriptionOf(int part) const {
    const ListRow* const row = RowOfPart(part);
    if (row == nullptr) return std::string();
    return row->mark.empty() ? row->Text2 : row->Text2 + ". " + row->mark;
}

std::optional<long> ListControl::RoleOf(int part) const {
    return part == 0 ? ROLE_SYSTEM_LIST : ROLE_SYSTEM_LISTITEM;
}

std::optional<long> ListControl::StateOf(int part) const {
    const bool enabled = IsWindowEnabled(Window()) != FALSE;
    const bool focused = GetFocus() == Window() && part == SelectedPart();
    const long state =
        (enabled ? STATE_SYSTEM_FOCUSABLE : STATE_SYSTEM_UNAVAILABLE) | (focused ? STATE_SYSTEM_FOCUSED : 0L);
    if (part == 0) return state;
    const bool seen = model->on_screen(part - 1);
    return state | STATE_SYSTEM_SELECTABLE | (part == SelectedPart() ? STATE_SYSTEM_SELECTED : 0L) |
           (seen ? 0L : STATE_SYSTEM_OFFSCREEN);
}

RECT ListControl::PlaceOf(int part) const {
    const platform::Rect row = model->RowRect(part - 1);
    RECT place{row.left, row.top, row.right, row.bottom};
    MapWindowPoints(Window(), nullptr, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

int ListControl::PartAt(POINT place) const {
    ScreenToClient(Window(), &place);
    return model->HitTest({place.x, place.y}).index + 1;
}

int ListControl::SelectedPart() const {
    return model->listindex() + 1;
}

bool ListControl::Select(int part) {
    model->ChooseRow(part - 1);
    return SelectedPart() == part;
}

std::optional<std::string> ListControl::ActionOf(int part) const {
    return part == 0 ? std::string() : action;
}

// As a double click: on a row that is selected.
bool ListControl::DoAction(int part) {
    if (RowOfPart(part) == nullptr || !IsWindowEnabled(Window()) || !Select(part)) return false;
    const platform::Rect row = model->RowRect(part - 1);
    model->DoubleClick({row.left, row.top});
    return true;
}

// --- what is shown ---

std::string ListControl::SelectedTexts() const {
    if (model->listindex() < 0) return {};
    const ListRow& row = model->Row(model->listindex());
    return row.Text2.empty() ? row.Text : row.Text + LineBreak + row.Text2;
}

bool ListControl::ShowsFocus() const {
    const auto state = static_cast<UINT>(SendMessageA(Window(), WM_QUERYUISTATE, 0, 0));
    return GetFocus() == Window() && (state & UISF_HIDEFOCUS) == 0;
}

void ListControl::OnPaint(HDC paper) const {
    painter.Paint(Window(), paper, *model, {hot, pressed, ShowsFocus(), IsWindowEnabled(Window()) != FALSE});
}
