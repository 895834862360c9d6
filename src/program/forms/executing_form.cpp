#include "forms/executing_form.h"

#include <commctrl.h>

#include "base/product.h"
#include "dictionary/dictionary.h"
#include "forms/executing_ids.h"
#include "identity/window_identity.h"
#include "replay/status.h"
#include "replay/status_view.h"
#include "toolkit/window_tools.h"
#include "win32/message_loop.h"

ExecutingForm executing;

namespace {

constexpr const char* WindowClass = "TessarineExecuting";
constexpr COLORREF StatusColour = RGB(0, 0, 255);

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

// Whole lines, whatever the font: what the template says is only the place.
void FitList() {
    RECT inside{};
    GetClientRect(List(), &inside);
    const platform::Rect outside = RectangleOf(List());
    const int frame = outside.bottom - outside.top - inside.bottom;
    const int line = static_cast<int>(SendMessageA(List(), LB_GETITEMHEIGHT, 0, 0));
    SetWindowPos(List(), nullptr, 0, 0, outside.right - outside.left, LinesShown * line + frame,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void SelectLineAt(int index) {
    SendMessageA(List(), LB_SETCURSEL, static_cast<WPARAM>(index), 0);
}

int SelectedLineOfList() {
    return static_cast<int>(SendMessageA(List(), LB_GETCURSEL, 0, 0));
}

}  // namespace

// --- life ---

void ExecutingForm::Show(int top) {
    if (window == nullptr) {
        RegisterDialogClass(WindowClass, GetSysColorBrush(COLOR_WINDOW));
        CreateDialogParamA(ProgramInstance(), MAKEINTRESOURCEA(executing_dialog), nullptr, DialogThunk, 0);
        MoveWindowTo(window, 0, top);
    }
    SetDodging(true);
    SetWindowPos(window, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
}

void ExecutingForm::OnInitDialog(HWND form) {
    window = form;
    ownWindows.replayStatus = platform::FromHwnd(form);
    platform::AddModelessForm(form);
    SetWindowTextA(form, ProductName);
    PodesiRjecnik();
    const platform::Rect picture = RectangleOf(GetDlgItem(form, executing_Picture1));
    SendDlgItemMessageA(form, executing_Picture1, STM_SETICON,
                        reinterpret_cast<WPARAM>(ProgramIcon(picture.right - picture.left)), 0);
    SendMessageA(Bar(), PBM_SETRANGE32, 0, BarRange);
    SendMessageA(Bar(), PBM_SETBKCOLOR, 0, RGB(255, 255, 255));
    ShowWindow(Bar(), SW_SHOWNA);
    FitList();
    for (const int control : {executing_Picture1, executing_Pbar, executing_List1}) {
        SetWindowSubclass(GetDlgItem(form, control), ControlThunk, static_cast<UINT_PTR>(control), 0);
    }
    MakeListTip();
}

void ExecutingForm::Close() {
    if (window == nullptr) return;
    platform::RemoveModelessForm(window);
    DestroyWindow(window);  // the tool tip belongs to it and goes along
    window = nullptr;
    listTip = nullptr;
    listTipText.clear();
    ownWindows.replayStatus = 0;
}

// A window that no click activates cannot be reached by the keyboard either, so the style goes with the flag.
void ExecutingForm::SetDodging(bool flag) {
    dodging = flag;
    if (window == nullptr) return;
    const LONG_PTR style = GetWindowLongPtrA(window, GWL_EXSTYLE);
    SetWindowLongPtrA(window, GWL_EXSTYLE, flag ? style | WS_EX_NOACTIVATE : style & ~LONG_PTR{WS_EX_NOACTIVATE});
}

void ExecutingForm::PodesiRjecnik() {
    SetText(window, executing_Label1, Translate("Status") + ":");
    SetText(window, executing_closebutton, Translate("Close this window"));
}

void ExecutingForm::MakeListTip() {
    listTip = CreateWindowExA(WS_EX_TOPMOST | WS_EX_NOACTIVATE, TOOLTIPS_CLASSA, nullptr,
                              WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT,
                              CW_USEDEFAULT, window, nullptr, ProgramInstance(), nullptr);
    char none[] = "";
    TOOLINFOA tool{};
    tool.cbSize = sizeof tool;
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = window;
    tool.uId = reinterpret_cast<UINT_PTR>(List());
    tool.lpszText = none;
    SendMessageA(listTip, TTM_ADDTOOLA, 0, reinterpret_cast<LPARAM>(&tool));
    SendMessageA(listTip, TTM_SETMAXTIPWIDTH, 0, MulDiv(480, DpiOf(window), USER_DEFAULT_SCREEN_DPI));
}

// --- messages ---

INT_PTR CALLBACK ExecutingForm::DialogThunk(HWND form, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    return Guarded<INT_PTR>(FALSE, [&]() -> INT_PTR {
        if (message == WM_INITDIALOG) {
            executing.OnInitDialog(form);
            return FALSE;  // the focus stays where it is
        }
        return executing.window == form ? executing.OnDialogMessage(message, wParam, lParam) : FALSE;
    });
}

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

INT_PTR ExecutingForm::OnDialogMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_MOUSEMOVE:
        case WM_NCMOUSEMOVE:
            OnMouseMove();
            return FALSE;
        case WM_MOUSEACTIVATE:
            if (!dodging) return FALSE;
            SetWindowLongPtrA(window, DWLP_MSGRESULT, MA_NOACTIVATE);
            return TRUE;
        case WM_COMMAND:
            return OnCommand(LOWORD(wParam));
        case WM_CTLCOLORDLG:
        case WM_CTLCOLORSTATIC: {
            const bool isStatus = GetDlgCtrlID(reinterpret_cast<HWND>(lParam)) == executing_status;
            const auto paper = reinterpret_cast<HDC>(wParam);
            SetTextColor(paper, isStatus ? StatusColour : GetSysColor(COLOR_WINDOWTEXT));
            SetBkColor(paper, GetSysColor(COLOR_WINDOW));
            return reinterpret_cast<INT_PTR>(GetSysColorBrush(COLOR_WINDOW));
        }
        default:
            return FALSE;
    }
}

// The close button, or ESC once the run is over.
INT_PTR ExecutingForm::OnCommand(int control) {
    if (control != executing_closebutton && control != IDCANCEL) return FALSE;
    if (!dodging) Close();
    return TRUE;
}

void ExecutingForm::OnMouseMove() {
    if (dodging) Premjesti(false);
}

// True when the list itself is not to see the message. During a run a click would take the focus away from the target,
// and the selection away from the row that the run has come to.
bool ExecutingForm::OnListMessage(UINT message) {
    const bool click = message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK;
    if (click || message == WM_MOUSEMOVE) OnListMouse();
    return click && dodging;
}

// Lines are longer than the list is wide: the tip shows the selected one whole.
void ExecutingForm::OnListMouse() {
    std::string text = LineOf(SelectedLineOfList());
    if (text == listTipText) return;
    listTipText = text;
    TOOLINFOA tool{};
    tool.cbSize = sizeof tool;
    tool.hwnd = window;
    tool.uId = reinterpret_cast<UINT_PTR>(List());
    tool.lpszText = text.data();
    SendMessageA(listTip, TTM_UPDATETIPTEXTA, 0, reinterpret_cast<LPARAM>(&tool));
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
