#include "support/settings_view_stand_in.h"

#include "settings/settings_view.h"

SettingsViewStandIn settingsViewStandIn;

void CopyControlsToSettings() {
    if (settingsViewStandIn.copy) settingsViewStandIn.copy();
}
