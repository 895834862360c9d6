#include "support/main_window_view_stand_in.h"

#include "replay/main_window_view.h"
#include "support/recorder.h"

MainWindowViewStandIn mainWindowViewStandIn;

namespace main_window_view {

ANSWERS(bool, IsVisible, mainWindowViewStandIn.visible)
ANSWERS(bool, IsNormal, !mainWindowViewStandIn.minimised)

void Minimise() {
    mainWindowViewStandIn.calls.emplace_back("Minimise");
    mainWindowViewStandIn.minimised = true;
}

void Restore() {
    mainWindowViewStandIn.calls.emplace_back("Restore");
    mainWindowViewStandIn.minimised = false;
}

KEEPS(Enable, bool, mainWindowViewStandIn.enabled)
KEEPS(EnableExitButton, bool, mainWindowViewStandIn.exitButtonEnabled)

}  // namespace main_window_view
