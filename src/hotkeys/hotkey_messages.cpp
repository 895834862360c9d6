#include "hotkeys/hotkey_messages.h"

#include "base/product.h"
#include "base/runtime_failure.h"
#include "base/text.h"
#include "hotkeys/hotkey_table.h"
#include "hotkeys/hotkey_view.h"
#include "platform/boxes.h"
#include "settings/settings.h"

void OnHotkey(std::intptr_t id) {
    if (id < RecordHotkeyId) return;
    if (id == RecordHotkeyId) return hotkey_view::ClickCommand3();
    if (id > static_cast<std::intptr_t>(settings.Hotkeys.size())) platform::ShowBox("HotKey error!", ProductName);
    const std::string path = Trim(CheckedAt(settings.Hotkeys, id - 1, "Hotkey").job_path);  // the table may change
    hotkey_view::StartJob(path);
}
