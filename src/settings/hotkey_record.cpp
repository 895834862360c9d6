#include "settings/hotkey_record.h"

#include "settings/delete_record.h"
#include "settings/settings.h"

void DeleteHotkey(std::ptrdiff_t index, bool no_save) {
    constexpr const char* nothingThere = "Error deleting hotkeys. There are no registered hotkeys to delete.";
    if (!DeleteRecord(settings.Hotkeys, index, nothingThere, "Hotkey")) return;
    if (!no_save) SaveSettings();
}
