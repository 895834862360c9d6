#include "update/update_button.h"

#include "dictionary/dictionary.h"
#include "platform/boxes.h"
#include "platform/network.h"
#include "update/update_server.h"
#include "update/version_check.h"

UpdateButton updateButton;

namespace {

void SetUnderWay(bool underWay) {
    updateButton.underWay = underWay;
    update_button_view::Show();
}

}  // namespace

void ClickCheckForUpdates() {
    if (updateButton.underWay) return;
    SetUnderWay(true);
    // Without a server no connection is needed to find that out.
    if (UpdateServer().empty() || platform::IsConnected()) {
        CheckForUpdates(1);
    } else {
        platform::ShowBox(Translate("Unable to connect to server. Check your internet connection"),
                          Translate("Connection unavailable"), platform::BoxIcon::Error);
    }
    SetUnderWay(false);
}
