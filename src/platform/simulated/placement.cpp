// Show states and placements, as GetWindowPlacement and SetWindowPlacement tell them.
#include "simulated/placement.h"

#include <array>

#include "platform/window_services.h"
#include "simulated/activation.h"
#include "simulated/agenda.h"

namespace simulated {

namespace {

constexpr std::uint32_t SetMinPosition = 1;      // WPF_SETMINPOSITION
constexpr std::uint32_t RestoreToMaximised = 2;  // WPF_RESTORETOMAXIMIZED
constexpr std::uint32_t PlacementLength = 44;    // sizeof(WINDOWPLACEMENT)

enum class Change : std::uint8_t { Hide, Keep, Normal, Minimise, Maximise, Restore };
enum class Activation : std::uint8_t { None, Take, Leave };

struct ShowRule {
    Change change;
    Activation activation;
};

// By show command.
constexpr std::array<ShowRule, 12> ShowRules = {{
    {Change::Hide, Activation::Leave},      // SW_HIDE
    {Change::Normal, Activation::Take},     // SW_SHOWNORMAL
    {Change::Minimise, Activation::Take},   // SW_SHOWMINIMIZED
    {Change::Maximise, Activation::Take},   // SW_SHOWMAXIMIZED
    {Change::Normal, Activation::None},     // SW_SHOWNOACTIVATE
    {Change::Keep, Activation::Take},       // SW_SHOW
    {Change::Minimise, Activation::Leave},  // SW_MINIMIZE
    {Change::Minimise, Activation::None},   // SW_SHOWMINNOACTIVE
    {Change::Keep, Activation::None},       // SW_SHOWNA
    {Change::Restore, Activation::Take},    // SW_RESTORE
    {Change::Normal, Activation::Take},     // SW_SHOWDEFAULT
    {Change::Minimise, Activation::Leave},  // SW_FORCEMINIMIZE
}};

ShowState StateAfter(const Window& window, Change change) {
    switch (change) {
        case Change::Normal:
            return ShowState::Normal;
        case Change::Minimise:
            return ShowState::Minimised;
        case Change::Maximise:
            return ShowState::Maximised;
        case Change::Restore:
            return window.state == ShowState::Minimised && window.restoresToMaximised ? ShowState::Maximised
                                                                                      : ShowState::Normal;
        default:
            return window.state;
    }
}

// A command that changes nothing leaves order and foreground alone, as Windows does.
bool ApplyState(Window& window, Change change) {
    const ShowState before = window.state;
    const bool wasVisible = window.spec.visible;
    window.state = StateAfter(window, change);
    window.spec.visible = change != Change::Hide;
    if (window.state == ShowState::Minimised && before != ShowState::Minimised) {
        window.restoresToMaximised = before == ShowState::Maximised;
    }
    return window.state != before || window.spec.visible != wasVisible;
}

std::uint32_t ShowCommandOf(const Window& window) {
    switch (window.state) {
        case ShowState::Minimised:
            return platform::ShowMinimized;
        case ShowState::Maximised:
            return platform::ShowMaximized;
        default:
            return platform::ShowNormal;
    }
}

void ApplyPlacement(WindowHandle handle, const platform::WindowPlacement& placement) {
    Window* window = Find(handle);
    if (window == nullptr) return;
    if ((placement.flags & SetMinPosition) != 0) window->minPosition = placement.ptMinPosition;
    window->maxPosition = placement.ptMaxPosition;
    window->spec.rect = placement.rcNormalPosition;
    ShowAs(*window, placement.showCmd);
    if (window->state == ShowState::Minimised && (placement.flags & RestoreToMaximised) != 0) {
        window->restoresToMaximised = true;
    }
}

}  // namespace

void ShowAs(Window& window, std::uint32_t showCommand) {
    if (showCommand >= ShowRules.size()) return;
    const ShowRule rule = ShowRules[showCommand];
    if (!ApplyState(window, rule.change)) return;
    if (rule.activation == Activation::Leave) return LeaveWindow(window);
    if (!IsTopLevel(window)) return;
    if (window.state == ShowState::Minimised) DropFocusOf(window);
    if (rule.activation != Activation::Take) return;
    ActivateTopLevel(window);
    ReturnFocusTo(window);
}

void Minimise(WindowHandle window) {
    if (Window* found = Find(window)) ShowAs(*found, 6);
}

void Maximise(WindowHandle window) {
    if (Window* found = Find(window)) ShowAs(*found, platform::ShowMaximized);
}

void Restore(WindowHandle window) {
    if (Window* found = Find(window)) ShowAs(*found, 9);
}

void SetVisible(WindowHandle window, bool visible) {
    if (Window* found = Find(window)) ShowAs(*found, visible ? 5 : 0);
}

void SetEnabled(WindowHandle window, bool enabled) {
    if (Window* found = Find(window)) found->spec.enabled = enabled;
}

}  // namespace simulated

namespace platform {

using simulated::Window;

WindowPlacement PlacementOf(WindowHandle window) {
    const Window* found = simulated::Find(window);
    if (found == nullptr) return {};
    const bool toMaximised = found->state == simulated::ShowState::Minimised && found->restoresToMaximised;
    return {simulated::PlacementLength,
            toMaximised ? simulated::RestoreToMaximised : 0,
            simulated::ShowCommandOf(*found),
            found->minPosition,
            found->maxPosition,
            found->spec.rect};
}

bool SetPlacement(WindowHandle window, const WindowPlacement& placement) {
    const Window* found = simulated::Find(window);
    if (found == nullptr || found->refusesPlacement || window == simulated::RootHandle) return false;
    const std::uint32_t thread = found->spec.thread;
    if (!simulated::IsHung(thread)) {
        simulated::ApplyPlacement(window, placement);
        return true;
    }
    simulated::Deliver(thread, [window, placement] { simulated::ApplyPlacement(window, placement); });
    Sleep(simulated::HungMilliseconds);
    return false;
}

}  // namespace platform
