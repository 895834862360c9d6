#include "hotkeys/hotkey_table.h"

void RegisterAllHotkeys() {}

void UnregisterAllHotkeys() {}
