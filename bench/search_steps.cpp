// Searches of a run, which nobody listens to, for a count of their instructions: for an element that stands as
// recorded, for a window that is not there, and for an element that is missing in its window.
#include <cstdlib>
#include <string_view>

#include "platform/window_services.h"
#include "replay/target_search.h"
#include "settings/settings.h"
#include "simulated/desktop.h"

namespace {

constexpr int OtherWindows = 20;
constexpr int Searches = 20;

struct Scene {
    std::vector<WindowSignature> windows;
    std::vector<WindowChain> chains;
    platform::WindowHandle top = simulated::AddWindow({.className = "Target", .rect = {100, 100, 700, 500}});
    platform::WindowHandle edit =
        simulated::AddWindow({.className = "Edit", .rect = {0, 0, 600, 400}, .parent = top, .controlId = 15});

    Scene() {
        for (int i = 0; i < OtherWindows; ++i) {
            const auto other = simulated::AddWindow({.className = "Other", .rect = {700, 500, 900, 700}});
            simulated::AddWindow({.className = "Edit", .rect = {0, 0, 100, 100}, .parent = other, .controlId = 15});
        }
        platform::BringToForeground(top);
        platform::MoveCursorTo({300, 300});
        windows = {{platform::PlacementOf(edit), "", "Edit", 15}, {platform::PlacementOf(top), "", "Target", 0}};
        WindowChain chain;
        chain.Depth = 1;
        chain.Path[1] = 1;
        chains = {chain};
    }
};

}  // namespace

int main(int argumentCount, char** arguments) {
    const std::string_view wanted = argumentCount > 1 ? arguments[1] : "";
    simulated::KeepJournals(false);
    settings.Display_Executing_Status = 0;
    Scene scene;
    int expected = TargetReady;
    if (wanted == "window") {
        scene.windows[1].ClassName = "Missing";
        expected = TargetWindowMissing;
    } else if (wanted == "element") {
        scene.windows[0].ClassName = "Missing";
        expected = TargetElementMissing;
    } else if (wanted != "in place") {
        return EXIT_FAILURE;
    }
    SearchRequest request;
    request.waitSeconds = 1;
    std::string reason;
    for (int i = 0; i < Searches; ++i) {
        if (FindTarget(request, scene.windows, scene.chains, reason) != expected) return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
