// The hotkey of one job, between the Hotkey tab of the job page and the table: what the tab shows for a job, and what
// saving the tab does. The tab's controls are a plain struct here; the page carries the values back and forth.
#pragma once

#include <optional>
#include <string>

#include "platform/boxes.h"

struct HotkeyControls {
    static constexpr int NoLetter = -1;

    bool assign_hotkey = false;
    bool hot_ctrl = false;
    bool hot_shift = false;
    bool hot_alt = false;
    int hot_slovo = NoLetter;  // ("letter") 0 'A' ... 25 'Z'

    // The boxes and the list of letters can be used only while a hotkey is assigned.
    bool KeysEnabled() const { return assign_hotkey; }
    friend bool operator==(const HotkeyControls&, const HotkeyControls&) = default;
};

enum class HotkeyFocus { hot_ctrl, hot_slovo, lista_jobs };

// Why a combination is not accepted. The page selects the Hotkey tab, shows the box, then moves the focus.
struct HotkeyRefusal {
    std::string text;
    std::string title;
    platform::BoxIcon icon = platform::BoxIcon::None;
    HotkeyFocus focus = HotkeyFocus::hot_ctrl;
};

// What the tab shows for a job; all empty for one without a hotkey.
HotkeyControls HotkeyOfJob(const std::string& jobPath);

// Whether the controls can be saved for this job; changes nothing.
std::optional<HotkeyRefusal> RefusalOfHotkey(const std::string& jobPath, const HotkeyControls& controls);

// Gives the job the combination, or takes the one that it has, and gives it to the system. Nothing changes when it is
// refused. A new combination is written to the settings file at once; one that was dropped is not. A file failure
// leaves table and system as they were. Pumps when one is dropped.
std::optional<HotkeyRefusal> SaveHotkeyOfJob(const std::string& jobPath, const HotkeyControls& controls);
