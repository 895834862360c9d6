#include "forms/recording_form.h"

#include <commctrl.h>

#include "base/product.h"
#include "base/runtime_failure.h"
#include "dictionary/dictionary.h"
#include "dictionary/sentences.h"
#include "forms/recording_ids.h"
#include "identity/window_identity.h"
#include "platform/input.h"
#include "platform/window_services.h"
#include "recording/recording_state.h"
#include "recording/recording_status.h"
#include "recording/recording_view.h"
#include "toolkit/system_look.h"
#include "toolkit/window_tools.h"
#include "widgets/mnemonics.h"

RecordingForm recording;

namespace {

constexpr int PlaceOnScreen = 10;  // pixels, from the left and the top

constexpr COLORREF HeadingColour = RGB(0x17, 0x33, 0x3d);
constexpr COLORREF InfoColour = RGB(0x4c, 0x60, 0x68);
constexpr FontStyle HeadingFont = {108, FW_SEMIBOLD};
constexpr COLORREF RecordingColour = RGB(0xd6, 0x1f, 0x1f);
constexpr COLORREF PausedColour = RGB(0x9a, 0xa8, 0xad);

// Pressed, a button is darker.
struct ButtonColours {
    COLORREF face;
    COLORREF pressed;
    COLORREF edge;
    COLORREF text;
};
const ButtonColours StopColours = {RGB(0xc2, 0x45, 0x10), RGB(0x99, 0x34, 0x0a), RGB(0x99, 0x34, 0x0a),
                                   RGB(0xff, 0xff, 0xff)};
const ButtonColours PauseColours = {RGB(0xe6, 0xed, 0xef), RGB(0xc4, 0xd2, 0xd6), RGB(0x8a, 0xa4, 0xad),
                                    RGB(0x17, 0x33, 0x3d)};

// In high contrast the system's.
ButtonColours ColoursOf(UINT button) {
    if (!HighContrast()) return button == recording_Command1 ? StopColours : PauseColours;
    const COLORREF text = GetSysColor(COLOR_BTNTEXT);
    return {GetSysColor(COLOR_BTNFACE), GetSysColor(COLOR_BTNFACE), text, text};
}

int Scaled(HWND form, int pixelsAt100) {
    return MulDiv(pixelsAt100, DpiOf(form), USER_DEFAULT_SCREEN_DPI);
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

// --- what it is ---

RecordingForm::RecordingForm() : FloatingForm(recording_dialog, "TessarineRecording", 255) {}

std::vector<ControlRow> RecordingForm::Rows() {
    return {
        {.id = recording_Picture1, .name = "Recording"},
        {.id = recording_Label1, .caption = "Recording", .font = HeadingFont, .colour = HeadingColour},
        {.id = recording_label_vrijeme, .font = HeadingFont, .colour = HeadingColour},
        {.id = recording_label_info, .colour = InfoColour},
    };
}

void RecordingForm::LoadOrFail() {
    Load();
    if (Window() == nullptr) {
        throw RuntimeFailure(FailureKind::Memory, "The status form of a recording cannot be shown.");
    }
}

void RecordingForm::OnInit() {
    FloatingForm::OnInit();
    foregroundBefore = nullptr;
    ownWindows.recordingStatus = platform::FromHwnd(Window());
    SetLabel(recording_label_vrijeme, "00:00:00");
    for (const int id : {recording_Command1, recording_Command2}) {
        SetWindowSubclass(Control(id), ButtonThunk, static_cast<UINT_PTR>(id), 0);
    }
}

bool RecordingForm::OnLoad() {
    MoveWindowTo(Window(), PlaceOnScreen, PlaceOnScreen);
    return false;
}

void RecordingForm::OnUnload() {
    ownWindows.recordingStatus = 0;
    FloatingForm::OnUnload();
}

void RecordingForm::PodesiRjecnik() {
    FloatingForm::PodesiRjecnik();
    SetLabel(recording_label_info, Translate1("%1 to stop", PauseBreakKey()));
    SetCaptions(Translate("Stop"), Translate("Pause"));
}

// --- what it shows ---

void RecordingForm::SetCaptions(const std::string& stop, const std::string& pause) {
    command1Caption = stop;
    command2Caption = pause;
    Mnemonics letters;
    SetText(Window(), recording_Command1, letters.Mark(stop));
    SetText(Window(), recording_Command2, letters.Mark(pause));
}

void RecordingForm::SetLabel(int control, const std::string& text) const {
    SetText(Window(), control, text);
}

void RecordingForm::ShowIndicator(bool visible) const {
    ShowWindow(Control(recording_Picture1), visible ? SW_SHOWNA : SW_HIDE);
}

// --- messages ---

// A press on the Stop button returns when the window is long gone, and so does one that failed: the button's own
// procedure must not see it.
LRESULT CALLBACK RecordingForm::ButtonThunk(HWND button, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                            DWORD_PTR) noexcept {
    const bool handled =
        Guarded<bool>(true, [&] { return recording.OnButtonMessage(button, static_cast<int>(id), message); });
    if (message == WM_NCDESTROY) RemoveWindowSubclass(button, ButtonThunk, id);
    return handled ? 0 : DefSubclassProc(button, message, wParam, lParam);
}

bool RecordingForm::OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
        case WM_MOUSEMOVE:  // over the labels too, which let it through
            OnMouseMove();
            return true;
        case WM_MOUSEACTIVATE:
            OnMouseActivate();
            return false;
        case WM_DRAWITEM:
            Draw(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
            return true;
        default:
            return FloatingForm::OnMessage(message, wParam, lParam, result);
    }
}

bool RecordingForm::OnClicked(int id) {
    OnKeyPress(id);
    return true;
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
    const platform::Rect place = RectangleOf(Window());
    MoveWindowTo(Window(), DodgeTo(place, platform::ScreenSize(), DpiOf(Window())), place.top);
}

void RecordingForm::OnMouseActivate() {
    const HWND foreground = GetForegroundWindow();
    if (foreground != Window()) foregroundBefore = foreground;
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
    const bool wasPaused = RecordingPaused();
    Command2_MouseUp();
    const bool givenBack = wasPaused && recordingStatus.returnTo > 0;
    if (RecordingPaused() || givenBack || GetForegroundWindow() != Window()) return;
    if (foregroundBefore != nullptr) platform::BringToForeground(platform::FromHwnd(foregroundBefore));
}

// --- looks ---

// All but the lower half of the buttons.
RECT RecordingForm::FrameArea() const {
    RECT area = FloatingForm::FrameArea();
    RECT button{};
    GetClientRect(Control(recording_Command1), &button);
    area.bottom -= button.bottom / 2;
    return area;
}

void RecordingForm::Draw(const DRAWITEMSTRUCT& item) const {
    item.CtlID == recording_Picture1 ? DrawIndicator(item) : DrawPushButton(item);
}

void RecordingForm::DrawIndicator(const DRAWITEMSTRUCT& item) const {
    const HBRUSH body = CreateSolidBrush(FormFrame::BodyColour());
    FillRect(item.hDC, &item.rcItem, body);
    DeleteObject(body);
    const COLORREF colour = RecordingPaused() ? PausedColour : RecordingColour;
    const PenAndBrush tools(item.hDC, colour, colour);
    Ellipse(item.hDC, item.rcItem.left, item.rcItem.top, item.rcItem.right, item.rcItem.bottom);
}

void RecordingForm::DrawPushButton(const DRAWITEMSTRUCT& item) const {
    PaintBehind(item);
    const ButtonColours colours = ColoursOf(item.CtlID);
    const bool pressed = (item.itemState & ODS_SELECTED) != 0;
    RECT face = item.rcItem;
    {
        const int round = Scaled(Window(), 8);
        const PenAndBrush tools(item.hDC, colours.edge, pressed ? colours.pressed : colours.face);
        RoundRect(item.hDC, face.left, face.top, face.right, face.bottom, round, round);
    }
    DrawCaption(item, TextOf(Window(), static_cast<int>(item.CtlID)), colours.text);
    if ((item.itemState & ODS_FOCUS) == 0 || (item.itemState & ODS_NOFOCUSRECT) != 0) return;
    InflateRect(&face, -Scaled(Window(), 3), -Scaled(Window(), 3));
    DrawFocusRect(item.hDC, &face);
}

// A button stands on the edge of the frame: what is left free by its round corners is partly frame, partly nothing.
void RecordingForm::PaintBehind(const DRAWITEMSTRUCT& item) const {
    POINT corner{};
    MapWindowPoints(item.hwndItem, Window(), &corner, 1);
    SetViewportOrgEx(item.hDC, -corner.x, -corner.y, nullptr);
    PaintBackground(item.hDC);
    SetViewportOrgEx(item.hDC, 0, 0, nullptr);
}

// --- the view ---

namespace recording_view {

void Load() {
    recording.LoadOrFail();
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
