// What logic asks of the main window, which made programs and the command line have not.
#include "replay/main_window_view.h"
#include "settings/settings_view.h"

namespace main_window_view {

bool IsVisible() {
    return false;
}

bool IsNormal() {
    return false;
}

void Minimise() {}

void Restore() {}

void Enable(bool) {}

void EnableExitButton(bool) {}

}  // namespace main_window_view

void CopyControlsToSettings() {}
