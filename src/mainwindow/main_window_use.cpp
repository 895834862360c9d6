#include "mainwindow/main_window_use.h"

#include <algorithm>

#include "identity/window_identity.h"
#include "mainwindow/form_view.h"
#include "platform/boxes.h"

MainWindowUse mainWindowUse;

void MainWindowUse::Take(MainWindowHolder holder) {
    int& count = HoldsOf(holder);
    count = holder == MainWindowHolder::Run ? 1 : count + 1;
    form_view::Enable(false);
}

void MainWindowUse::GiveBack(MainWindowHolder holder) {
    int& count = HoldsOf(holder);
    count = std::max(0, count - 1);
    form_view::Enable(!IsHeld());
}

void MainWindowUse::TakeForBox(platform::WindowHandle owner) {
    ++HoldsOf(MainWindowHolder::Box);
    if (owner != 0 && owner != ownWindows.main) form_view::Enable(false);
}

bool MainWindowUse::IsFree() const {
    return !IsHeld() && form_view::IsEnabled();
}

bool MainWindowUse::IsHeld() const {
    return std::any_of(holds.begin(), holds.end(), [](int count) { return count > 0; });
}

void HoldMainWindowDuringBoxes() {
    platform::WatchBoxes({[](platform::WindowHandle owner) { mainWindowUse.TakeForBox(owner); },
                          [] { mainWindowUse.GiveBack(MainWindowHolder::Box); }});
}
