// WM_HOTKEY, as the main window's procedure gets it.
#pragma once

#include <cstdint>

// Starts the job of the record `id` - 1, or a recording for id 0. The system's own ids, below 0, are none of ours. An
// id above the table shows a box and ends in a range failure. A press during a run comes here from within that run's
// pump; the job runner turns it away. Pumps for as long as the job runs.
void OnHotkey(std::intptr_t id);
