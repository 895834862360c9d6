#include "support/hotkey_view_stand_in.h"

#include "hotkeys/hotkey_view.h"
#include "support/recorder.h"

HotkeyViewStandIn hotkeyViewStandIn;

namespace hotkey_view {

TELLS(hotkeyViewStandIn.calls, StartJob, const std::string&, "start " + value)
NOTES(hotkeyViewStandIn.calls, ClickCommand3)

}  // namespace hotkey_view
