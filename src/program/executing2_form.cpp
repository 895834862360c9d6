#include "program/executing2_form.h"

#include "base/product.h"
#include "dictionary/dictionary.h"
#include "program/executing2_ids.h"
#include "program/executing_form.h"
#include "program/resource_ids.h"
#include "program/window_tools.h"
#include "replay/status_view.h"

Executing2Form executing2;

namespace {

constexpr const char* WindowClass = "TessarineExecuting2";
constexpr BYTE Alpha = 215;
constexpr COLORREF LeftOut = RGB(0, 0, 255);  // what is of this colour is not there
constexpr int TopOnScreen = 20;               // pixels
constexpr int GapBelow = 10;                  // pixels, to executing

constexpr COLORREF BodyColour = RGB(0xfb, 0xfc, 0xfc);  // that of the pictures' middle
constexpr COLORREF HeadingColour = RGB(0x4c, 0x60, 0x68);
constexpr COLORREF NameColour = RGB(0x17, 0x33, 0x3d);
constexpr COLORREF HintColour = RGB(0xa8, 0x3f, 0x10);

// The pictures of the frame, one bitmap for each scale. Each is three by three squares: the corners, the edges between
// them, and the body.
struct FramePictures {
    int scale;  // percent
    int resource;
};
constexpr FramePictures AllPictures[] = {
    {100, FRAME_100}, {125, FRAME_125}, {150, FRAME_150}, {200, FRAME_200}, {300, FRAME_300}};
constexpr int SquareAt100 = 16;

// The sharpest that is not larger than the screen's scale: the smaller ones are stretched.
FramePictures PicturesFor(int dpi) {
    FramePictures best = AllPictures[0];
    for (const FramePictures& pictures : AllPictures) {
        if (pictures.scale * USER_DEFAULT_SCREEN_DPI <= dpi * 100) best = pictures;
    }
    return best;
}

struct Span {
    int begin;
    int length;
};

// A side of the window, cut into corner, edge and corner.
Span PartOf(int part, int whole, int corner) {
    if (part == 0) return {0, corner};
    if (part == 1) return {corner, whole - 2 * corner};
    return {whole - corner, corner};
}

}  // namespace

// --- life ---

void Executing2Form::Load() {
    if (window != nullptr) return;
    RegisterDialogClass(WindowClass, nullptr);
    CreateDialogParamA(ProgramInstance(), MAKEINTRESOURCEA(executing2_dialog), nullptr, DialogThunk, 0);
}

void Executing2Form::OnInitDialog(HWND form) {
    window = form;
    body = CreateSolidBrush(BodyColour);
    pictures = LoadBitmapA(ProgramInstance(), MAKEINTRESOURCEA(PicturesFor(DpiOf(form)).resource));
    nameFont = FontLike(form, 122, FW_SEMIBOLD);
    SendDlgItemMessageA(form, executing2_Label2, WM_SETFONT, reinterpret_cast<WPARAM>(nameFont), FALSE);
    SetWindowTextA(form, ProductName);
    PodesiRjecnik();
    SetLayeredWindowAttributes(form, LeftOut, Alpha, LWA_COLORKEY | LWA_ALPHA);
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
    DeleteObject(pictures);
    DeleteObject(body);
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

// The corner pieces (gore_lijevo, gore_desno, dolje_lijevo, dolje_desno: upper and lower, left and right) at the
// corners, the edges (gore, dolje, lijevo, desno) stretched between them, and the body in the middle. Colours are not
// mixed: a blue that is not quite pure would show.
void Executing2Form::PaintFrame(HDC paper) const {
    RECT area{};
    GetClientRect(window, &area);
    BITMAP picture{};
    GetObjectA(pictures, sizeof picture, &picture);
    const int square = picture.bmWidth / 3;
    const int corner = MulDiv(SquareAt100, DpiOf(window), USER_DEFAULT_SCREEN_DPI);

    const HDC source = CreateCompatibleDC(paper);
    const HGDIOBJ before = SelectObject(source, pictures);
    SetStretchBltMode(paper, COLORONCOLOR);
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            const Span x = PartOf(column, area.right, corner);
            const Span y = PartOf(row, area.bottom, corner);
            StretchBlt(paper, x.begin, y.begin, x.length, y.length, source, column * square, row * square, square,
                       square, SRCCOPY);
        }
    }
    SelectObject(source, before);
    DeleteDC(source);
}

HBRUSH Executing2Form::BrushOf(HDC paper, HWND label) const {
    const int control = GetDlgCtrlID(label);
    SetBkColor(paper, BodyColour);
    SetTextColor(paper, control == executing2_Label1   ? HeadingColour
                        : control == executing2_Label2 ? NameColour
                                                       : HintColour);
    return body;
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
