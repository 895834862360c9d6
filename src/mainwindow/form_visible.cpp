#include "mainwindow/form_visible.h"

#include "base/product.h"
#include "dictionary/dictionary.h"
#include "mainwindow/form_view.h"
#include "platform/registry.h"
#include "platform/tray.h"

FormVisibility formVisibility;

namespace {

constexpr const char* ToldValue = "ToldOfNotificationArea";

// Told once for good, and not at each start: where the registry refuses, it is told again.
void TellOfNotificationArea() {
    const std::string key = std::string("Software\\") + ProductName;
    if (platform::ReadRegistry(key, ToldValue)) return;
    const std::string text =
        Translate("Tessarine goes on running in the notification area. Double-click its icon to open it again.");
    if (platform::ShowTrayBalloon(ProductName, text)) platform::WriteRegistry(key, ToldValue, "1");
}

}  // namespace

void FormVisible(bool show, bool keepState) {
    if (formVisibility.visible == show) return;
    formVisibility.visible = show;  // first: setting the state below comes back here through the resize
    WordTrayEntry();
    if (show && !keepState && form_view::IsMinimised()) form_view::BringToNormal();
    form_view::SetVisible(show);
}

bool MainWindowVisible() {
    return formVisibility.visible.value_or(false);
}

void CloseToTray() {
    if (!MainWindowVisible()) return;
    FormVisible(false, false);
    TellOfNotificationArea();
}

void FormResized() {
    const bool minimised = form_view::IsMinimised();
    if (minimised == formVisibility.minimised) return;  // a hidden window that is merely resized stays hidden
    formVisibility.minimised = minimised;
    FormVisible(!minimised, true);
}

void WordTrayEntry() {
    form_view::SetTrayOpenCaption(Translate(MainWindowVisible() ? "&Hide Tessarine" : "&Show Tessarine"));
}
