#include "status/executing_form.h"

#include <commctrl.h>

#include "base/product.h"
#include "dictionary/sentences.h"
#include "identity/window_identity.h"
#include "replay/explanation.h"
#include "replay/status.h"
#include "replay/status_view.h"
#include "status/why_form.h"
#include "toolkit/window_tools.h"

ExecutingForm executing;

namespace {

constexpr const char* WindowClass = "TessarineExecuting";

// Fine enough for the share of a single wait to show.
constexpr int BarRange = 10000;

// A run scrolls the list from its eighth line on.
constexpr int LinesShown = 7;

HWND List() {
    return GetDlgItem(executing.Window(), executing_List1);
}

HWND Bar() {
    return GetDlgItem(executing.Window(), executing_Pbar);
}

HWND CloseButton() {
    return GetDlgItem(executing.Window(), executing_closebutton);
}

std::string LineOf(int index) {
    const LRESULT length = SendMessageA(List(), LB_GETTEXTLEN, static_cast<WPARAM>(index), 0);
    if (length < 1) return {};
    std::string text(static_cast<std::size_t>(length) + 1, '\0');
    const LRESULT read =
        SendMessageA(List(), LB_GETTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.data()));
    text.resize(read < 0 ? 0 : static_cast<std::size_t>(read));
    return text;
}

void InsertLineAt(int index, const std::string& text) {
    SendMessageA(List(), LB_INSERTSTRING, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.c_str()));
}

int LineCount() {
    return static_cast<int>(SendMessageA(List(), LB_GETCOUNT, 0, 0));
}

void SelectLineAt(int index) {
    SendMessageA(List(), LB_SETCURSEL, static_cast<WPARAM>(index), 0);
}

int SelectedLineOfList() {
    return static_cast<int>(SendMessageA(List(), LB_GETCURSEL, 0, 0));
}

}  // namespace

// --- what it is ---

std::vector<ControlRow> ExecutingForm::Rows() {
    return {
        {.id = executing_Label1, .caption = {"Status", Label}},
        {.id = executing_status, .colour = RGB(0, 0, 255)},
        {.id = executing_List1, .name = "Executing job", .tip = [] { return LineOf(SelectedLineOfList()); }},
        {.id = executing_Pbar, .name = "Executing job"},
        {.id = executing_why,
         .caption = {"&Why", Question},
         .tip = "Why the window was not found, and what helps",
         .clicked = [this] { OnWhy(); }},
        {.id = IDHELP, .caption = "Help"},
        {.id = executing_closebutton, .caption = "Close this window", .clicked = [this] { OnClicked(IDCANCEL); }},
    };
}

void ExecutingForm::ShowAt(int top) {
    if (Window() == nullptr) {
        RegisterDialogClass(WindowClass, GetSysColorBrush(COLOR_WINDOW));
        if (!Create()) return;
        MoveWindowTo(Window(), 0, top);
    }
    SetDodging(true);
    SetWindowPos(Window(), HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
}

void ExecutingForm::OnInit() {
    ownWindows.replayStatus = platform::FromHwnd(Window());
    SetWindowTextA(Window(), ProductName);
    SendMessageA(Bar(), PBM_SETRANGE32, 0, BarRange);
    ShowWindow(Bar(), SW_SHOWNA);
    for (const int control : {executing_Picture1, executing_Pbar, executing_List1}) {
        SetWindowSubclass(Control(control), ControlThunk, static_cast<UINT_PTR>(control), 0);
    }
}

void ExecutingForm::OnUnload() {
    ownWindows.replayStatus = 0;
}

void ExecutingForm::OnLooks() {
    SetPicture(Window(), executing_Picture1);
    SendMessageA(Bar(), PBM_SETBKCOLOR, 0, static_cast<LPARAM>(GetSysColor(COLOR_WINDOW)));
    FitList();
}

// During a run no help is opened; a program that has none shows no button.
void ExecutingForm::ShowHelpButton(bool show) const {
    ShowWindow(Control(IDHELP), show && HasHelp() ? SW_SHOWNA : SW_HIDE);
}

// Only where there is something to tell.
void ExecutingForm::ShowWhyButton(bool show) const {
    ShowWindow(Control(executing_why), show && LastFailedSearch() != nullptr ? SW_SHOWNA : SW_HIDE);
}

// Whole lines, whatever the font: what the template says is only the place.
void ExecutingForm::FitList() const {
    RECT inside{};
    GetClientRect(List(), &inside);
    const platform::Rect outside = RectangleOf(List());
    const int frame = outside.bottom - outside.top - inside.bottom;
    const int line = static_cast<int>(SendMessageA(List(), LB_GETITEMHEIGHT, 0, 0));
    SetWindowPos(List(), nullptr, 0, 0, outside.right - outside.left, LinesShown * line + frame,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// A window that no click activates cannot be reached by the keyboard either, so the style goes with the flag.
void ExecutingForm::SetDodging(bool flag) {
    dodging = flag;
    if (Window() == nullptr) return;
    const LONG_PTR style = GetWindowLongPtrA(Window(), GWL_EXSTYLE);
    SetWindowLongPtrA(Window(), GWL_EXSTYLE, flag ? style | WS_EX_NOACTIVATE : style & ~LONG_PTR{WS_EX_NOACTIVATE});
}

// --- messages ---

LRESULT CALLBACK ExecutingForm::ControlThunk(HWND control, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                             DWORD_PTR) noexcept {
    const bool handled = Guarded<bool>(false, [&] {
        if (id == executing_List1) return executing.OnListMessage(message);
        if (message == WM_MOUSEMOVE) executing.OnMouseMove();
        return false;
    });
    if (message == WM_NCDESTROY) RemoveWindowSubclass(control, ControlThunk, id);
    return handled ? 0 : DefSubclassProc(control, message, wParam, lParam);
}

bool ExecutingForm::OnMessage(UINT message, WPARAM, LPARAM, LRESULT& result) {
    if (message == WM_MOUSEMOVE || message == WM_NCMOUSEMOVE) OnMouseMove();
    if (message != WM_MOUSEACTIVATE || !dodging) return false;
    result = MA_NOACTIVATE;
    return true;
}

// The close button, or ESC once the run is over.
bool ExecutingForm::OnClicked(int id) {
    if (id == IDCANCEL && !dodging) Close();
    return id == IDCANCEL;
}

void ExecutingForm::OnWhy() {
    if (const Explanation* const failed = LastFailedSearch()) why.ShowFor(*failed, Window());
}

// A move that was on its way when the window dodged tells of where it stood before: it must not bring it back.
void ExecutingForm::OnMouseMove() {
    RECT place{};
    POINT pointer{};
    GetWindowRect(Window(), &place);
    GetCursorPos(&pointer);
    if (dodging && PtInRect(&place, pointer)) Premjesti(false);
}

// True when the list itself is not to see the message. During a run a click would take the focus away from the target,
// and the selection away from the row that the run has come to. Lines are longer than the list is wide: the tip shows
// the selected one whole.
bool ExecutingForm::OnListMessage(UINT message) {
    const bool click = message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK;
    if (click || message == WM_MOUSEMOVE) tips.Set(executing_List1, LineOf(SelectedLineOfList()));
    return click && dodging;
}

// --- the view ---

namespace status_view {

bool ExecutingVisible() {
    return executing.Visible();
}

platform::Rect ExecutingRectangle() {
    return executing.Visible() ? RectangleOf(executing.Window()) : platform::Rect{};
}

void MoveExecuting(std::int32_t left) {
    if (executing.Visible()) MoveWindowTo(executing.Window(), left, RectangleOf(executing.Window()).top);
}

void SetStatusLabel(const std::string& text) {
    SetText(executing.Window(), executing_status, text);
}

void StopDodging() {
    executing.SetDodging(false);
}

void ShowCloseButton(bool show) {
    ShowWindow(CloseButton(), show ? SW_SHOWNA : SW_HIDE);
    executing.ShowHelpButton(show);
    executing.ShowWhyButton(show);
}

void ClearList() {
    SendMessageA(List(), LB_RESETCONTENT, 0, 0);
}

void AddLine(const std::string& text) {
    InsertLineAt(-1, text);
}

void InsertLine(int index, const std::string& text) {
    if (index >= 0 && index <= LineCount()) InsertLineAt(index, text);
}

// The control cannot change a line: the new one takes the old one's place, and its selection.
void SetLine(int index, const std::string& text) {
    if (index < 0 || index >= LineCount()) return;
    const int selected = SelectedLineOfList();
    const LRESULT top = SendMessageA(List(), LB_GETTOPINDEX, 0, 0);
    SendMessageA(List(), WM_SETREDRAW, FALSE, 0);
    SendMessageA(List(), LB_DELETESTRING, static_cast<WPARAM>(index), 0);
    InsertLineAt(index, text);
    SelectLineAt(selected);
    SendMessageA(List(), LB_SETTOPINDEX, static_cast<WPARAM>(top), 0);
    SendMessageA(List(), WM_SETREDRAW, TRUE, 0);
    InvalidateRect(List(), nullptr, TRUE);
}

std::string LineText(int index) {
    return LineOf(index);
}

void SelectLine(int index) {
    SelectLineAt(index);
}

int SelectedLine() {
    return SelectedLineOfList();
}

void ScrollListDown() {
    const LRESULT top = SendMessageA(List(), LB_GETTOPINDEX, 0, 0);
    SendMessageA(List(), LB_SETTOPINDEX, static_cast<WPARAM>(top + 1), 0);
}

void ShowBar(bool show) {
    ShowWindow(Bar(), show ? SW_SHOWNA : SW_HIDE);
}

void SetBar(int value) {
    SendMessageA(Bar(), PBM_SETPOS, static_cast<WPARAM>(value < 0 ? 0 : value), 0);
}

int BarValue() {
    return static_cast<int>(SendMessageA(Bar(), PBM_GETPOS, 0, 0));
}

int BarMaximum() {
    return BarRange;
}

}  // namespace status_view
