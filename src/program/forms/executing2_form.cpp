#include "forms/executing2_form.h"

#include "base/product.h"
#include "dictionary/dictionary.h"
#include "forms/executing2_ids.h"
#include "forms/executing_form.h"
#include "replay/status_view.h"
#include "toolkit/window_tools.h"

Executing2Form executing2;

namespace {

constexpr const char* WindowClass = "TessarineExecuting2";
constexpr BYTE Alpha = 215;
constexpr int TopOnScreen = 20;  // pixels
constexpr int GapBelow = 10;     // pixels, to executing

constexpr COLORREF HeadingColour = RGB(0x4c, 0x60, 0x68);
constexpr COLORREF NameColour = RGB(0x17, 0x33, 0x3d);
constexpr COLORREF HintColour = RGB(0xa8, 0x3f, 0x10);

}  // namespace

// --- life ---

void Executing2Form::Load() {
    if (window != nullptr) return;
    RegisterDialogClass(WindowClass, nullptr);
    CreateDialogParamA(ProgramInstance(), MAKEINTRESOURCEA(executing2_dialog), nullptr, DialogThunk, 0);
}

void Executing2Form::OnInitDialog(HWND form) {
    window = form;
    frame.Load(form);
    nameFont = FontLike(form, 122, FW_SEMIBOLD);
    SendDlgItemMessageA(form, executing2_Label2, WM_SETFONT, reinterpret_cast<WPARAM>(nameFont), FALSE);
    SetWindowTextA(form, ProductName);
    PodesiRjecnik();
    SetLayeredWindowAttributes(form, FormFrame::LeftOut, Alpha, LWA_COLORKEY | LWA_ALPHA);
    SetWindowPos(form, HWND_TOPMOST, 0, TopOnScreen, 0, 0, SWP_NOSIZE | SWP_NOACTIVATE);
}

void Executing2Form::PodesiRjecnik() {
    SetText(window, executing2_Label1, Translate("Executing job") + ":");
}

void Executing2Form::Show(const std::string& jobName) {
    Load();
    SetText(window, executing2_Label2, jobName);
    SetText(window, executing2_Label3, "");
    SetWindowPos(window, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
}

void Executing2Form::Unload() {
    if (window == nullptr) return;
    DestroyWindow(window);
    window = nullptr;
    DeleteObject(nameFont);
    frame.Free();
}

// --- messages ---

INT_PTR CALLBACK Executing2Form::DialogThunk(HWND form, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    return Guarded<INT_PTR>(FALSE, [&]() -> INT_PTR {
        if (message == WM_INITDIALOG) {
            executing2.OnInitDialog(form);
            return FALSE;  // the focus stays where it is
        }
        return executing2.window == form ? executing2.OnDialogMessage(message, wParam, lParam) : FALSE;
    });
}

INT_PTR Executing2Form::OnDialogMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_MOUSEACTIVATE:
            SetWindowLongPtrA(window, DWLP_MSGRESULT, MA_NOACTIVATE);
            return TRUE;
        case WM_ERASEBKGND:
            PaintFrame(reinterpret_cast<HDC>(wParam));
            SetWindowLongPtrA(window, DWLP_MSGRESULT, TRUE);
            return TRUE;
        case WM_CTLCOLORSTATIC:
            return reinterpret_cast<INT_PTR>(BrushOf(reinterpret_cast<HDC>(wParam), reinterpret_cast<HWND>(lParam)));
        default:
            return FALSE;
    }
}

// --- looks ---

void Executing2Form::PaintFrame(HDC paper) const {
    RECT area{};
    GetClientRect(window, &area);
    frame.Paint(paper, area);
}

HBRUSH Executing2Form::BrushOf(HDC paper, HWND label) const {
    const int control = GetDlgCtrlID(label);
    SetBkColor(paper, FormFrame::BodyColour);
    SetTextColor(paper, control == executing2_Label1   ? HeadingColour
                        : control == executing2_Label2 ? NameColour
                                                       : HintColour);
    return frame.Body();
}

// --- the view ---

namespace status_view {

// executing stands below executing2, which is therefore made first, if need be.
void ShowExecuting() {
    executing2.Load();
    executing.Show(RectangleOf(executing2.Window()).bottom + GapBelow);
}

void ShowExecuting2(const std::string& jobName) {
    executing2.Show(jobName);
}

void UnloadExecuting2() {
    executing2.Unload();
}

bool Executing2Visible() {
    return executing2.Visible();
}

platform::Rect Executing2Rectangle() {
    return executing2.Visible() ? RectangleOf(executing2.Window()) : platform::Rect{};
}

void MoveExecuting2(std::int32_t left) {
    if (executing2.Visible()) MoveWindowTo(executing2.Window(), left, RectangleOf(executing2.Window()).top);
}

void SetSecondLabel(const std::string& text) {
    SetText(executing2.Window(), executing2_Label3, text);
}

int PixelsPerInch() {
    return executing2.Window() == nullptr ? static_cast<int>(GetDpiForSystem()) : DpiOf(executing2.Window());
}

}  // namespace status_view
