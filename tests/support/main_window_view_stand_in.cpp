#include "support/main_window_view_stand_in.h"

#include "replay/main_window_view.h"

MainWindowViewStandIn mainWindowViewStandIn;

namespace main_window_view {

bool IsVisible() {
    return mainWindowViewStandIn.visible;
}

bool IsNormal() {
    return !mainWindowViewStandIn.minimised && !mainWindowViewStandIn.maximised;
}

void Minimise() {
    mainWindowViewStandIn.calls.push_back("Minimise");
    mainWindowViewStandIn.minimised = true;
}

void Restore() {
    mainWindowViewStandIn.calls.push_back("Restore");
    mainWindowViewStandIn.minimised = false;
    mainWindowViewStandIn.maximised = false;
}

void Enable(bool enable) {
    mainWindowViewStandIn.calls.push_back(enable ? "Enable" : "Disable");
    mainWindowViewStandIn.enabled = enable;
}

void EnableExitButton(bool enable) {
    mainWindowViewStandIn.calls.push_back(enable ? "EnableExitButton" : "DisableExitButton");
    mainWindowViewStandIn.exitButtonEnabled = enable;
}

}  // namespace main_window_view
