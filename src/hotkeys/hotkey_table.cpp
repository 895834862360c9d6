#include "hotkeys/hotkey_table.h"

#include <algorithm>

#include "base/text.h"
#include "identity/window_identity.h"
#include "platform/hotkeys.h"
#include "platform/pump.h"
#include "platform/text.h"
#include "settings/settings.h"

HotkeyRegistration hotkeyRegistration;

namespace {

template <class Condition>
std::ptrdiff_t FirstHotkey(Condition condition) {
    const auto& table = settings.Hotkeys;
    const auto found = std::find_if(table.begin(), table.end(), condition);
    return found == table.end() ? NoHotkey : found - table.begin();
}

}  // namespace

void RegisterAllHotkeys() {
    if (hotkeyRegistration.recordCombination) {
        platform::RegisterHotkey(ownWindows.main, RecordHotkeyId, HotkeyControl | HotkeyShift, RecordHotkeyLetter);
    }
    int id = RecordHotkeyId;
    for (const Hotkey& hotkey : settings.Hotkeys) {
        platform::RegisterHotkey(ownWindows.main, ++id, hotkey.modifiers, hotkey.virtual_key);
    }
}

void UnregisterAllHotkeys() {
    const int lastId = static_cast<int>(settings.Hotkeys.size());
    for (int id = RecordHotkeyId; id <= lastId; ++id) platform::UnregisterHotkey(ownWindows.main, id);
    platform::Pump();
}

std::ptrdiff_t FindHotkeyByJob(const std::string& path) {
    const std::string wanted = platform::LowerCase(path);
    return FirstHotkey([&](const Hotkey& hotkey) { return platform::LowerCase(TrimView(hotkey.job_path)) == wanted; });
}

std::ptrdiff_t FindHotkeyByKeys(std::int32_t modifiers, std::int16_t virtualKey) {
    return FirstHotkey(
        [&](const Hotkey& hotkey) { return hotkey.virtual_key == virtualKey && hotkey.modifiers == modifiers; });
}

void DropHotkeyOfJob(const std::string& path) {
    if (FindHotkeyByJob(path) == NoHotkey) return;
    UnregisterAllHotkeys();
    // Looked up again: the pump may have let something change the table.
    const std::ptrdiff_t index = FindHotkeyByJob(path);
    if (index != NoHotkey) DeleteHotkey(index, true);
    RegisterAllHotkeys();
}
