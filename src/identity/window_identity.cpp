#include "identity/window_identity.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <utility>

#include "base/product.h"
#include "base/runtime_failure.h"
#include "identity/live_chain.h"
#include "identity/signature_index.h"
#include "platform/boxes.h"
#include "platform/input.h"
#include "platform/pump.h"
#include "platform/window_services.h"
#include "trace/debug_trace.h"

using platform::WindowHandle;

WindowArrays windowArrays;
OwnWindows ownWindows;

namespace {

constexpr std::int32_t SpareElements = 100;
constexpr std::int32_t FewFreeWindows = 20;
constexpr std::size_t UsualLevels = 8;

SignatureIndex signatureIndex;  // over windowArrays.windows

std::int32_t CountOf(const auto& array) {
    return static_cast<std::int32_t>(array.size());
}

bool IsOwnWindow(WindowHandle root) {
    return root != 0 &&
           (root == ownWindows.main || root == ownWindows.replayStatus || root == ownWindows.recordingStatus);
}

// The foreground window is a top-level one, as a rule.
WindowHandle TopOfTarget(bool byFocus) {
    return byFocus ? platform::ForegroundWindow()
                   : platform::TopLevelOf(platform::WindowAt(platform::CursorPosition()));
}

// The window whose chain is to be captured; none when the input is not to be recorded at all.
std::optional<LiveChain> CaptureTarget(bool byFocus) {
    WindowHandle foreground = 0;
    LiveChain target(byFocus ? FocusedWindow(foreground) : platform::WindowAt(platform::CursorPosition()));
    if (!IsOwnWindow(target.Root())) return target;
    if (!byFocus) return std::nullopt;
    return LiveChain(platform::FindTopWindow("Progman", "Program Manager"));
}

WindowSignature Describe(LiveChain& target, std::int32_t level) {
    const WindowHandle window = target.Handle(level);
    WindowSignature signature;
    signature.Placement = platform::PlacementOf(window);
    signature.Caption = target.Caption(level);
    signature.ClassName = target.ClassName(level);
    signature.ControlId = platform::ControlIdOf(window);
    return signature;
}

// The index of the signature for the last level of `path`; a new one where no stored one fits.
std::int32_t SignatureFor(WindowSignature&& live, const std::vector<std::int32_t>& path) {
    const auto stored = signatureIndex.FindFirst(windowArrays.windows, live, path);
    if (stored) {
        DebugTrace("Koristim spremljeni prozor: ");
        return *stored;
    }
    const std::int32_t index = CountOf(windowArrays.windows);
    windowArrays.windows.push_back(std::move(live));
    if (windowArrays.windowCapacity - CountOf(windowArrays.windows) < FewFreeWindows) windowArrays.growWindows = true;
    DebugTrace("Spremljen NP: ");
    return index;
}

// True when the level just filled is the last.
bool EndsAt(LiveChain& target, std::int32_t level) {
    const WindowHandle parent = target.Handle(level + 1);
    if (parent < 0) {
        platform::CallOutsideHooks([] { platform::ShowBox("handle manji od nula!!!!", ProductName); });
    }
    return parent <= 0 || target.IsFoundByName(level);
}

[[noreturn]] void RefuseDepth() {
    throw RuntimeFailure(FailureKind::Range,
                         "More than " + std::to_string(WindowChain::MaximumLevels) + " windows lie in each other.");
}

// The chain is built aside: the free one of the array belongs to whichever capture ends last.
std::vector<std::int32_t> BuildPath(LiveChain& target) {
    std::vector<std::int32_t> path;
    path.reserve(UsualLevels);
    for (std::int32_t level = 0; level < WindowChain::MaximumLevels; ++level) {
        path.push_back(0);
        path.back() = SignatureFor(Describe(target, level), path);
        if (EndsAt(target, level)) return path;
    }
    RefuseDepth();
}

void StoreChain(std::int32_t index, const std::vector<std::int32_t>& path) {
    auto& chains = windowArrays.chains;
    chains.Append();
    chains.Set(static_cast<std::size_t>(index), path);  // another capture, inside this one, may have done so before
    if (std::floor(0.9 * windowArrays.chainCapacity) <= CountOf(chains)) windowArrays.growChains = true;
}

}  // namespace

void ResetWindowArrays(const std::vector<WindowSignature>& windows, const std::vector<WindowChain>& chains) {
    windowArrays = {};
    windowArrays.windowCapacity = CountOf(windows) + SpareElements;
    windowArrays.chainCapacity = CountOf(chains) + SpareElements;
    windowArrays.windows = windows;
    windowArrays.chains = chains;
    windowArrays.windows.Reserve(static_cast<std::size_t>(windowArrays.windowCapacity));
    windowArrays.chains.Reserve(static_cast<std::size_t>(windowArrays.chainCapacity));
    signatureIndex.Rebuild(windowArrays.windows);
}

bool IsForOwnBox(bool byFocus) {
    const WindowHandle top = TopOfTarget(byFocus);
    if (top == 0 || top == windowArrays.lastForeign || IsOwnWindow(top)) return false;
    const bool own = platform::ThreadOf(top) == platform::CurrentThread();
    if (!own) windowArrays.lastForeign = top;
    return own;
}

WindowHandle FocusedWindow(WindowHandle& foreground) {
    foreground = platform::ForegroundWindow();
    // The task bar takes keys as a whole, whatever in it has the focus.
    if (foreground == 0 || LiveClass(foreground) == "Shell_TrayWnd") return foreground;
    const std::uint32_t thread = platform::ThreadOf(foreground);
    if (thread == 0 || thread == platform::CurrentThread()) return ownWindows.main;
    const platform::FocusAnswer focus = platform::FocusOf(thread);
    return focus.attached && focus.window != 0 ? focus.window : foreground;
}

bool WindowPlacementsEqual(const platform::WindowPlacement& stored, const platform::WindowPlacement& current) {
    // The last line crosses x with y, and job files are made with it: a window whose maximised position has an x other
    // than its y never equals itself. That must stay, or those files would match other windows than they did.
    return stored.flags == current.flags && stored.rcNormalPosition == current.rcNormalPosition &&
           stored.ptMinPosition.x == current.ptMinPosition.x && stored.ptMaxPosition.y == current.ptMaxPosition.y &&
           stored.ptMaxPosition.x == current.ptMaxPosition.y;
}

int CaptureWindow(JobEvent& event, bool byFocus) {
    std::optional<LiveChain> target = CaptureTarget(byFocus);
    if (!target) return 0;
    const std::int32_t index = CountOf(windowArrays.chains);
    const std::vector<std::int32_t> path = BuildPath(*target);
    DebugTrace("===:");
    StoreChain(index, path);
    event.WindowChainIndex = index;
    return CountOf(path);
}
