#include "shell/exit.h"

#include "mainwindow/form_visible.h"
#include "replay/timing.h"
#include "settings/settings.h"
#include "shell/shell_view.h"

void QuitProgram(bool save) {
    if (save) SaveSettings();
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
