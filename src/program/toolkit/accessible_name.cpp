#include "toolkit/accessible_name.h"

#include <commctrl.h>

#include <memory>
#include <utility>

#include "toolkit/accessible.h"
#include "toolkit/window_tools.h"

namespace {

constexpr UINT_PTR SubclassId = 0x4E616D65;

// Belongs to the control, and goes with it.
class NamedControl : public AccessibleView {
public:
    explicit NamedControl(HWND control) { accessible.Attach(control, *this); }

    std::string name;
    Accessible accessible;

private:
    std::optional<std::string> NameOf(int part) const override {
        return part == 0 ? std::optional(name) : std::nullopt;
    }
};

LRESULT CALLBACK NameThunk(HWND control, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                           DWORD_PTR data) noexcept {
    auto* const named = reinterpret_cast<NamedControl*>(data);
    if (message == WM_NCDESTROY) {
        RemoveWindowSubclass(control, NameThunk, SubclassId);
        delete named;
    } else if (message == WM_GETOBJECT) {
        std::optional<LRESULT> answer;
        Guarded<bool>(false, [&] { return (answer = named->accessible.Answer(wParam, lParam)).has_value(); });
        if (answer) return *answer;
    }
    return DefSubclassProc(control, message, wParam, lParam);
}

}  // namespace

void SetAccessibleName(HWND control, const std::string& name) {
    if (control == nullptr) return;
    DWORD_PTR known = 0;
    if (!GetWindowSubclass(control, NameThunk, SubclassId, &known)) {
        auto made = std::make_unique<NamedControl>(control);
        known = reinterpret_cast<DWORD_PTR>(made.get());
        if (SetWindowSubclass(control, NameThunk, SubclassId, known)) made.release();
    }
    auto* const named = reinterpret_cast<NamedControl*>(known);
    if (named->name == name) return;
    named->name = name;
    NotifyWinEvent(EVENT_OBJECT_NAMECHANGE, control, OBJID_CLIENT, CHILDID_SELF);
}
