// Command4, the button "Check for updates" of the About page.
#pragma once

struct UpdateButton {
    bool underWay = false;  // the button says so, and cannot be pressed
};
extern UpdateButton updateButton;

// A click on it. Blocks as the check does, and pumps while its box is open.
void ClickCheckForUpdates();

// The About page implements it; in the tests a stand-in does.
namespace update_button_view {

void Show();  // as updateButton has it, at once: nothing is painted while the server is waited for

}  // namespace update_button_view
