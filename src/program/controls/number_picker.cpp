#include "controls/number_picker.h"

#include <commctrl.h>
#include <oleacc.h>

#include "controls/own_control.h"
#include "controls/up_down.h"
#include "toolkit/accessible_name.h"
#include "toolkit/window_tools.h"
#include "widgets/busy_mark.h"

namespace {

constexpr UINT_PTR SubclassId = 1;
constexpr WPARAM LongestNumber = 11;  // a sign and ten digits

// After these the text of an edit control may be another one. The commands of its own menu are among them.
bool MayChangeText(UINT message) {
    switch (message) {
        case WM_CHAR:
        case WM_IME_CHAR:
        case WM_IME_COMPOSITION:
        case WM_KEYDOWN:
        case WM_SETTEXT:
        case WM_CUT:
        case WM_PASTE:
        case WM_CLEAR:
        case WM_UNDO:
        case EM_UNDO:
        case EM_REPLACESEL:
            return true;
        default:
            return false;
    }
}

int SelectionStart(HWND edit) {
    DWORD start = 0;
    SendMessageA(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&start), 0);
    return static_cast<int>(start);
}

int SelectionEnd(HWND edit) {
    DWORD end = 0;
    SendMessageA(edit, EM_GETSEL, 0, reinterpret_cast<LPARAM>(&end));
    return static_cast<int>(end);
}

// The arrows lie in the box, which has to keep its own painting off them.
void PrepareBox(HWND edit) {
    SetWindowLongPtrA(edit, GWL_STYLE, GetWindowLongPtrA(edit, GWL_STYLE) | WS_CLIPCHILDREN);
    SetWindowLongPtrA(edit, GWL_EXSTYLE, GetWindowLongPtrA(edit, GWL_EXSTYLE) | WS_EX_CLIENTEDGE);
    SetWindowPos(edit, nullptr, 0, 0, 0, 0, SWP_FRAMECHANGED | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    SendMessageA(edit, EM_LIMITTEXT, LongestNumber, 0);
}

}  // namespace

// Wide, as the edit control is: its procedure can be taken over as it stands.
void RegisterNumberPicker() {
    const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_UPDOWN_CLASS | ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&controls);
    WNDCLASSEXW edit{};
    edit.cbSize = sizeof edit;
    GetClassInfoExW(nullptr, L"EDIT", &edit);
    edit.lpszClassName = L"TessarineNumberPicker";
    edit.hInstance = ProgramInstance();
    edit.style &= ~static_cast<UINT>(CS_GLOBALCLASS | CS_PARENTDC);
    RegisterClassExW(&edit);
}

// --- life ---

NumberPicker::NumberPicker(std::int32_t lowest, std::int32_t highest) : model(lowest, highest) {
    model.Change = [this] {
        Show();
        if (Change) Change();
    };
}

NumberPicker::~NumberPicker() {
    if (window != nullptr) OnDestroy();
}

void NumberPicker::Attach(HWND control) {
    window = control;
    PrepareBox(control);
    SetWindowSubclass(control, EditThunk, SubclassId, reinterpret_cast<DWORD_PTR>(this));
    arrows = CreateUpDown(control);
    PlaceArrows();
    Show();
}

void NumberPicker::OnDestroy() {
    RemoveWindowSubclass(window, EditThunk, SubclassId);
    window = arrows = nullptr;
}

// --- what the owner asks for ---

void NumberPicker::SetValue(std::int32_t value) {
    model.SetValue(value);
}

void NumberPicker::SetName(const std::string& text) {
    SetAccessibleName(window, text, ROLE_SYSTEM_TEXT);
}

// A disabled control keeps the focus, and with it the keyboard: it is passed on first.
void NumberPicker::Enable(bool enable) {
    if (!enable && GetFocus() == window) SendMessageA(GetParent(window), WM_NEXTDLGCTL, 0, FALSE);
    EnableWindow(window, enable);
}

void NumberPicker::StaviFocus() {
    SetFocus(window);
    SendMessageA(window, EM_SETSEL, 0, -1);
}

// --- messages ---

LRESULT CALLBACK NumberPicker::EditThunk(HWND control, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                         DWORD_PTR picker) noexcept {
    auto& self = *reinterpret_cast<NumberPicker*>(picker);
    if (message == WM_NCDESTROY) {
        self.OnDestroy();
        return DefSubclassProc(control, message, wParam, lParam);
    }
    return Guarded<LRESULT>(0, [&] { return self.OnMessage(message, wParam, lParam); });
}

LRESULT NumberPicker::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_KEYDOWN && OnKey(wParam)) return 0;
    if (message == WM_CHAR && !Takes(wParam)) return 0;
    if (message == WM_NOTIFY) return OnArrows(lParam);
    if (message == WM_SETCURSOR && reinterpret_cast<HWND>(wParam) != window) return FALSE;  // the arrows have their own
    const LRESULT result = DefSubclassProc(window, message, wParam, lParam);
    After(message);
    return result;
}

void NumberPicker::After(UINT message) {
    if (window == nullptr) return;
    switch (message) {
        case WM_SIZE:
        case WM_SETFONT:
        case WM_DPICHANGED_AFTERPARENT:
            return PlaceArrows();
        case WM_NCPAINT:  // a themed frame may have been filled, and the arrows with it
            InvalidateRect(arrows, nullptr, TRUE);
            return;
        case WM_ENABLE:
            EnableWindow(arrows, IsWindowEnabled(window));
            return;
        default:
            if (MayChangeText(message)) ReadBox();
    }
}

bool NumberPicker::OnKey(WPARAM key) {
    if (key != VK_UP && key != VK_DOWN) return false;
    Step(key == VK_UP ? 1 : -1);
    return true;
}

// A stray letter, or a sign that stands in the middle, would make another number of the whole.
bool NumberPicker::Takes(WPARAM character) const {
    return IsForDigits(character) || (character == '-' && model.Min < 0 && SelectionStart(window) == 0);
}

// TRUE keeps the arrows' own number where it is.
bool NumberPicker::OnArrows(LPARAM notification) {
    const int steps = StepsOf(notification);
    if (steps == 0) return false;
    if (GetFocus() != window) StaviFocus();
    Step(steps);
    return true;
}

void NumberPicker::Step(int steps) {
    model.SelStart = SelectionEnd(window);
    model.Step(steps);
}

// --- the box ---

void NumberPicker::PlaceArrows() const {
    RECT area{};
    GetClientRect(window, &area);
    PlaceUpDown(arrows, area);
    SendMessageA(window, EM_SETMARGINS, EC_RIGHTMARGIN, MAKELPARAM(0, UpDownWidth(window)));
}

void NumberPicker::ReadBox() {
    if (showing) return;
    const std::string typed = WindowText(window);
    if (typed == model.Text()) return;
    model.TextChanged(typed, SelectionEnd(window));
    Show();  // a handler may have pumped: what was typed meanwhile did not count
}

void NumberPicker::Show() {
    if (window == nullptr || showing || WindowText(window) == model.Text()) return;
    const BusyMark mark(showing);
    SetWindowTextA(window, model.Text().c_str());
    SendMessageA(window, EM_SETSEL, static_cast<WPARAM>(model.SelStart), model.SelStart + model.SelLength);
}
