#include "shell/exit.h"

#include "mainwindow/form_visible.h"
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
    shell_view::EndProcess();
}
