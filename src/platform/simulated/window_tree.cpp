// The tree of windows: making and destroying, order, rectangles, what lies under a point.
#include "simulated/window_tree.h"

#include <algorithm>
#include <cctype>
#include <iterator>
#include <utility>

#include "simulated/activation.h"
#include "simulated/agenda.h"

namespace simulated {

namespace {

constexpr Rect MinimisedRect = {-32000, -32000, -31840, -31972};

struct TreeState {
    std::unordered_map<WindowHandle, Window> windows;
    std::unordered_map<WindowHandle, Reactions> reactions;
    WindowHandle lastHandle = RootHandle;
    std::vector<Rect> monitors = {{0, 0, 1280, 1024}};
    std::unordered_map<std::uint32_t, std::vector<Action>> backlog;  // the threads that hang, with what waits for them
};

TreeState& State() {
    static TreeState state = [] {
        TreeState fresh;
        Window& root = fresh.windows[RootHandle];
        root.handle = RootHandle;
        root.spec.className = "#32769";
        root.spec.rect = fresh.monitors.front();
        root.spec.thread = OtherThread;
        return fresh;
    }();
    return state;
}

bool Contains(const Rect& rect, Point point) {
    return point.x >= rect.left && point.x < rect.right && point.y >= rect.top && point.y < rect.bottom;
}

Rect Shifted(const Rect& rect, std::int32_t dx, std::int32_t dy) {
    return {rect.left + dx, rect.top + dy, rect.right + dx, rect.bottom + dy};
}

WindowHandle NextHandle() {
    return State().lastHandle += 2;
}

std::uint32_t ThreadFor(const WindowSpec& spec) {
    if (spec.thread != 0) return spec.thread;
    const Window* above = Find(spec.parent != 0 ? spec.parent : spec.owner);
    return above != nullptr ? above->spec.thread : OtherThread;
}

bool Creatable(const WindowSpec& spec) {
    return (spec.parent == 0 || Find(spec.parent) != nullptr) && (spec.owner == 0 || Find(spec.owner) != nullptr);
}

// A window under a handle that may have been given out before.
void Create(WindowHandle handle, const WindowSpec& spec) {
    if (!Creatable(spec)) return;
    Window& window = State().windows[handle];
    window.handle = handle;
    window.spec = spec;
    window.spec.thread = ThreadFor(spec);
    window.parent = spec.parent != 0 ? spec.parent : RootHandle;
    window.isEdit = SameText(spec.className, "Edit");
    Find(window.parent)->children.push_back(handle);
    if (IsTopLevel(window))
        BringToFront(window);  // a new child stays behind its siblings: tab order goes front to back
    if (IsTopLevel(window) && spec.visible && spec.active) ActivateTopLevel(window);
}

bool EffectivelyTopmost(const Window& window) {
    if (window.spec.topmost) return true;
    const Window* owner = Find(window.spec.owner);
    return owner != nullptr && EffectivelyTopmost(*owner);
}

Window* OwnerOf(const Window& window) {
    return TopLevelOf(window.spec.owner);
}

bool OwnedBy(WindowHandle window, WindowHandle owner) {
    for (Window* each = Find(window); each != nullptr; each = OwnerOf(*each)) {
        if (each->handle == owner) return true;
    }
    return false;
}

// The windows that `owner` owns, then itself: from front to back. The branch of `first` comes before the others.
void EmitGroup(const Window& owner, WindowHandle first, std::vector<WindowHandle>& group) {
    std::vector<WindowHandle> owned;
    for (const WindowHandle sibling : Root().children) {
        const Window* above = OwnerOf(*Find(sibling));
        if (above != nullptr && above->handle == owner.handle) owned.push_back(sibling);
    }
    std::stable_partition(owned.begin(), owned.end(), [first](WindowHandle window) { return OwnedBy(first, window); });
    for (const WindowHandle window : owned) EmitGroup(*Find(window), first, group);
    group.push_back(owner.handle);
}

void BringGroupToFront(Window& window) {
    if (window.spec.owner == 0 && Root().children.front() == window.handle) return;
    const Window* top = &window;
    while (const Window* owner = OwnerOf(*top)) top = owner;
    std::vector<WindowHandle> group;
    EmitGroup(*top, window.handle, group);
    std::vector<WindowHandle> order = group;
    std::ranges::remove_copy_if(Root().children, std::back_inserter(order),
                                [&group](WindowHandle each) { return std::ranges::find(group, each) != group.end(); });
    std::stable_partition(order.begin(), order.end(),
                          [](WindowHandle each) { return EffectivelyTopmost(*Find(each)); });
    Root().children = std::move(order);
}

WindowHandle HitTestIn(const Window& window, Point point) {
    const bool child = !IsTopLevel(window);
    if (!window.spec.visible || window.state == ShowState::Minimised || (child && !window.spec.enabled)) return 0;
    if (!Contains(ScreenRect(window), point)) return 0;
    // A disabled top-level window keeps what would have gone to its children.
    if (!window.spec.enabled || !Contains(ClientRect(window), point)) return window.handle;
    for (const WindowHandle each : window.children) {
        const WindowHandle hit = HitTestIn(*Find(each), point);
        if (hit != 0) return hit;
    }
    return window.handle;
}

void CallProcedure(WindowHandle window, const Message& message) {
    const Reactions* reactions = ReactionsOf(window);
    if (reactions == nullptr || !reactions->procedure) return;
    const auto procedure = reactions->procedure;  // it may destroy its window
    procedure(message);
}

}  // namespace

bool SameText(std::string_view one, std::string_view other) {
    return std::ranges::equal(
        one, other, [](unsigned char left, unsigned char right) { return std::tolower(left) == std::tolower(right); });
}

Window* Find(WindowHandle window) {
    auto& windows = State().windows;
    const auto found = windows.find(window);
    return found == windows.end() ? nullptr : &found->second;
}

Window& Root() {
    return State().windows.at(RootHandle);
}

const std::vector<Rect>& Monitors() {
    return State().monitors;
}

bool IsTopLevel(const Window& window) {
    return window.parent == RootHandle;
}

Window* TopLevelOf(WindowHandle window) {
    Window* each = Find(window);
    while (each != nullptr && !IsTopLevel(*each)) each = Find(each->parent);
    return each;
}

bool IsSelfOrDescendant(WindowHandle window, WindowHandle ancestor) {
    for (const Window* each = Find(window); each != nullptr; each = Find(each->parent)) {
        if (each->handle == ancestor) return true;
    }
    return false;
}

bool IsShown(const Window& window) {
    for (const Window* each = &window; each != nullptr; each = Find(each->parent)) {
        if (!each->spec.visible || each->state == ShowState::Minimised) return false;
    }
    return true;
}

Rect ScreenRect(const Window& window) {
    if (window.parent == 0) return window.spec.rect;
    const Rect frame = ClientRect(*Find(window.parent));
    if (window.state == ShowState::Maximised) return frame;
    if (window.state == ShowState::Minimised) return Shifted(MinimisedRect, frame.left, frame.top);
    return Shifted(window.spec.rect, frame.left, frame.top);
}

// Coordinates are those of the primary monitor, for the desktop's children too.
Rect ClientRect(const Window& window) {
    if (window.parent == 0) return Monitors().front();
    const Rect outer = ScreenRect(window);
    const Point inset = window.spec.clientOrigin;
    return {outer.left + inset.x, outer.top + inset.y, outer.right - inset.x, outer.bottom - inset.x};
}

WindowHandle HitTest(Point point) {
    const auto holds = [point](const Rect& monitor) { return Contains(monitor, point); };
    if (std::ranges::none_of(Monitors(), holds)) return 0;
    for (const WindowHandle each : Root().children) {
        const WindowHandle hit = HitTestIn(*Find(each), point);
        if (hit != 0) return hit;
    }
    return RootHandle;
}

void BringToFront(Window& window) {
    if (IsTopLevel(window)) return BringGroupToFront(window);
    auto& siblings = Find(window.parent)->children;
    const auto place = std::ranges::find(siblings, window.handle);
    std::rotate(siblings.begin(), place, place + 1);
}

const Reactions* ReactionsOf(WindowHandle window) {
    const auto& all = State().reactions;
    if (all.empty()) return nullptr;
    const auto found = all.find(window);
    return found == all.end() ? nullptr : &found->second;
}

bool IsHung(std::uint32_t thread) {
    return State().backlog.contains(thread);
}

bool DeliversAtOnce(std::uint32_t thread) {
    return thread != OwnThread && !IsHung(thread);
}

void Deliver(std::uint32_t thread, Action action) {
    const auto waiting = State().backlog.find(thread);
    if (waiting != State().backlog.end()) {
        waiting->second.push_back(std::move(action));
    } else if (thread == OwnThread) {
        Post(std::move(action));
    } else {
        action();
    }
}

WindowHandle AddWindow(const WindowSpec& spec) {
    const WindowHandle handle = NextHandle();
    Create(handle, spec);
    return handle;
}

WindowHandle AppearsAfter(std::int64_t ms, const WindowSpec& spec) {
    const WindowHandle handle = NextHandle();
    MeanwhileAfter(ms, [handle, spec] { Create(handle, spec); });
    return handle;
}

void Destroy(WindowHandle window) {
    Window* gone = Find(window);
    if (gone == nullptr || window == RootHandle) return;
    const std::vector<WindowHandle> topLevel = Root().children;
    for (const WindowHandle other : topLevel) {
        const Window* each = Find(other);
        if (each != nullptr && each->spec.owner == window) Destroy(other);
    }
    const std::vector<WindowHandle> children = gone->children;
    for (const WindowHandle child : children) Destroy(child);
    gone->spec.visible = false;
    LeaveWindow(*gone);
    std::erase(Find(gone->parent)->children, window);
    State().windows.erase(window);
    State().reactions.erase(window);
}

void SetHung(WindowHandle window, bool hung) {
    const Window* found = Find(window);
    if (found == nullptr) return;
    const std::uint32_t thread = found->spec.thread;
    if (hung) {
        State().backlog[thread];
        return;
    }
    const auto waiting = State().backlog.extract(thread);
    if (waiting.empty()) return;
    for (const Action& action : waiting.mapped()) Deliver(thread, action);
}

// The desktop's own rectangle is the smallest that holds them all.
void SetMonitors(const std::vector<Rect>& monitors) {
    State().monitors = monitors;
    Rect& whole = Root().spec.rect;
    whole = monitors.front();
    for (const Rect& monitor : monitors) {
        whole = {std::min(whole.left, monitor.left), std::min(whole.top, monitor.top),
                 std::max(whole.right, monitor.right), std::max(whole.bottom, monitor.bottom)};
    }
}

void SetScreenSize(Size size) {
    SetMonitors({{0, 0, size.width, size.height}});
}

void Raise(WindowHandle window) {
    if (Window* found = Find(window)) BringToFront(*found);
}

void SetCaption(WindowHandle window, const std::string& caption) {
    if (Window* found = Find(window)) found->spec.caption = caption;
}

void MoveWindow(WindowHandle window, Point upperLeft) {
    Window* found = Find(window);
    if (found == nullptr) return;
    Rect& rect = found->spec.rect;
    rect = Shifted(rect, upperLeft.x - rect.left, upperLeft.y - rect.top);
}

void Resize(WindowHandle window, Size size) {
    Window* found = Find(window);
    if (found == nullptr) return;
    Rect& rect = found->spec.rect;
    rect.right = rect.left + size.width;
    rect.bottom = rect.top + size.height;
}

WindowHandle Cover(WindowHandle window) {
    const Window* top = TopLevelOf(window);
    return AddWindow({.className = "Cover",
                      .caption = "Cover",
                      .rect = ScreenRectOf(window),
                      .topmost = top != nullptr && EffectivelyTopmost(*top),
                      .active = false});
}

void SetText(WindowHandle window, const std::string& text) {
    if (Window* found = Find(window)) found->text = text;
}

std::string TextOf(WindowHandle window) {
    const Window* found = Find(window);
    return found != nullptr ? found->text : std::string();
}

Rect ScreenRectOf(WindowHandle window) {
    const Window* found = Find(window);
    return found != nullptr ? ScreenRect(*found) : Rect();
}

Point CentreOf(WindowHandle window) {
    const Rect rect = ScreenRectOf(window);
    return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
}

bool IsVisible(WindowHandle window) {
    for (const Window* each = Find(window); each != nullptr; each = Find(each->parent)) {
        if (!each->spec.visible) return false;
    }
    return Find(window) != nullptr;
}

void KeepInputFrom(WindowHandle window, bool keep) {
    if (Window* top = TopLevelOf(window)) top->getsNoInput = keep;
}

void RefuseForeground(WindowHandle window, bool refuse) {
    if (Window* found = Find(window)) found->refusesForeground = refuse;
}

void RefusePlacement(WindowHandle window, bool refuse) {
    if (Window* found = Find(window)) found->refusesPlacement = refuse;
}

void OnClick(WindowHandle window, Action action) {
    State().reactions[window].onClick = std::move(action);
}

void OnKey(WindowHandle window, int virtualKey, Action action) {
    State().reactions[window].onKey[virtualKey] = std::move(action);
}

void OnMessage(WindowHandle window, std::function<void(const Message&)> procedure) {
    State().reactions[window].procedure = std::move(procedure);
}

void PostTo(WindowHandle window, const Message& message) {
    if (const Window* found = Find(window)) {
        Deliver(found->spec.thread, [window, message] { CallProcedure(window, message); });
    }
}

void SendToProgram(WindowHandle window, const Message& message) {
    SendBySystem([window, message] { CallProcedure(window, message); });
}

}  // namespace simulated
