#include "hotkeys/hotkey_view.h"
#include "replay/run_job.h"

void hotkey_view::StartJob(const std::string& path) {
    RunJob(path, 0, "", true);
}
