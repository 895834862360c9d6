#include "toolkit/accessible_name.h"

#include <commctrl.h>
#include <oleacc.h>

#include <memory>
#include <utility>

#include "toolkit/accessible.h"
#include "toolkit/window_tools.h"

namespace {

constexpr UINT_PTR SubclassId = 0x4E616D65;
constexpr const char* NamedProperty = "TessarineNamedControl";

// Belongs to the control, and goes with it.
class NamedControl : public AccessibleView {
public:
    explicit NamedControl(HWND named) : control(named) { accessible.Attach(named, *this); }

    std::string name;
    std::optional<long> role;
    Accessible accessible;

private:
    std::optional<std::string> NameOf(int part) const override {
        return part == 0 ? std::optional(name) : std::nullopt;
    }
    std::optional<long> RoleOf(int) const override { return role; }
    std::optional<std::string> ValueOf(int) const override {
        return role ? std::optional(WindowText(control)) : std::nullopt;
    }
    std::optional<long> StateOf(int) const override {
        if (!role) return std::nullopt;
        return (IsWindowEnabled(control) ? STATE_SYSTEM_FOCUSABLE : STATE_SYSTEM_UNAVAILABLE) |
               (GetFocus() == control ? STATE_SYSTEM_FOCUSED : 0L);
    }

    HWND control;
};

LRESULT CALLBACK NameThunk(HWND control, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                           DWORD_PTR data) noexcept {
    auto* const named = reinterpret_cast<NamedControl*>(data);
    if (message == WM_NCDESTROY) {
        RemoveWindowSubclass(control, NameThunk, SubclassId);
        RemovePropA(control, NamedProperty);
        delete named;
    } else if (message == WM_GETOBJECT) {
        std::optional<LRESULT> answer;
        Guarded<bool>(false, [&] { return (answer = named->accessible.Answer(wParam, lParam)).has_value(); });
        if (answer) return *answer;
    }
    return DefSubclassProc(control, message, wParam, lParam);
}

NamedControl* MakeNamed(HWND control) {
    auto made = std::make_unique<NamedControl>(control);
    const auto data = reinterpret_cast<DWORD_PTR>(made.get());
    if (!SetWindowSubclass(control, NameThunk, SubclassId, data)) return nullptr;
    SetPropA(control, NamedProperty, made.get());
    return made.release();
}

}  // namespace

void SetAccessibleName(HWND control, const std::string& name, std::optional<long> role) {
    if (control == nullptr) return;
    auto* named = static_cast<NamedControl*>(GetPropA(control, NamedProperty));
    if (named == nullptr) named = MakeNamed(control);
    if (named == nullptr) return;
    named->role = role;
    if (named->name == name) return;
    named->name = name;
    NotifyWinEvent(EVENT_OBJECT_NAMECHANGE, control, OBJID_CLIENT, CHILDID_SELF);
}
