#include "toolkit/form.h"

#include <utility>

#include "dictionary/dictionary.h"
#include "platform/input.h"
#include "toolkit/accessible_name.h"
#include "toolkit/system_look.h"
#include "toolkit/window_tools.h"
#include "widgets/busy_mark.h"
#include "win32/message_loop.h"

namespace {

// Posted to the form itself: the dialog gives its controls new fonts and places behind the message that tells of a new
// scale.
constexpr UINT LooksMessage = WM_APP;

std::vector<Form*> openForms;  // in the order in which they were opened

bool IsGroupBox(HWND control) {
    return (GetWindowLongPtrA(control, GWL_STYLE) & BS_TYPEMASK) == BS_GROUPBOX && ClassOf(control) == "Button";
}

// A label that shows names or sentences, in which "&" is an ampersand.
bool IsPlainText(HWND control) {
    return (GetWindowLongPtrA(control, GWL_STYLE) & SS_NOPREFIX) != 0 && ClassOf(control) == "Static";
}

// The caption with the letter that is chosen for it in English; other languages have none.
std::string WithLetter(const std::string& caption, char letter) {
    if (letter == 0 || GetLanguage() != LanguageEnglish) return caption;
    const std::size_t place = caption.find(letter);
    return place == std::string::npos ? caption : caption.substr(0, place) + "&" + caption.substr(place);
}

// As it is for itself, whatever it lies in. To show what is shown already would be as dear as to show it.
void ShowOrHide(HWND control, bool show) {
    const bool shown = (GetWindowLongPtrA(control, GWL_STYLE) & WS_VISIBLE) != 0;
    if (show != shown) ShowWindow(control, show ? SW_SHOWNA : SW_HIDE);
}

SIZE SizeOf(const RECT& area) {
    return {area.right - area.left, area.bottom - area.top};
}

RECT PlaceIn(HWND form, HWND control) {
    RECT place{};
    GetWindowRect(control, &place);
    MapWindowPoints(nullptr, form, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

// To put it where it stands already would be as dear as to move it.
void Place(HWND control, HWND form, const RECT& place) {
    const RECT before = PlaceIn(form, control);
    if (EqualRect(&before, &place)) return;
    const SIZE size = SizeOf(place);
    SetWindowPos(control, nullptr, place.left, place.top, size.cx, size.cy,
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS);
}

SIZE ClientSize(HWND window) {
    RECT area{};
    GetClientRect(window, &area);
    return SizeOf(area);
}

SIZE WindowSize(HWND window) {
    RECT area{};
    GetWindowRect(window, &area);
    return SizeOf(area);
}

}  // namespace

// --- life ---

// At the end of the process a window may be there still.
Form::~Form() {
    if (window != nullptr) SetWindowLongPtrA(window, DWLP_USER, 0);
}

bool Form::Create(HWND parent) {
    if (window != nullptr) return true;
    modal = false;
    CreateDialogParamA(ProgramInstance(), MAKEINTRESOURCEA(resource), parent, Thunk, reinterpret_cast<LPARAM>(this));
    return window != nullptr;
}

INT_PTR Form::RunModal(HWND owner) {
    modal = true;
    const INT_PTR result =
        DialogBoxParamA(ProgramInstance(), MAKEINTRESOURCEA(resource), owner, Thunk, reinterpret_cast<LPARAM>(this));
    return result <= 0 ? NotShown : result;
}

void Form::Close(INT_PTR result) {
    if (window == nullptr) return;
    if (modal) {
        EndDialog(window, result);
    } else {
        DestroyWindow(window);
    }
}

bool Form::OnInitDialog(HWND dialog) {
    window = dialog;
    const bool isChild = (GetWindowLongPtrA(dialog, GWL_STYLE) & WS_CHILD) != 0;
    if (!modal && !isChild) platform::AddModelessForm(dialog, KeyThunk);
    if (!isChild) openForms.push_back(this);
    rows = Rows();
    tips.Create(dialog);
    RememberDesign();
    OnInit();
    if (InSight()) PodesiRjecnik();
    Look();
    return OnLoad();
}

void Form::OnDestroy() {
    OnUnload();
    std::erase(openForms, this);
    platform::RemoveModelessForm(window);
    SetWindowLongPtrA(window, DWLP_USER, 0);
    window = nullptr;
    wordedIn = 0;
    for (const auto& [id, font] : fonts) DeleteObject(font);
    fonts.clear();
    if (back != nullptr) DeleteObject(std::exchange(back, nullptr));
}

// --- messages ---

INT_PTR CALLBACK Form::Thunk(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    return Guarded<INT_PTR>(FALSE, [&]() -> INT_PTR {
        if (message == WM_INITDIALOG) {
            SetWindowLongPtrA(dialog, DWLP_USER, lParam);
            return reinterpret_cast<Form*>(lParam)->OnInitDialog(dialog);
        }
        auto* const form = reinterpret_cast<Form*>(GetWindowLongPtrA(dialog, DWLP_USER));
        return form == nullptr ? FALSE : form->Handle(message, wParam, lParam);
    });
}

bool Form::KeyThunk(const MSG& message) {
    bool handled = true;
    Guarded<bool>(true, [&] {
        const HWND dialog = GetAncestor(message.hwnd, GA_ROOT);
        auto* const form = reinterpret_cast<Form*>(GetWindowLongPtrA(dialog, DWLP_USER));
        handled = form != nullptr && form->OnKey(message);
        return true;
    });
    return handled;
}

INT_PTR Form::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    const HWND dialog = window;
    LRESULT result = 0;
    if (OnMessage(message, wParam, lParam, result)) {
        SetWindowLongPtrA(dialog, DWLP_MSGRESULT, result);
        return TRUE;
    }
    switch (message) {
        case WM_COMMAND:
            return OnCommand(LOWORD(wParam), HIWORD(wParam));
        case WM_HSCROLL:
        case WM_VSCROLL:
            return OnScroll(reinterpret_cast<HWND>(lParam));
        case WM_NOTIFY:
            return OnNotify(*reinterpret_cast<const NMHDR*>(lParam));
        case WM_HELP:  // F1, also where a box or a control of this form has the keyboard
            OpenHelpOn(HelpTopic());
            return TRUE;
        case WM_CTLCOLORDLG:
        case WM_CTLCOLORSTATIC:
            return BrushOf(reinterpret_cast<HDC>(wParam), reinterpret_cast<HWND>(lParam));
        case WM_SIZE:
            Lay();
            return FALSE;
        case WM_GETMINMAXINFO:
            LimitSize(*reinterpret_cast<MINMAXINFO*>(lParam));
            return FALSE;
        case WM_SYSCOLORCHANGE:
        case WM_SETTINGCHANGE:
            SendToChildren(dialog, message, wParam, lParam);  // the system tells the outermost window alone
            [[fallthrough]];
        case WM_THEMECHANGED:
        case WM_DPICHANGED:
        case WM_DPICHANGED_AFTERPARENT:
            PostMessageA(dialog, LooksMessage, 0, 0);
            return FALSE;
        case LooksMessage:
            Look();
            return TRUE;
        case WM_DESTROY:
            OnDestroy();
            return FALSE;
        default:
            return FALSE;
    }
}

bool Form::OnMessage(UINT, WPARAM, LPARAM, LRESULT&) {
    return false;
}

bool Form::OnClicked(int) {
    return false;
}

void Form::OnChanged(int) {}

bool Form::OnKey(const MSG&) {
    return false;
}

bool Form::OnCommand(int id, int code) {
    if (showing) return false;
    if (id == IDHELP && code == BN_CLICKED) {
        OpenHelpOn(HelpTopic());
        return true;
    }
    if (const ControlRow* const row = RowOf(id)) return OnRowCommand(*row, code);
    return code == BN_CLICKED && OnClicked(id);
}

bool Form::OnRowCommand(const ControlRow& row, int code) {
    const std::string kind = ClassOf(Control(row.id));
    if (kind == "Button") return code == BN_CLICKED && OnRowClicked(row);
    static_assert(CBN_SELCHANGE == LBN_SELCHANGE);
    const bool isList = kind == "ComboBox" || kind == "ListBox";
    const bool changed = isList ? code == CBN_SELCHANGE : code == EN_CHANGE;
    if (changed) Take(row, row.member.take);
    if (!isList && code == EN_KILLFOCUS) Take(row, row.member.leave);
    return true;
}

// A handler may close the form, and the row with it: what is needed of it is copied.
bool Form::OnRowClicked(const ControlRow& row) {
    const int id = row.id;
    const bool takes = static_cast<bool>(row.member.take);
    const auto clicked = row.clicked;
    Take(row, row.member.take);
    if (!clicked) return takes || OnClicked(id);
    clicked();
    return true;
}

void Form::Take(const ControlRow& row, const std::function<void(HWND)>& how) {
    if (!how) return;
    const int id = row.id;
    const auto take = how;
    take(Control(id));
    if (window != nullptr) OnChanged(id);
}

bool Form::OnScroll(HWND slider) {
    const ControlRow* const row = slider == nullptr ? nullptr : RowOf(GetDlgCtrlID(slider));
    if (row == nullptr || showing) return false;
    Take(*row, row->member.take);
    return true;
}

// --- help ---

void Form::OpenHelpOn(const std::string& topic) const {
    if (HasHelp() && !topic.empty()) openHelp(topic);
}

bool Form::OnNotify(const NMHDR& notice) {
    const bool followed = LinkFollowed(notice, IDHELP);
    if (followed) OpenHelpOn(HelpTopic());
    return followed;
}

void Form::WordHelpLink(int id) const {
    const HWND link = Control(id);
    if (ClassOf(link) != "SysLink") return;
    SetWindowTextA(link, ("<a>" + Translate("Help") + "</a>").c_str());
    SetAccessibleName(link, Translate("Help"));
    ShowWindow(link, HasHelp() ? SW_SHOWNA : SW_HIDE);
}

// --- the table ---

const ControlRow* Form::RowOf(int id) const {
    for (const ControlRow& row : rows) {
        if (row.id == id) return &row;
    }
    return nullptr;
}

void Form::PodesiRjecnik() {
    if (window == nullptr) return;
    wordedIn = GetLanguage();
    if (const std::string caption = Caption(); !caption.empty()) ShowText(window, caption);
    std::vector<MnemonicCaption> marked;
    for (const ControlRow& row : rows) {
        const HWND control = Control(row.id);
        if (row.name) SetAccessibleName(control, row.name());
        if (!row.caption) continue;
        const std::string caption = WithLetter(row.caption(), row.letter);
        if (IsPlainText(control)) {
            ShowText(control, caption);
        } else if (IsGroupBox(control)) {
            ShowText(control, Unmarked(caption));
        } else {
            marked.push_back({row.id, caption, row.panels});
        }
    }
    Mnemonics letters = takenLetters;
    MarkAll(marked, letters);
    for (const MnemonicCaption& caption : marked) SetText(window, caption.control, caption.text);
    WordHelpLink(IDHELP);
    Refresh();
}

bool Form::PodesiRjecnikIfOther() {
    if (!InSight() || wordedIn == GetLanguage()) return false;
    PodesiRjecnik();
    return true;
}

void Form::PodesiRjecnikOfAll() {
    const std::vector<Form*> forms = openForms;
    for (Form* const form : forms) form->PodesiRjecnikIfOther();
}

void Form::Refresh() {
    if (window == nullptr || showing || !InSight()) return;
    const BusyMark mark(showing);
    const unsigned panels = VisiblePanels();
    for (const ControlRow& row : rows) ShowRow(row, panels);
    for (const ControlRow& row : rows) EnableRow(row);
}

void Form::ShowRow(const ControlRow& row, unsigned panels) {
    const HWND control = Control(row.id);
    if (row.member.show) row.member.show(control);
    if (row.panels != Mnemonics::AllPanels) ShowOrHide(control, (row.panels & panels) != 0);
    if (row.tip) tips.Set(row.id, row.tip());
}

// A control that is disabled while it has the focus would leave the keyboard nowhere.
void Form::EnableRow(const ControlRow& row) {
    if (!row.enabled) return;
    const HWND control = Control(row.id);
    const bool enable = row.enabled();
    if (enable == (IsWindowEnabled(control) != FALSE)) return;
    const bool hadFocus = !enable && (GetFocus() == control || IsChild(control, GetFocus()));
    if (hadFocus) {
        const int other = FocusInsteadOf(row.id);
        SendMessageA(window, WM_NEXTDLGCTL, other == 0 ? 0 : reinterpret_cast<WPARAM>(Control(other)), other != 0);
    }
    EnableWindow(control, enable);
}

// --- looks ---

void Form::Look() {
    if (window == nullptr) return;
    MakeFonts();
    if (back != nullptr) DeleteObject(std::exchange(back, nullptr));
    if (const auto colour = BackColour()) back = CreateSolidBrush(*colour);
    OnLooks();
    Lay();
    InvalidateRect(window, nullptr, TRUE);
}

void Form::MakeFonts() {
    for (const ControlRow& row : rows) {
        if (row.font.weight == 0) continue;
        HFONT& font = fonts[row.id];
        const HFONT old = std::exchange(font, FontLike(window, row.font.percent, row.font.weight, row.font.smooth));
        SendMessageA(Control(row.id), WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
        if (old != nullptr) DeleteObject(old);
    }
}

COLORREF Form::TextColour(int id) const {
    const ControlRow* const row = RowOf(id);
    const bool own = row != nullptr && row->colour && !HighContrast();
    return own ? *row->colour : GetSysColor(COLOR_WINDOWTEXT);
}

// The link takes the system's brush: Wine's links delete the one that they are given.
INT_PTR Form::BrushOf(HDC paper, HWND control) {
    const int id = GetDlgCtrlID(control);
    if (back == nullptr || id == IDHELP) return FALSE;
    SetTextColor(paper, TextColour(id));
    SetBkColor(paper, *BackColour());
    return reinterpret_cast<INT_PTR>(back);
}

// --- size ---

void Form::RememberDesign() {
    design = {DpiOf(window), ClientSize(window), WindowSize(window), {}};
    for (const ControlRow& row : rows) {
        if (row.anchors != AtTopLeft) design.controls[row.id] = PlaceIn(window, Control(row.id));
    }
}

RECT Form::PlaceOf(const ControlRow& row, int moreWidth, int moreHeight) const {
    RECT place = design.controls.at(row.id);
    const int dpi = DpiOf(window);
    for (LONG* const edge : {&place.left, &place.top, &place.right, &place.bottom}) {
        *edge = MulDiv(static_cast<int>(*edge), dpi, design.dpi);
    }
    if ((row.anchors & AnchorRight) != 0) place.right += moreWidth;
    if ((row.anchors & AnchorRight) != 0 && (row.anchors & AnchorLeft) == 0) place.left += moreWidth;
    if ((row.anchors & AnchorBottom) != 0) place.bottom += moreHeight;
    if ((row.anchors & AnchorBottom) != 0 && (row.anchors & AnchorTop) == 0) place.top += moreHeight;
    return place;
}

void Form::Lay() {
    if (design.dpi == 0 || IsIconic(window)) return;
    const SIZE now = ClientSize(window);
    const int dpi = DpiOf(window);
    const int moreWidth = now.cx - MulDiv(design.client.cx, dpi, design.dpi);
    const int moreHeight = now.cy - MulDiv(design.client.cy, dpi, design.dpi);
    for (const ControlRow& row : rows) {
        if (row.anchors == AtTopLeft) continue;
        Place(Control(row.id), window, PlaceOf(row, moreWidth, moreHeight));
    }
    OnLayout();
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

// The template's size is the least that holds everything.
void Form::LimitSize(MINMAXINFO& limits) const {
    if (design.dpi == 0) return;
    const int dpi = DpiOf(window);
    limits.ptMinTrackSize = {MulDiv(design.window.cx, dpi, design.dpi), MulDiv(design.window.cy, dpi, design.dpi)};
}

void PutInMiddle(HWND form) {
    const platform::Rect place = RectangleOf(form);
    const platform::Size screen = platform::ScreenSize();
    MoveWindowTo(form, (screen.width - (place.right - place.left)) / 2,
                 (screen.height - (place.bottom - place.top)) / 2);
}
