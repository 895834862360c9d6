#include "controls/time_picker.h"

#include <commctrl.h>
#include <oleacc.h>

#include "controls/up_down.h"
#include "toolkit/system_look.h"
#include "toolkit/window_tools.h"
#include "widgets/busy_mark.h"

namespace {

constexpr WPARAM DigitsOfField = 2;

// What the parts take of the client area, from left to right: a margin, and each box and what parts it from the next.
struct Lengths {
    int margin;
    int field;
    int colon;
    int height;  // of a line

    int LeftOf(int index) const { return margin + index * (field + colon); }
};

Lengths LengthsOf(HWND picker, HFONT font) {
    const HDC paper = GetDC(picker);
    const HGDIOBJ before = SelectObject(paper, font);
    SIZE digits{};
    SIZE colon{};
    GetTextExtentPoint32A(paper, "00", 2, &digits);
    GetTextExtentPoint32A(paper, ":", 1, &colon);
    SelectObject(paper, before);
    ReleaseDC(picker, paper);
    const auto pixels = [dpi = DpiOf(picker)](int at100) { return MulDiv(at100, dpi, USER_DEFAULT_SCREEN_DPI); };
    return {pixels(4), digits.cx + pixels(4), colon.cx + pixels(2), digits.cy};
}

RECT ClientArea(HWND window) {
    RECT area{};
    GetClientRect(window, &area);
    return area;
}

// The field is a tab stop while it is the current one: Tab leaves the picker from wherever it is.
void SetTabStop(HWND edit, bool stop) {
    const LONG_PTR style = GetWindowLongPtrA(edit, GWL_STYLE);
    SetWindowLongPtrA(edit, GWL_STYLE, stop ? style | WS_TABSTOP : style & ~LONG_PTR{WS_TABSTOP});
}

}  // namespace

void RegisterTimePicker() {
    const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_UPDOWN_CLASS | ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&controls);
    OwnControl::RegisterControlClass("TessarineTimePicker");
}

// --- life ---

TimePicker::TimePicker() {
    model.Change = [this] {
        Show();
        if (Change) Change();
    };
}

TimePicker::~TimePicker() {
    for (std::size_t i = 0; i < edits.size(); ++i) {
        if (edits[i] != nullptr) RemoveWindowSubclass(edits[i], EditThunk, i);
    }
}

// The dialog shall look for its tab stops inside. The window itself is none, or nobody would come out again backwards.
void TimePicker::Attach(HWND control) {
    AttachTo(control);
    SetTabStop(control, false);
    SetWindowLongPtrA(control, GWL_STYLE, GetWindowLongPtrA(control, GWL_STYLE) | WS_CLIPCHILDREN);
    SetWindowLongPtrA(control, GWL_EXSTYLE, GetWindowLongPtrA(control, GWL_EXSTYLE) | WS_EX_CONTROLPARENT);
    for (int field = 0; field < TimePickerModel::FieldCount; ++field) {
        edits[static_cast<std::size_t>(field)] = MakeField(field);
    }
    arrows = CreateUpDown(control);
    FontToFields(Font());
    EnableParts(IsWindowEnabled(control));
    Show();
}

HWND TimePicker::MakeField(int field) {
    const DWORD tabStop = field == model.Focus() ? WS_TABSTOP : 0;
    const HWND edit = CreateWindowExA(0, "EDIT", "", WS_CHILD | WS_VISIBLE | ES_CENTER | tabStop, 0, 0, 0, 0, Window(),
                                      reinterpret_cast<HMENU>(static_cast<INT_PTR>(field)), ProgramInstance(), nullptr);
    SendMessageA(edit, EM_LIMITTEXT, DigitsOfField, 0);
    SetWindowSubclass(edit, EditThunk, static_cast<UINT_PTR>(field), reinterpret_cast<DWORD_PTR>(this));
    return edit;
}

void TimePicker::OnDestroy() {
    edits.fill(nullptr);
    arrows = nullptr;
}

// --- what the owner asks for ---

void TimePicker::SetTime(const std::string& time) {
    model.SetTime(time);
}

// A disabled control keeps the focus, and with it the keyboard: it is passed on first.
void TimePicker::Enable(bool enable) {
    if (!enable && HasFocus()) SendMessageA(GetParent(Window()), WM_NEXTDLGCTL, 0, FALSE);
    EnableWindow(Window(), enable);
}

void TimePicker::StaviFocus() {
    SetFocus(CurrentField());
}

// Its boxes are windows, and answer for themselves.
std::optional<long> TimePicker::RoleOf(int) const {
    return ROLE_SYSTEM_GROUPING;
}

std::optional<std::string> TimePicker::ValueOf(int) const {
    return model.Time();
}

// --- messages of the picker ---

LRESULT TimePicker::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_COMMAND:
            OnCommand(LOWORD(wParam), HIWORD(wParam));
            return 0;
        case WM_NOTIFY:
            return OnArrows(lParam);
        case WM_SETFOCUS:
            StaviFocus();
            return 0;
        case WM_ENABLE:
            EnableParts(wParam != FALSE);
            return 0;
        case WM_SETFONT:
            FontToFields(reinterpret_cast<HFONT>(wParam));
            return Default(message, wParam, lParam);
        case WM_SIZE:
        case WM_DPICHANGED_AFTERPARENT:
            Lay();
            return 0;
        case WM_ERASEBKGND:
            return TRUE;
        case WM_PAINT:
            OnPaint();
            return 0;
        case WM_NCDESTROY:
            OnDestroy();
            return Default(message, wParam, lParam);
        default:
            return Default(message, wParam, lParam);
    }
}

void TimePicker::OnCommand(int field, int code) {
    switch (code) {
        case EN_SETFOCUS:
            return OnFieldFocus(field);
        case EN_KILLFOCUS:
            return OnFieldLeft(field);
        case EN_CHANGE:
            return ReadField(field);
        default:
            return;
    }
}

void TimePicker::OnFieldFocus(int field) {
    for (const HWND edit : edits) SetTabStop(edit, edit == edits[static_cast<std::size_t>(field)]);
    model.GotFocus(field);
    ShowFocus();
    InvalidateRect(Window(), nullptr, FALSE);  // the frame tells the focus
}

// The focus goes where the user wants it: only the texts follow here.
void TimePicker::OnFieldLeft(int field) {
    model.LostFocus(field);
    ShowTexts();
    InvalidateRect(Window(), nullptr, FALSE);
}

// TRUE keeps the arrows' own number where it is.
bool TimePicker::OnArrows(LPARAM notification) {
    const int steps = StepsOf(notification);
    if (steps == 0) return false;
    if (!HasFocus()) StaviFocus();
    model.Step(steps);
    ShowFocus();
    return true;
}

// --- messages of the boxes ---

LRESULT CALLBACK TimePicker::EditThunk(HWND edit, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR field,
                                       DWORD_PTR picker) noexcept {
    if (message == WM_NCDESTROY) {
        RemoveWindowSubclass(edit, EditThunk, field);
        return DefSubclassProc(edit, message, wParam, lParam);
    }
    auto& self = *reinterpret_cast<TimePicker*>(picker);
    return Guarded<LRESULT>(0, [&] { return self.OnFieldMessage(edit, message, wParam, lParam); });
}

LRESULT TimePicker::OnFieldMessage(HWND edit, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_KEYDOWN && OnKey(wParam)) return 0;
    if (message == WM_CHAR) return OnCharacter(edit, wParam, lParam);
    if (message == WM_LBUTTONDOWN && GetFocus() != edit) {
        SetFocus(edit);  // selects the whole; the click itself would take the selection away
        return 0;
    }
    return DefSubclassProc(edit, message, wParam, lParam);
}

// A colon after a single digit leads on; after the second the focus has gone on by itself.
LRESULT TimePicker::OnCharacter(HWND edit, WPARAM character, LPARAM lParam) {
    if (character == ':' && !model.SelectsWhole()) OnKey(VK_RIGHT);
    if (!IsForDigits(character)) return 0;
    const BusyMark mark(byBackspace);
    byBackspace = character == VK_BACK;
    return DefSubclassProc(edit, WM_CHAR, character, lParam);
}

bool TimePicker::OnKey(WPARAM key) {
    if (key == VK_UP || key == VK_DOWN) {
        model.Step(key == VK_UP ? 1 : -1);
    } else if (!model.KeyDown(static_cast<int>(key))) {
        return false;
    }
    ShowFocus();
    return true;
}

// --- the boxes ---

void TimePicker::ReadField(int field) {
    if (showing || field != model.Focus()) return;
    model.TextChanged(WindowText(CurrentField()), byBackspace);
    Show();  // a handler may have pumped: what was typed meanwhile did not count
}

void TimePicker::Show() {
    if (Window() == nullptr) return;
    ShowTexts();
    ShowFocus();
}

void TimePicker::ShowTexts() {
    if (showing) return;
    const BusyMark mark(showing);
    for (int field = 0; field < TimePickerModel::FieldCount; ++field) {
        const HWND edit = edits[static_cast<std::size_t>(field)];
        if (WindowText(edit) != model.Text(field)) SetWindowTextA(edit, model.Text(field).c_str());
    }
    Say(model.Time());
}

void TimePicker::ShowFocus() {
    if (!HasFocus()) return;
    if (GetFocus() != CurrentField()) SetFocus(CurrentField());
    if (model.SelectsWhole()) SendMessageA(CurrentField(), EM_SETSEL, 0, -1);
}

void TimePicker::FontToFields(HFONT font) const {
    for (const HWND edit : edits) {
        SendMessageA(edit, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
        SendMessageA(edit, EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, 0);
    }
    Lay();
}

void TimePicker::EnableParts(bool enable) const {
    for (const HWND edit : edits) EnableWindow(edit, enable);
    EnableWindow(arrows, enable);
    InvalidateRect(Window(), nullptr, TRUE);
}

// --- looks ---

void TimePicker::Lay() const {
    const RECT area = ClientArea(Window());
    const Lengths lengths = LengthsOf(Window(), reinterpret_cast<HFONT>(SendMessageA(edits[0], WM_GETFONT, 0, 0)));
    for (int field = 0; field < TimePickerModel::FieldCount; ++field) {
        SetWindowPos(edits[static_cast<std::size_t>(field)], nullptr, lengths.LeftOf(field),
                     (area.bottom - lengths.height) / 2, lengths.field, lengths.height, SWP_NOZORDER | SWP_NOACTIVATE);
    }
    RECT inside = area;
    InflateRect(&inside, -1, -1);
    PlaceUpDown(arrows, inside);
    InvalidateRect(Window(), nullptr, TRUE);
}

void TimePicker::OnPaint() const {
    PAINTSTRUCT paint;
    const HDC paper = BeginPaint(Window(), &paint);
    const RECT area = ClientArea(Window());
    DrawEditFrame(Window(), paper, area);
    const Lengths lengths = LengthsOf(Window(), Font());
    const HGDIOBJ before = SelectObject(paper, Font());
    SetBkMode(paper, TRANSPARENT);
    SetTextColor(paper, GetSysColor(IsWindowEnabled(Window()) ? COLOR_WINDOWTEXT : COLOR_GRAYTEXT));
    for (int field = 1; field < TimePickerModel::FieldCount; ++field) {
        RECT gap = {lengths.LeftOf(field) - lengths.colon, 0, lengths.LeftOf(field), area.bottom};
        DrawTextA(paper, ":", 1, &gap, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
    }
    SelectObject(paper, before);
    EndPaint(Window(), &paint);
}
