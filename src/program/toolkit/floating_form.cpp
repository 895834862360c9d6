#include "toolkit/floating_form.h"

#include "base/product.h"
#include "toolkit/window_tools.h"

void FloatingForm::Load() {
    if (Window() != nullptr) return;
    RegisterDialogClass(className, nullptr);
    Create();
}

void FloatingForm::Show() {
    Load();
    SetWindowPos(Window(), HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
}

void FloatingForm::Unload() {
    Close();
}

void FloatingForm::OnInit() {
    SetWindowTextA(Window(), ProductName);
    SetAlpha(alpha);
}

void FloatingForm::SetAlpha(BYTE opaque) const {
    SetLayeredWindowAttributes(Window(), FormFrame::LeftOut, opaque, LWA_COLORKEY | LWA_ALPHA);
}

void FloatingForm::OnLooks() {
    frame.Load(Window());
}

void FloatingForm::OnUnload() {
    frame.Free();
}

bool FloatingForm::OnMessage(UINT message, WPARAM wParam, LPARAM, LRESULT& result) {
    if (message != WM_ERASEBKGND) return false;
    PaintBackground(reinterpret_cast<HDC>(wParam));
    result = TRUE;
    return true;
}

RECT FloatingForm::FrameArea() const {
    RECT area{};
    GetClientRect(Window(), &area);
    return area;
}

void FloatingForm::PaintBackground(HDC paper) const {
    RECT area{};
    GetClientRect(Window(), &area);
    const HBRUSH nothing = CreateSolidBrush(FormFrame::LeftOut);
    FillRect(paper, &area, nothing);
    DeleteObject(nothing);
    frame.Paint(paper, FrameArea());
}
