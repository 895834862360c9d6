#include "controls/own_control.h"

#include "toolkit/window_tools.h"

namespace {

// The extra bytes of a window.
constexpr int ObjectAt = 0;
constexpr int FontAt = sizeof(LONG_PTR);
constexpr int ExtraBytes = 2 * sizeof(LONG_PTR);

// DefWindowProcA and the font, which dialogs give to their controls before anything can be attached.
LRESULT DefControlProc(HWND control, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_GETFONT) return GetWindowLongPtrA(control, FontAt);
    if (message != WM_SETFONT) return DefWindowProcA(control, message, wParam, lParam);
    SetWindowLongPtrA(control, FontAt, static_cast<LONG_PTR>(wParam));
    if (LOWORD(lParam) != 0) InvalidateRect(control, nullptr, TRUE);
    return 0;
}

}  // namespace

void OwnControl::RegisterControlClass(const char* name) {
    WNDCLASSEXA control{};
    control.cbSize = sizeof control;
    control.style = CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW;
    control.lpfnWndProc = WindowThunk;
    control.cbWndExtra = ExtraBytes;
    control.hInstance = ProgramInstance();
    control.hCursor = LoadCursorA(nullptr, MAKEINTRESOURCEA(32512));  // the arrow
    control.hbrBackground = GetSysColorBrush(COLOR_WINDOW);
    control.lpszClassName = name;
    RegisterClassExA(&control);
}

OwnControl::~OwnControl() {
    if (window != nullptr) SetWindowLongPtrA(window, ObjectAt, 0);
}

void OwnControl::AttachTo(HWND control) {
    window = control;
    accessible.Attach(control, *this);
    SetWindowLongPtrA(control, ObjectAt, reinterpret_cast<LONG_PTR>(this));
}

LRESULT OwnControl::Default(UINT message, WPARAM wParam, LPARAM lParam) const {
    return DefControlProc(window, message, wParam, lParam);
}

HFONT OwnControl::Font() const {
    return reinterpret_cast<HFONT>(GetWindowLongPtrA(window, FontAt));
}

// Kept with the window, where other programs can read it without a message.
void OwnControl::Say(const std::string& text) {
    if (text == said) return;
    said = text;
    Default(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
    for (const DWORD event : {EVENT_OBJECT_NAMECHANGE, EVENT_OBJECT_VALUECHANGE}) {
        NotifyWinEvent(event, window, OBJID_CLIENT, CHILDID_SELF);
    }
}

void OwnControl::SetName(const std::string& text) {
    name = text;
    if (window != nullptr) NotifyWinEvent(EVENT_OBJECT_NAMECHANGE, window, OBJID_CLIENT, CHILDID_SELF);
}

std::optional<std::string> OwnControl::NameOf(int part) const {
    return part == 0 && !name.empty() ? std::optional(name) : std::nullopt;
}

LRESULT CALLBACK OwnControl::WindowThunk(HWND control, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    auto* const self = reinterpret_cast<OwnControl*>(GetWindowLongPtrA(control, ObjectAt));
    if (self == nullptr) return DefControlProc(control, message, wParam, lParam);
    const LRESULT result = Guarded<LRESULT>(0, [&] {
        const auto told = message == WM_GETOBJECT ? self->accessible.Answer(wParam, lParam) : std::nullopt;
        return told ? *told : self->OnMessage(message, wParam, lParam);
    });
    if (message == WM_NCDESTROY) {
        self->accessible.Detach();
        self->window = nullptr;
    }
    return result;
}
