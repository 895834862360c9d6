#include "forms/recording_form.h"

#include <commctrl.h>

#include <utility>

#include "base/product.h"
#include "base/runtime_failure.h"
#include "dictionary/dictionary.h"
#include "forms/recording_ids.h"
#include "identity/window_identity.h"
#include "platform/input.h"
#include "platform/window_services.h"
#include "recording/recording_session.h"
#include "recording/recording_status.h"
#include "recording/recording_view.h"
#include "toolkit/window_tools.h"
#include "widgets/mnemonics.h"
#include "win32/message_loop.h"

RecordingForm recording;

namespace {

constexpr const char* WindowClass = "TessarineRecording";
constexpr BYTE Alpha = 255;
constexpr int PlaceOnScreen = 10;  // pixels, from the left and the top

constexpr COLORREF HeadingColour = RGB(0x17, 0x33, 0x3d);
constexpr COLORREF InfoColour = RGB(0x4c, 0x60, 0x68);
constexpr COLORREF RecordingColour = RGB(0xd6, 0x1f, 0x1f);
constexpr COLORREF PausedColour = RGB(0x9a, 0xa8, 0xad);

// Pressed, a button is darker.
struct ButtonColours {
    COLORREF face;
    COLORREF pressed;
    COLORREF edge;
    COLORREF text;
};
constexpr ButtonColours StopColours = {RGB(0xc2, 0x45, 0x10), RGB(0x99, 0x34, 0x0a), RGB(0x99, 0x34, 0x0a),
                                       RGB(0xff, 0xff, 0xff)};
constexpr ButtonColours PauseColours = {RGB(0xe6, 0xed, 0xef), RGB(0xc4, 0xd2, 0xd6), RGB(0x8a, 0xa4, 0xad),
                                        RGB(0x17, 0x33, 0x3d)};

int Scaled(HWND window, int pixelsAt100) {
    return MulDiv(pixelsAt100, DpiOf(window), USER_DEFAULT_SCREEN_DPI);
}

// A paper with a pen and a brush of these colours, until it goes.
class PenAndBrush {
public:
    PenAndBrush(HDC on, COLORREF line, COLORREF face)
        : paper(on), pen(CreatePen(PS_SOLID, 1, line)), brush(CreateSolidBrush(face)) {
        oldPen = SelectObject(paper, pen);
        oldBrush = SelectObject(paper, brush);
    }
    ~PenAndBrush() {
        SelectObject(paper, oldPen);
        SelectObject(paper, oldBrush);
        DeleteObject(pen);
        DeleteObject(brush);
    }
    PenAndBrush(const PenAndBrush&) = delete;
    PenAndBrush& operator=(const PenAndBrush&) = delete;

private:
    HDC paper;
    HPEN pen;
    HBRUSH brush;
    HGDIOBJ oldPen;
    HGDIOBJ oldBrush;
};

void DrawCaption(const DRAWITEMSTRUCT& item, const std::string& caption, COLORREF colour) {
    RECT area = item.rcItem;
    const UINT hidden = (item.itemState & ODS_NOACCEL) != 0 ? DT_HIDEPREFIX : 0;
    SetBkMode(item.hDC, TRANSPARENT);
    SetTextColor(item.hDC, colour);
    DrawTextA(item.hDC, caption.c_str(), -1, &area, DT_CENTER | DT_VCENTER | DT_SINGLELINE | hidden);
}

}  // namespace

// --- life ---

void RecordingForm::Load() {
    if (window != nullptr) return;
    RegisterDialogClass(WindowClass, nullptr);
    CreateDialogParamA(ProgramInstance(), MAKEINTRESOURCEA(recording_dialog), nullptr, DialogThunk, 0);
    if (window == nullptr) throw RuntimeFailure(FailureKind::Memory, "The status form of a recording cannot be shown.");
}

void RecordingForm::OnInitDialog(HWND form) {
    window = form;
    foregroundBefore = nullptr;
    ownWindows.recordingStatus = platform::FromHwnd(form);
    platform::AddModelessForm(form);
    SetWindowTextA(form, ProductName);
    SetLooks();
    PodesiRjecnik();
    for (const int id : {recording_Command1, recording_Command2}) {
        SetWindowSubclass(GetDlgItem(form, id), ButtonThunk, static_cast<UINT_PTR>(id), 0);
    }
    SetLayeredWindowAttributes(form, FormFrame::LeftOut, Alpha, LWA_COLORKEY | LWA_ALPHA);
    SetWindowPos(form, HWND_TOPMOST, PlaceOnScreen, PlaceOnScreen, 0, 0, SWP_NOSIZE | SWP_NOACTIVATE);
}

void RecordingForm::PodesiRjecnik() {
    SetLabel(recording_Label1, Translate("Recording"));
    SetLabel(recording_label_info, Translate("Pause") + "/" + Translate("Break") + " " + Translate("to stop"));
    SetLabel(recording_label_vrijeme, "00:00:00");
    SetCaptions(Translate("Stop"), Translate("Pause"));
}

void RecordingForm::Show() {
    Load();
    SetWindowPos(window, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
}

// Also called from within a message of one of the form's own buttons.
void RecordingForm::Unload() {
    if (window == nullptr) return;
    const HWND form = std::exchange(window, nullptr);
    ownWindows.recordingStatus = 0;
    platform::RemoveModelessForm(form);
    DestroyWindow(form);
    FreeLooks();
}

// --- what it shows ---

void RecordingForm::SetCaptions(const std::string& stop, const std::string& pause) {
    command1Caption = stop;
    command2Caption = pause;
    Mnemonics letters;
    SetText(window, recording_Command1, letters.Mark(stop));
    SetText(window, recording_Command2, letters.Mark(pause));
}

void RecordingForm::SetLabel(int control, const std::string& text) const {
    SetText(window, control, text);
}

void RecordingForm::ShowIndicator(bool visible) const {
    ShowWindow(GetDlgItem(window, recording_Picture1), visible ? SW_SHOWNA : SW_HIDE);
}

// --- messages ---

INT_PTR CALLBACK RecordingForm::DialogThunk(HWND form, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    return Guarded<INT_PTR>(FALSE, [&]() -> INT_PTR {
        if (message == WM_INITDIALOG) {
            recording.OnInitDialog(form);
            return FALSE;  // the focus stays where it is
        }
        return recording.window == form ? recording.OnDialogMessage(message, wParam, lParam) : FALSE;
    });
}

// A press on the Stop button returns when the window is long gone, and so does one that failed: the button's own
// procedure must not see it.
LRESULT CALLBACK RecordingForm::ButtonThunk(HWND button, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                            DWORD_PTR) noexcept {
    const bool handled =
        Guarded<bool>(true, [&] { return recording.OnButtonMessage(button, static_cast<int>(id), message); });
    if (message == WM_NCDESTROY) RemoveWindowSubclass(button, ButtonThunk, id);
    return handled ? 0 : DefSubclassProc(button, message, wParam, lParam);
}

INT_PTR RecordingForm::OnDialogMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_MOUSEMOVE:  // over the labels too, which let it through
            OnMouseMove();
            return TRUE;
        case WM_MOUSEACTIVATE:
            OnMouseActivate();
            return FALSE;
        case WM_COMMAND:
            if (HIWORD(wParam) == BN_CLICKED) OnKeyPress(LOWORD(wParam));
            return TRUE;
        case WM_ERASEBKGND:
            PaintBackground(reinterpret_cast<HDC>(wParam));
            SetWindowLongPtrA(window, DWLP_MSGRESULT, TRUE);
            return TRUE;
        case WM_CTLCOLORSTATIC:
            return reinterpret_cast<INT_PTR>(BrushOf(reinterpret_cast<HDC>(wParam), reinterpret_cast<HWND>(lParam)));
        case WM_DRAWITEM: {
            const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
            item.CtlID == recording_Picture1 ? DrawIndicator(item) : DrawButton(item);
            return TRUE;
        }
        case WM_DPICHANGED:
            PostMessageA(window, WM_APP, 0, 0);  // the dialog gives its controls new fonts behind this message
            return FALSE;
        case WM_APP:
            OnDpiChanged();
            return TRUE;
        default:
            return FALSE;
    }
}

// The mouse never reaches the buttons' own procedure, so what that reports as a click came from the keyboard.
// BM_CLICK is how a mnemonic presses a button; it would come back as a press of the mouse.
bool RecordingForm::OnButtonMessage(HWND button, int id, UINT message) {
    switch (message) {
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
            OnMouseDown(button, id);
            return true;
        case WM_LBUTTONUP:
            OnMouseUp(button, id);
            return true;
        case WM_MOUSEMOVE:
            if (id == recording_Command2) Command2_MouseMove();
            return false;
        case WM_CAPTURECHANGED:  // the release may never come
            SendMessageA(button, BM_SETSTATE, FALSE, 0);
            return false;
        case BM_CLICK:
            OnKeyPress(id);
            return true;
        default:
            return false;
    }
}

void RecordingForm::OnMouseMove() const {
    const platform::Rect place = RectangleOf(window);
    MoveWindowTo(window, DodgeTo(place, platform::ScreenSize(), DpiOf(window)), place.top);
}

void RecordingForm::OnMouseActivate() {
    const HWND foreground = GetForegroundWindow();
    if (foreground != window) foregroundBefore = foreground;
}

void RecordingForm::OnMouseDown(HWND button, int id) {
    if (id == recording_Command1) return Command1_MouseDown();  // the form is no more
    SetFocus(button);
    SetCapture(button);
    SendMessageA(button, BM_SETSTATE, TRUE, 0);
    Command2_MouseDown();
}

void RecordingForm::OnMouseUp(HWND button, int id) {
    if (id != recording_Command2) return;
    if (GetCapture() == button) ReleaseCapture();
    SendMessageA(button, BM_SETSTATE, FALSE, 0);
    OnRelease();
}

// Space, Enter (which arrives as IDOK, for the button with the focus) or a mnemonic. A key is press and release in one.
void RecordingForm::OnKeyPress(int id) {
    if (id == IDOK) id = GetDlgCtrlID(GetFocus());
    if (id == recording_Command1) return Command1_MouseDown();  // the form is no more
    if (id != recording_Command2) return;
    Command2_MouseDown();
    OnRelease();
}

// When the pointer stayed on the button from the click that paused to the one that goes on, no window was remembered,
// and what the user types next would be lost on the form.
void RecordingForm::OnRelease() const {
    const bool wasPaused = recordingSession.paused;
    Command2_MouseUp();
    const bool givenBack = wasPaused && recordingStatus.returnTo > 0;
    if (recordingSession.paused || givenBack || GetForegroundWindow() != window) return;
    if (foregroundBefore != nullptr) platform::BringToForeground(platform::FromHwnd(foregroundBefore));
}

// --- looks ---

void RecordingForm::OnDpiChanged() {
    SetLooks();
    InvalidateRect(window, nullptr, TRUE);
}

void RecordingForm::SetLooks() {
    const HFONT old = labelFont;
    frame.Load(window);
    labelFont = FontLike(window, 108, FW_SEMIBOLD);
    for (const int label : {recording_Label1, recording_label_vrijeme}) {
        SendDlgItemMessageA(window, label, WM_SETFONT, reinterpret_cast<WPARAM>(labelFont), TRUE);
    }
    if (old != nullptr) DeleteObject(old);
}

void RecordingForm::FreeLooks() {
    frame.Free();
    DeleteObject(labelFont);
    labelFont = nullptr;
}

// All but the lower half of the buttons.
RECT RecordingForm::FrameArea() const {
    RECT area{};
    GetClientRect(window, &area);
    RECT button{};
    GetClientRect(GetDlgItem(window, recording_Command1), &button);
    area.bottom -= button.bottom / 2;
    return area;
}

void RecordingForm::PaintBackground(HDC paper) const {
    RECT area{};
    GetClientRect(window, &area);
    const HBRUSH nothing = CreateSolidBrush(FormFrame::LeftOut);
    FillRect(paper, &area, nothing);
    DeleteObject(nothing);
    frame.Paint(paper, FrameArea());
}

void RecordingForm::DrawIndicator(const DRAWITEMSTRUCT& item) const {
    FillRect(item.hDC, &item.rcItem, frame.Body());
    const COLORREF colour = recordingSession.paused ? PausedColour : RecordingColour;
    const PenAndBrush tools(item.hDC, colour, colour);
    Ellipse(item.hDC, item.rcItem.left, item.rcItem.top, item.rcItem.right, item.rcItem.bottom);
}

void RecordingForm::DrawButton(const DRAWITEMSTRUCT& item) const {
    PaintBehind(item);
    const ButtonColours& colours = item.CtlID == recording_Command1 ? StopColours : PauseColours;
    const bool pressed = (item.itemState & ODS_SELECTED) != 0;
    RECT face = item.rcItem;
    {
        const int round = Scaled(window, 8);
        const PenAndBrush tools(item.hDC, colours.edge, pressed ? colours.pressed : colours.face);
        RoundRect(item.hDC, face.left, face.top, face.right, face.bottom, round, round);
    }
    DrawCaption(item, TextOf(window, static_cast<int>(item.CtlID)), colours.text);
    if ((item.itemState & ODS_FOCUS) == 0 || (item.itemState & ODS_NOFOCUSRECT) != 0) return;
    InflateRect(&face, -Scaled(window, 3), -Scaled(window, 3));
    DrawFocusRect(item.hDC, &face);
}

// A button stands on the edge of the frame: what is left free by its round corners is partly frame, partly nothing.
void RecordingForm::PaintBehind(const DRAWITEMSTRUCT& item) const {
    POINT corner{};
    MapWindowPoints(item.hwndItem, window, &corner, 1);
    SetViewportOrgEx(item.hDC, -corner.x, -corner.y, nullptr);
    PaintBackground(item.hDC);
    SetViewportOrgEx(item.hDC, 0, 0, nullptr);
}

HBRUSH RecordingForm::BrushOf(HDC paper, HWND label) const {
    SetBkColor(paper, FormFrame::BodyColour);
    SetTextColor(paper, GetDlgCtrlID(label) == recording_label_info ? InfoColour : HeadingColour);
    return frame.Body();
}

// --- the view ---

namespace recording_view {

void Load() {
    recording.Load();
}

void Show() {
    recording.Show();
}

void Unload() {
    recording.Unload();
}

void SetCommand1(const std::string& caption) {
    recording.SetCommand1(caption);
}

void SetCommand2(const std::string& caption) {
    recording.SetCommand2(caption);
}

void SetLabel1(const std::string& text) {
    recording.SetLabel(recording_Label1, text);
}

void SetInfo(const std::string& text) {
    recording.SetLabel(recording_label_info, text);
}

void SetTime(const std::string& text) {
    recording.SetLabel(recording_label_vrijeme, text);
}

void ShowIndicator(bool visible) {
    recording.ShowIndicator(visible);
}

}  // namespace recording_view
