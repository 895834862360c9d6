#include "shell/exit.h"

#include "base/product.h"
#include "base/runtime_failure.h"
#include "base/text.h"
#include "dictionary/sentences.h"
#include "mainwindow/form_visible.h"
#include "platform/boxes.h"
#include "replay/timing.h"
#include "settings/settings.h"
#include "shell/shell_view.h"

namespace {

// False when they could not be saved and the user stays for that. Without the question there would be no way out of the
// program while its folder is missing.
bool SettingsDealtWith() {
    try {
        SaveSettings();
        return true;
    } catch (const RuntimeFailure& failure) {
        return platform::AskBeforeLoss(
            failure.what() + std::string(LineBreak) + Question("Do you really want to exit Tessarine"), ProductName,
            platform::BoxIcon::Warning);
    }
}

}  // namespace

void QuitProgram(bool save) {
    if (save && !SettingsDealtWith()) return;
    if (MainWindowVisible()) FormVisible(false, false);
    // A procedure that outlived the process's end would be called for a window that is going away. The order is that
    // of ownership: the lists stand on the main window.
    shell_view::RestoreJobListProcedure();
    shell_view::RestoreScheduleListProcedure();
    shell_view::RestoreMainProcedure();
    shell_view::RemoveTrayIcon();
    // This may come in the middle of a run, from inside its pump, and what goes down with the process stays down for
    // everybody.
    ReleaseStuckKeys();
    shell_view::EndProcess();
}
