#include "mainwindow/tray_events.h"

#include "mainwindow/form_view.h"
#include "mainwindow/form_visible.h"
#include "mainwindow/main_window_use.h"
#include "platform/clock.h"
#include "platform/pump.h"
#include "recording/recording_state.h"
#include "replay/run_job.h"

TrayEvents trayEvents;

namespace {

// Two callback messages can come from one double click.
constexpr std::int64_t ToggleGuardMs = 80;

bool InterfaceIsFree() {
    return mainWindowUse.IsFree() && !runState.ReplayRunning;
}

void OnDoubleClick() {
    const std::int64_t now = platform::TickCount();
    if (trayEvents.lastToggleMs && now - *trayEvents.lastToggleMs < ToggleGuardMs) return;
    if (!InterfaceIsFree()) return;
    trayEvents.lastToggleMs = now;
    ToggleFromTray();
}

void ServeIcon(unsigned message) {
    if (message == TrayLeftDoubleClick) OnDoubleClick();
    // After a run whose program was missing nothing else is left to the user but to end the program.
    if (message == TrayRightUp && (InterfaceIsFree() || runState.programWasMissing)) form_view::OpenTrayMenu();
}

}  // namespace

void ToggleFromTray() {
    FormVisible(!MainWindowVisible(), false);
}

void OnTrayMessage(unsigned message) {
    if (message != TrayLeftDown && message != TrayLeftDoubleClick && message != TrayRightUp) return;
    if (RecordingActive()) {
        return StopRecordingFromTray(message == TrayRightUp ? TrayButton::Right : TrayButton::Left);
    }
    platform::CallOutsideHooks([message] { ServeIcon(message); });
}
