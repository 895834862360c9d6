// The windows of the desktop as the program asks for them.
#include "platform/window_services.h"

#include <algorithm>

#include "platform/clock.h"
#include "simulated/activation.h"
#include "simulated/agenda.h"
#include "simulated/window_tree.h"

namespace platform {

using simulated::Find;
using simulated::SameText;
using simulated::Window;

namespace {

constexpr std::size_t LongestClass = 99;
constexpr std::size_t LongestCaption = 1023;

// The system makes its list first and then walks it; windows that vanish on the way are left out.
bool Visit(const std::vector<WindowHandle>& windows, const WindowVisitor& visit) {
    return std::ranges::all_of(windows, [&visit](WindowHandle each) { return Find(each) == nullptr || visit(each); });
}

void ListDescendants(const Window& window, std::vector<WindowHandle>& list) {
    for (const WindowHandle child : window.children) {
        list.push_back(child);
        ListDescendants(*Find(child), list);
    }
}

bool ThreadHasWindows(std::uint32_t thread) {
    std::vector<WindowHandle> all;
    ListDescendants(simulated::Root(), all);
    return std::ranges::any_of(all, [thread](WindowHandle each) { return Find(each)->spec.thread == thread; });
}

}  // namespace

WindowHandle WindowAt(Point point) {
    return simulated::HitTest(point);
}

WindowHandle ForegroundWindow() {
    return simulated::Foreground();
}

WindowHandle DesktopRoot() {
    return simulated::RootHandle;
}

bool BringToForeground(WindowHandle window) {
    Window* top = simulated::TopLevelOf(window);
    if (top == nullptr || top->refusesForeground) return false;
    if (simulated::IsHung(top->spec.thread)) {
        Sleep(simulated::HungMilliseconds);
        return false;
    }
    simulated::ActivateTopLevel(*top);
    return true;
}

std::uint32_t ThreadOf(WindowHandle window) {
    const Window* found = Find(window);
    return found != nullptr ? found->spec.thread : 0;
}

std::uint32_t CurrentThread() {
    return simulated::OwnThread;
}

FocusAnswer FocusOf(std::uint32_t thread) {
    if (thread == simulated::OwnThread) return {};  // AttachThreadInput refuses a thread to itself
    if (simulated::IsHung(thread)) {
        Sleep(simulated::HungMilliseconds);
        return {};
    }
    const WindowHandle focus = simulated::FocusOfThread(thread);
    if (focus == 0 && !ThreadHasWindows(thread)) return {};
    return {true, focus};
}

bool GiveFocus(WindowHandle window) {
    simulated::Window* const found = Find(window);
    const simulated::Window* const top = simulated::TopLevelOf(window);
    if (found == nullptr || top == nullptr || !found->spec.enabled || !simulated::IsShown(*found)) return false;
    if (simulated::IsHung(top->spec.thread)) {
        Sleep(simulated::HungMilliseconds);
        return false;
    }
    if (simulated::Foreground() != top->handle) return false;
    simulated::GiveFocus(*found);
    return true;
}

WindowHandle ParentOf(WindowHandle window) {
    const Window* found = Find(window);
    if (found == nullptr || window == simulated::RootHandle) return 0;
    return simulated::IsTopLevel(*found) ? found->spec.owner : found->parent;
}

WindowHandle TopLevelOf(WindowHandle window) {
    const Window* top = simulated::TopLevelOf(window);
    return top == nullptr ? 0 : top->handle;
}

WindowHandle FindTopWindow(const std::string& className, const std::string& caption) {
    for (const WindowHandle each : simulated::Root().children) {
        const simulated::WindowSpec& spec = Find(each)->spec;
        if (spec.captionBeyondCodePage) continue;
        if (SameText(spec.className, className) && SameText(spec.caption, caption)) return each;
    }
    return 0;
}

void ForEachTopWindow(const WindowVisitor& visit) {
    const std::vector<WindowHandle> windows = simulated::Root().children;
    Visit(windows, visit);
}

void ForEachDescendant(WindowHandle window, const WindowVisitor& visit) {
    if (window == 0) return ForEachTopWindow(visit);  // as EnumChildWindows does without a window
    const Window* found = Find(window);
    if (found == nullptr) return;
    std::vector<WindowHandle> windows;
    ListDescendants(*found, windows);
    Visit(windows, visit);
}

std::string ClassOf(WindowHandle window) {
    const Window* found = Find(window);
    return found != nullptr ? found->spec.className.substr(0, LongestClass) : std::string();
}

std::string CaptionOf(WindowHandle window) {
    const Window* found = Find(window);
    return found != nullptr ? found->spec.caption.substr(0, LongestCaption) : std::string();
}

std::int32_t ControlIdOf(WindowHandle window) {
    const Window* found = Find(window);
    return found != nullptr ? found->spec.controlId : 0;
}

bool IsShown(WindowHandle window) {
    return simulated::IsVisible(window);
}

bool WindowExists(WindowHandle window) {
    return Find(window) != nullptr;
}

}  // namespace platform
