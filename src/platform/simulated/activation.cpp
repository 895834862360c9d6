// Foreground and focus. Only the foreground window's thread has a focus; every top-level window remembers which of its
// windows had it last.
#include "simulated/activation.h"

#include <algorithm>
#include <unordered_map>

namespace simulated {

namespace {

struct ActivationState {
    WindowHandle foreground = 0;
    std::unordered_map<std::uint32_t, WindowHandle> focus;  // by thread
};

ActivationState& State() {
    static ActivationState state;
    return state;
}

void PutFocus(std::uint32_t thread, WindowHandle window) {
    if (window == 0) {
        State().focus.erase(thread);
    } else {
        State().focus[thread] = window;
    }
}

// What had the focus before, if it can still have it.
WindowHandle FocusOnReturn(const Window& top) {
    if (top.state == ShowState::Minimised) return 0;
    const Window* last = Find(top.lastFocus);
    const bool usable =
        last != nullptr && IsSelfOrDescendant(last->handle, top.handle) && last->spec.enabled && IsShown(*last);
    return usable ? last->handle : top.handle;
}

bool CanBeNext(const Window* window) {
    return window != nullptr && window->spec.visible && window->spec.enabled && window->spec.active &&
           window->state != ShowState::Minimised;
}

void ActivateNext(const Window& left) {
    Window* owner = TopLevelOf(left.spec.owner);
    if (CanBeNext(owner)) return ActivateTopLevel(*owner);
    const auto& windows = Root().children;
    const auto next = std::ranges::find_if(
        windows, [&left](WindowHandle each) { return each != left.handle && CanBeNext(Find(each)); });
    if (next != windows.end()) return ActivateTopLevel(*Find(*next));
    LeaveNoForeground();
}

}  // namespace

WindowHandle Foreground() {
    return State().foreground;
}

WindowHandle FocusOfThread(std::uint32_t thread) {
    const auto found = State().focus.find(thread);
    return found == State().focus.end() ? 0 : found->second;
}

WindowHandle KeyTarget() {
    const Window* foreground = Find(State().foreground);
    if (foreground == nullptr) return 0;
    const WindowHandle focus = FocusOfThread(foreground->spec.thread);
    return focus != 0 ? focus : foreground->handle;
}

void DropFocusOf(Window& top) {
    const WindowHandle focus = FocusOfThread(top.spec.thread);
    if (!IsSelfOrDescendant(focus, top.handle)) return;
    top.lastFocus = focus;
    PutFocus(top.spec.thread, 0);
}

void ReturnFocusTo(const Window& top) {
    PutFocus(top.spec.thread, FocusOnReturn(top));
}

void ActivateTopLevel(Window& top) {
    ActivationState& state = State();
    if (Window* old = Find(state.foreground); old != nullptr && old != &top) DropFocusOf(*old);
    const bool wasActive = state.foreground == top.handle;
    state.foreground = top.handle;
    BringToFront(top);
    if (!wasActive) ReturnFocusTo(top);
}

void GiveFocus(Window& window) {
    Window* top = TopLevelOf(window.handle);
    if (top == nullptr) return;
    ActivateTopLevel(*top);
    top->lastFocus = window.handle;
    PutFocus(top->spec.thread, window.handle);
}

void ActivateDesktop() {
    LeaveNoForeground();
    State().foreground = RootHandle;
}

void LeaveWindow(Window& window) {
    Window* top = TopLevelOf(window.handle);
    if (top == &window) {
        DropFocusOf(window);
        if (State().foreground == window.handle) ActivateNext(window);
        return;
    }
    if (top != nullptr && IsSelfOrDescendant(FocusOfThread(top->spec.thread), window.handle)) {
        PutFocus(top->spec.thread, window.parent);
    }
}

void Activate(WindowHandle window) {
    if (Window* top = TopLevelOf(window)) ActivateTopLevel(*top);
}

void SetFocus(WindowHandle window) {
    if (Window* found = Find(window)) GiveFocus(*found);
}

void LeaveNoForeground() {
    if (Window* old = Find(State().foreground)) DropFocusOf(*old);
    State().foreground = 0;
}

WindowHandle FocusedWindow() {
    const Window* foreground = Find(State().foreground);
    return foreground != nullptr ? FocusOfThread(foreground->spec.thread) : 0;
}

}  // namespace simulated
