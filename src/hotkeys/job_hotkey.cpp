#include "hotkeys/job_hotkey.h"

#include <utility>
#include <vector>

#include "base/product.h"
#include "base/runtime_failure.h"
#include "base/text.h"
#include "dictionary/dictionary.h"
#include "hotkeys/hotkey_table.h"
#include "identity/window_identity.h"
#include "platform/hotkeys.h"
#include "platform/text.h"
#include "settings/settings.h"

namespace {

std::int32_t ModifiersOf(const HotkeyControls& controls) {
    return (controls.hot_ctrl ? HotkeyControl : 0) + (controls.hot_alt ? HotkeyAlt : 0) +
           (controls.hot_shift ? HotkeyShift : 0);
}

std::int16_t KeyOf(const HotkeyControls& controls) {
    return static_cast<std::int16_t>('A' + controls.hot_slovo);
}

Hotkey& RecordAt(std::ptrdiff_t index) {
    return CheckedAt(settings.Hotkeys, index, "Hotkey");
}

HotkeyRefusal NoModifier() {
    return {Translate("Invalid hotkey selection for job. You must select CTRL, SHIFT or ALT key."),
            Translate("Invalid HotKey"), platform::BoxIcon::None, HotkeyFocus::hot_ctrl};
}

HotkeyRefusal NoLetter() {
    return {Translate("Invalid hotkey selection") + ". " + Translate("You must select a key from 'A' to 'Z'"),
            Translate("Invalid HotKey"), platform::BoxIcon::None, HotkeyFocus::hot_slovo};
}

HotkeyRefusal TakenBy(const Hotkey& other) {
    return {Translate("Please select another key combination because this key combination is already associated with "
                      "job") +
                " \"" + BaseName(TrimView(other.job_path)) + "\"",
            ProductName, platform::BoxIcon::Error, HotkeyFocus::lista_jobs};
}

bool IsOfJob(const Hotkey& hotkey, const std::string& jobPath) {
    return platform::LowerCase(TrimView(hotkey.job_path)) == platform::LowerCase(jobPath);
}

// The index of the job's record. A job that has one keeps it.
std::ptrdiff_t PlaceForJob(const std::string& jobPath) {
    const std::ptrdiff_t found = FindHotkeyByJob(jobPath);
    if (found == NoHotkey) {
        settings.Hotkeys.emplace_back();
        return static_cast<std::ptrdiff_t>(settings.Hotkeys.size()) - 1;
    }
    // The index, and not the id, which is one more: the job's old combination lives on beside the new one until the
    // next start, and the combination of the record below goes instead, for the first record Ctrl+Shift+N. Users know
    // the program like that.
    platform::UnregisterHotkey(ownWindows.main, static_cast<int>(found));
    return found;
}

void AssignHotkey(const std::string& jobPath, const HotkeyControls& controls) {
    std::vector<Hotkey> before = settings.Hotkeys;
    const std::ptrdiff_t index = PlaceForJob(jobPath);
    RecordAt(index) = {ModifiersOf(controls), KeyOf(controls), jobPath};
    try {
        SaveSettings();
    } catch (const RuntimeFailure&) {
        settings.Hotkeys = std::move(before);
        RegisterAllHotkeys();  // what is still registered stays; the one that went comes back
        throw;
    }
    platform::RegisterHotkey(ownWindows.main, static_cast<int>(index) + 1, ModifiersOf(controls), KeyOf(controls));
}

}  // namespace

HotkeyControls HotkeyOfJob(const std::string& jobPath) {
    const std::ptrdiff_t index = FindHotkeyByJob(jobPath);
    if (index == NoHotkey) return {};
    const Hotkey& hotkey = RecordAt(index);
    const auto has = [&](std::int32_t bit) { return (hotkey.modifiers & bit) != 0; };
    const int letter = hotkey.virtual_key - 'A';
    return {true, has(HotkeyControl), has(HotkeyShift), has(HotkeyAlt),
            letter >= 0 && letter < 26 ? letter : HotkeyControls::NoLetter};
}

std::optional<HotkeyRefusal> RefusalOfHotkey(const std::string& jobPath, const HotkeyControls& controls) {
    if (!controls.assign_hotkey) return std::nullopt;
    if (ModifiersOf(controls) == 0) return NoModifier();
    if (controls.hot_slovo < 0 || controls.hot_slovo > 'Z' - 'A') return NoLetter();
    const std::ptrdiff_t taken = FindHotkeyByKeys(ModifiersOf(controls), KeyOf(controls));
    if (taken == NoHotkey || IsOfJob(RecordAt(taken), jobPath)) return std::nullopt;
    return TakenBy(RecordAt(taken));
}

std::optional<HotkeyRefusal> SaveHotkeyOfJob(const std::string& jobPath, const HotkeyControls& controls) {
    if (auto refusal = RefusalOfHotkey(jobPath, controls)) return refusal;
    if (controls.assign_hotkey) {
        AssignHotkey(jobPath, controls);
    } else {
        DropHotkeyOfJob(jobPath);
    }
    return std::nullopt;
}
