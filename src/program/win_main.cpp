// The entry of tessarine.exe.
#include <windows.h>

#include <commctrl.h>

#include "guard/guard_process.h"
#include "shell/help.h"
#include "shell/startup.h"
#include "toolkit/form.h"
#include "win32/failure_guard.h"
#include "win32/message_loop.h"
#include "win32/system_library.h"

namespace {

constexpr int FailedStart = 1;

void LoadControls() {
    const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_STANDARD_CLASSES | ICC_PROGRESS_CLASS | ICC_TAB_CLASSES |
                                                             ICC_BAR_CLASSES | ICC_UPDOWN_CLASS | ICC_DATE_CLASSES |
                                                             ICC_LINK_CLASS};
    InitCommonControlsEx(&controls);
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    platform::HardenProcess();
    if (const auto guard = GuardCommandOfThisProcess()) return RunGuard(*guard);
    LoadControls();
    Form::UseHelp([](const std::string& topic) { OpenHelp(topic); });
    bool stays = false;
    if (!platform::GuardedCall([&] { stays = Main(); })) return FailedStart;
    return stays ? platform::RunMessageLoop() : 0;
}
