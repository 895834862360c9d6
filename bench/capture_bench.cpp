// One window capture in a long recording against the same capture in a short one. It runs in a low-level hook, so the
// signatures that are stored already must not slow it down.
#include <string>
#include <vector>

#include "bench/ratio.h"
#include "identity/window_identity.h"
#include "simulated/desktop.h"

namespace {

using platform::WindowHandle;

constexpr int Few = 100;
constexpr int Many = 10'000;
constexpr int CapturesPerRound = 200;
constexpr int Rounds = 31;
constexpr double Limit = 2.0;

struct Stage {
    WindowHandle editor;
    WindowHandle button;
};

// A program as they are, with a few others on the screen.
Stage SetStage() {
    for (int i = 0; i < 20; ++i) {
        simulated::AddWindow(
            {.className = "Other", .caption = "Window " + std::to_string(i), .rect = {900, 0, 999, 99}});
    }
    const WindowHandle editor = simulated::AddWindow({.className = "Editor", .caption = "a.txt - Editor"});
    const WindowHandle panel =
        simulated::AddWindow({.className = "Panel", .rect = {0, 0, 300, 200}, .parent = editor, .controlId = 5});
    const WindowHandle button = simulated::AddWindow(
        {.className = "Button", .caption = "OK", .rect = {9, 9, 99, 33}, .parent = panel, .controlId = 1});
    return {editor, button};
}

// Windows of other programs, and of this one at other places.
std::vector<WindowSignature> Signatures(int count) {
    std::vector<WindowSignature> windows(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        WindowSignature& window = windows[static_cast<std::size_t>(i)];
        window.Placement.ptMinPosition = window.Placement.ptMaxPosition = {-1, -1};
        window.Placement.rcNormalPosition = {i, i / 2, i + 400, i / 2 + 300};
        window.Caption = i % 2 == 0 ? "a.txt - Editor" : "Page " + std::to_string(i / 10);
        window.ClassName = i % 2 == 0 ? "Editor" : "Window";
    }
    return windows;
}

void Capture(WindowHandle window) {
    simulated::PlaceCursor(simulated::CentreOf(window));
    JobEvent event;
    CaptureWindow(event, false);
}

void CaptureTheSame(const Stage& stage) {
    for (int i = 0; i < CapturesPerRound; ++i) Capture(stage.button);
}

// Every capture stores a new signature.
void CaptureMoving(const Stage& stage) {
    for (int i = 0; i < CapturesPerRound; ++i) {
        simulated::MoveWindow(stage.editor, {i, 500});
        Capture(stage.button);
    }
}

using Captures = void (*)(const Stage&);

// Seconds for a round of captures in a recording that holds `count` signatures already.
double Measure(Captures captures, const Stage& stage, int count) {
    ResetWindowArrays(Signatures(count));
    windowArrays.chains.Reserve(CapturesPerRound + 1);
    Capture(stage.button);
    return bench::ProcessorSeconds([&] { captures(stage); });
}

void Compare(const std::string& title, Captures captures, const Stage& stage) {
    std::vector<double> few;
    std::vector<double> many;
    for (int round = 0; round < Rounds; ++round) {
        few.push_back(Measure(captures, stage, Few));
        many.push_back(Measure(captures, stage, Many));
    }
    bench::Report(title, bench::Median(many) / bench::Median(few), Limit);
}

}  // namespace

int main() {
    const Stage stage = SetStage();
    Compare("capture a known window, 10,000 / 100", CaptureTheSame, stage);
    Compare("capture a moving window, 10,000 / 100", CaptureMoving, stage);
    return bench::ExitCode();
}
