// The entry of execreator.bin, and so of every made program.
#include <windows.h>

#include <commctrl.h>

#include "guard/guard_process.h"
#include "platform/pump.h"
#include "platform/shell_folders.h"
#include "runner/run_made.h"
#include "status/executing_form.h"
#include "win32/failure_guard.h"
#include "win32/system_library.h"

namespace {

// What went wrong stands in the status window.
void AwaitReader() {
    while (executing.Visible()) {
        WaitMessage();
        platform::Pump();
    }
}

ExitCode Run() {
    ExitCode code = ExitCode::Failed;
    platform::GuardedCall([&] { code = RunMade(platform::ExecutablePath()); });
    if (code != ExitCode::Success && code != ExitCode::Cancelled) AwaitReader();
    return code;
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    platform::HardenProcess();
    if (const auto guard = GuardCommandOfThisProcess()) return RunGuard(*guard);
    const INITCOMMONCONTROLSEX controls{
        sizeof controls, ICC_STANDARD_CLASSES | ICC_PROGRESS_CLASS | ICC_LISTVIEW_CLASSES | ICC_LINK_CLASS};
    InitCommonControlsEx(&controls);
    return static_cast<int>(Run());
}
