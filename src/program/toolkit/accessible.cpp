#include "toolkit/accessible.h"

#include <oleacc.h>

#include <utility>

#include "toolkit/window_tools.h"
#include "win32/system_library.h"

namespace {

// MinGW's constant of this name is that of another interface.
const IID& InterfaceId = __uuidof(IAccessible);

// Loaded when somebody asks: most people have no screen reader.
struct AccessibilityFunctions {
    LRESULT(WINAPI* lresultFromObject)(REFIID, WPARAM, LPUNKNOWN);
    HRESULT(WINAPI* createStandard)(HWND, LONG, REFIID, void**);
};

const AccessibilityFunctions& Functions() {
    static const AccessibilityFunctions functions = {
        platform::SystemFunction<decltype(AccessibilityFunctions::lresultFromObject)>("oleacc.dll",
                                                                                      "LresultFromObject"),
        platform::SystemFunction<decltype(AccessibilityFunctions::createStandard)>("oleacc.dll",
                                                                                   "CreateStdAccessibleObject")};
    return functions;
}

BSTR WideText(const std::string& text) {
    const int length = MultiByteToWideChar(CP_ACP, 0, text.data(), static_cast<int>(text.size()), nullptr, 0);
    const BSTR wide = SysAllocStringLen(nullptr, static_cast<UINT>(length));
    if (wide != nullptr) MultiByteToWideChar(CP_ACP, 0, text.data(), static_cast<int>(text.size()), wide, length);
    return wide;
}

HRESULT Give(const std::string& text, BSTR* result) {
    *result = text.empty() ? nullptr : WideText(text);
    return *result == nullptr ? S_FALSE : S_OK;
}

HRESULT Give(long number, VARIANT* result) {
    result->vt = VT_I4;
    result->lVal = number;
    return S_OK;
}

HRESULT GiveNothing(VARIANT* result) {
    result->vt = VT_EMPTY;
    return S_FALSE;
}

VARIANT ItselfOf() {
    VARIANT itself{};
    itself.vt = VT_I4;
    itself.lVal = CHILDID_SELF;
    return itself;
}

}  // namespace

// Counted, as COM objects are: a client may keep it longer than the control lives.
class Accessible::Object final : public IAccessible {
public:
    Object(HWND window, AccessibleView& shown) : control(window), view(&shown) {
        if (Functions().createStandard != nullptr) {
            void* made = nullptr;
            Functions().createStandard(window, OBJID_CLIENT, InterfaceId, &made);
            standard = static_cast<IAccessible*>(made);
        }
    }
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;

    void Disconnect() { view = nullptr; }

    // --- IUnknown, IDispatch ---

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) noexcept override {
        const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDispatch) || IsEqualIID(id, InterfaceId);
        *result = known ? this : nullptr;
        if (known) AddRef();
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return static_cast<ULONG>(InterlockedIncrement(&references)); }
    ULONG STDMETHODCALLTYPE Release() noexcept override {
        const LONG left = InterlockedDecrement(&references);
        if (left == 0) delete this;
        return static_cast<ULONG>(left);
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override {
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) noexcept override {
        return E_NOTIMPL;
    }

    // --- what it is ---

    HRESULT STDMETHODCALLTYPE get_accParent(IDispatch** parent) noexcept override {
        *parent = nullptr;
        return standard == nullptr ? S_FALSE : standard->get_accParent(parent);
    }
    HRESULT STDMETHODCALLTYPE get_accChildCount(long* count) noexcept override {
        return Answer(*count, 0L, [&] {
            const int parts = view->PartCount();
            if (parts > 0 || standard == nullptr) return *count = parts, S_OK;
            return standard->get_accChildCount(count);
        });
    }
    HRESULT STDMETHODCALLTYPE get_accChild(VARIANT child, IDispatch** part) noexcept override {
        *part = nullptr;  // parts are no objects of their own
        const bool own = view != nullptr && view->PartCount() > 0;
        return own || standard == nullptr ? S_FALSE : standard->get_accChild(child, part);
    }
    HRESULT STDMETHODCALLTYPE get_accName(VARIANT child, BSTR* name) noexcept override {
        return Text(child, name, &AccessibleView::NameOf, &IAccessible::get_accName);
    }
    HRESULT STDMETHODCALLTYPE get_accValue(VARIANT child, BSTR* value) noexcept override {
        return Text(child, value, &AccessibleView::ValueOf, &IAccessible::get_accValue);
    }
    HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT child, BSTR* text) noexcept override {
        return Text(child, text, &AccessibleView::DescriptionOf, &IAccessible::get_accDescription);
    }
    HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT child, BSTR* action) noexcept override {
        return Text(child, action, &AccessibleView::ActionOf, &IAccessible::get_accDefaultAction);
    }
    HRESULT STDMETHODCALLTYPE get_accRole(VARIANT child, VARIANT* role) noexcept override {
        return Number(child, role, &AccessibleView::RoleOf, &IAccessible::get_accRole);
    }
    HRESULT STDMETHODCALLTYPE get_accState(VARIANT child, VARIANT* state) noexcept override {
        return Number(child, state, &AccessibleView::StateOf, &IAccessible::get_accState);
    }
    HRESULT STDMETHODCALLTYPE get_accHelp(VARIANT, BSTR* help) noexcept override { return Give("", help); }
    HRESULT STDMETHODCALLTYPE get_accHelpTopic(BSTR* file, VARIANT, long* topic) noexcept override {
        *topic = 0;
        return Give("", file);
    }
    HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT child, BSTR* keys) noexcept override {
        *keys = nullptr;
        return standard == nullptr ? S_FALSE : standard->get_accKeyboardShortcut(child, keys);
    }

    // --- where it is, and what is chosen ---

    HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT* focus) noexcept override {
        return Answer(focus->vt, static_cast<VARTYPE>(VT_EMPTY), [&] {
            if (GetFocus() != control) return GiveNothing(focus);
            return Give(view->SelectedPart(), focus);
        });
    }
    HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT* selection) noexcept override {
        return Answer(selection->vt, static_cast<VARTYPE>(VT_EMPTY), [&] {
            const int part = view->SelectedPart();
            return part == 0 ? GiveNothing(selection) : Give(part, selection);
        });
    }
    HRESULT STDMETHODCALLTYPE accSelect(long, VARIANT child) noexcept override {
        if (view == nullptr) return CO_E_OBJNOTCONNECTED;
        const Held held(*this);
        return IsPart(child) && Guarded<bool>(false, [&] { return view->Select(child.lVal); }) ? S_OK : E_INVALIDARG;
    }
    HRESULT STDMETHODCALLTYPE accLocation(long* left, long* top, long* width, long* height,
                                          VARIANT child) noexcept override {
        if (view == nullptr) return CO_E_OBJNOTCONNECTED;
        RECT place{};
        if (IsPart(child)) {
            place = view->PlaceOf(child.lVal);
        } else {
            GetWindowRect(control, &place);
        }
        *left = place.left;
        *top = place.top;
        *width = place.right - place.left;
        *height = place.bottom - place.top;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE accNavigate(long direction, VARIANT start, VARIANT* end) noexcept override {
        if (view == nullptr) return CO_E_OBJNOTCONNECTED;
        if (view->PartCount() == 0 ||
            (!IsPart(start) && direction != NAVDIR_FIRSTCHILD && direction != NAVDIR_LASTCHILD)) {
            return standard == nullptr ? GiveNothing(end) : standard->accNavigate(direction, start, end);
        }
        const int part = Neighbour(direction, start.lVal);
        return part < 1 || part > view->PartCount() ? GiveNothing(end) : Give(part, end);
    }
    HRESULT STDMETHODCALLTYPE accHitTest(long x, long y, VARIANT* child) noexcept override {
        return Answer(child->vt, static_cast<VARTYPE>(VT_EMPTY), [&] {
            RECT place{};
            GetWindowRect(control, &place);
            if (!PtInRect(&place, {x, y})) return GiveNothing(child);
            return Give(view->PartAt({x, y}), child);
        });
    }
    HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT child) noexcept override {
        if (view == nullptr) return CO_E_OBJNOTCONNECTED;
        const Held held(*this);
        if (Guarded<bool>(false, [&] { return view->DoAction(child.lVal); })) return S_OK;
        return standard == nullptr ? DISP_E_MEMBERNOTFOUND : standard->accDoDefaultAction(child);
    }
    HRESULT STDMETHODCALLTYPE put_accName(VARIANT, BSTR) noexcept override { return DISP_E_MEMBERNOTFOUND; }
    HRESULT STDMETHODCALLTYPE put_accValue(VARIANT child, BSTR value) noexcept override {
        return standard == nullptr ? DISP_E_MEMBERNOTFOUND : standard->put_accValue(child, value);
    }

private:
    ~Object() {
        if (standard != nullptr) standard->Release();
    }

    bool IsPart(const VARIANT& child) const {
        return child.vt == VT_I4 && child.lVal >= 1 && child.lVal <= view->PartCount();
    }

    bool Exists(const VARIANT& child) const {
        return child.vt == VT_I4 && (child.lVal == CHILDID_SELF || IsPart(child));
    }

    static int Neighbour(long direction, long part) {
        if (direction == NAVDIR_NEXT || direction == NAVDIR_DOWN) return static_cast<int>(part) + 1;
        if (direction == NAVDIR_PREVIOUS || direction == NAVDIR_UP) return static_cast<int>(part) - 1;
        return direction == NAVDIR_FIRSTCHILD ? 1 : 0;
    }

    // A failure of the program's is shown, and is none of the client's.
    template <class Value, class Call>
    HRESULT Answer(Value& result, Value otherwise, Call&& call) noexcept {
        result = otherwise;
        return view == nullptr ? CO_E_OBJNOTCONNECTED : Guarded<HRESULT>(E_FAIL, call);
    }

    // What changes the control may end it, and this object with it, if nobody else holds it.
    class Held {
    public:
        explicit Held(Object& heldObject) : object(heldObject) { object.AddRef(); }
        Held(const Held&) = delete;
        Held& operator=(const Held&) = delete;
        ~Held() { object.Release(); }

    private:
        Object& object;
    };

    HRESULT Text(const VARIANT& child, BSTR* result, std::optional<std::string> (AccessibleView::*ask)(int) const,
                 HRESULT (STDMETHODCALLTYPE IAccessible::*askStandard)(VARIANT, BSTR*)) noexcept {
        *result = nullptr;
        if (view == nullptr) return CO_E_OBJNOTCONNECTED;
        if (!Exists(child) && view->PartCount() > 0) return E_INVALIDARG;
        return Guarded<HRESULT>(E_FAIL, [&]() -> HRESULT {
            const auto text = (view->*ask)(static_cast<int>(child.lVal));
            if (text) return Give(*text, result);
            return standard == nullptr || IsPart(child) ? S_FALSE : (standard->*askStandard)(ItselfOf(), result);
        });
    }

    HRESULT Number(const VARIANT& child, VARIANT* result, std::optional<long> (AccessibleView::*ask)(int) const,
                   HRESULT (STDMETHODCALLTYPE IAccessible::*askStandard)(VARIANT, VARIANT*)) noexcept {
        result->vt = VT_EMPTY;
        if (view == nullptr) return CO_E_OBJNOTCONNECTED;
        if (!Exists(child) && view->PartCount() > 0) return E_INVALIDARG;
        return Guarded<HRESULT>(E_FAIL, [&]() -> HRESULT {
            const auto number = (view->*ask)(static_cast<int>(child.lVal));
            if (number) return Give(*number, result);
            return standard == nullptr || IsPart(child) ? S_FALSE : (standard->*askStandard)(ItselfOf(), result);
        });
    }

    HWND control;
    AccessibleView* view;
    IAccessible* standard = nullptr;
    LONG references = 1;
};

void Accessible::Attach(HWND window, AccessibleView& shown) {
    Detach();
    control = window;
    view = &shown;
}

void Accessible::Detach() {
    view = nullptr;
    if (object == nullptr) return;
    object->Disconnect();
    std::exchange(object, nullptr)->Release();
}

std::optional<LRESULT> Accessible::Answer(WPARAM wParam, LPARAM lParam) {
    const bool asked = static_cast<LONG>(lParam) == OBJID_CLIENT;
    if (!asked || view == nullptr || Functions().lresultFromObject == nullptr) return std::nullopt;
    if (object == nullptr) object = new Object(control, *view);
    return Functions().lresultFromObject(InterfaceId, wParam, object);
}
