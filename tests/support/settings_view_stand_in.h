// The controls of a test that hold settings.
#pragma once

#include <functional>

struct SettingsViewStandIn {
    std::function<void()> copy;  // what the controls would do to `settings`; nothing if empty
};
extern SettingsViewStandIn settingsViewStandIn;
