#include "pages/about_page.h"

#include "base/product.h"
#include "dictionary/sentences.h"
#include "shell/about.h"
#include "shell/help.h"
#include "toolkit/window_tools.h"
#include "update/update_button.h"

AboutPage aboutPage;

namespace {

std::string Version() {
    return Labelled("Program version", ProductVersion);
}

std::string ReleaseDate() {
    return Labelled("Release date", ProductReleaseDate);
}

std::string WhyNoPages() {
    return HasWebPages() ? "" : Translate("No web address is set up for this copy of Tessarine.");
}

std::string Command4() {
    return updateButton.underWay ? Ellipsis("Please wait") : Translate("Check for updates");
}

}  // namespace

std::vector<ControlRow> AboutPage::Rows() {
    return {
        {.id = about_page_heading, .caption = "About Tessarine", .anchors = AcrossTop, .font = {170, FW_SEMIBOLD}},
        {.id = about_page_version, .caption = Version, .anchors = AcrossTop},
        {.id = about_page_release_date, .caption = ReleaseDate, .anchors = AcrossTop},
        {.id = about_page_help_frame, .caption = "Help", .anchors = AcrossTop},
        {.id = about_page_help, .caption = "Launch Tessarine help", .clicked = [] { OpenHelp(help_topic::None); }},
        {.id = about_page_homepage, .caption = "Homepage", .enabled = HasWebPages, .clicked = OpenHomepage},
        {.id = about_page_support, .caption = "Support", .enabled = HasWebPages, .clicked = OpenSupport},
        {.id = about_page_no_pages, .member = Shown(WhyNoPages), .anchors = AcrossTop},
        {.id = about_page_updates, .caption = "Updates", .anchors = AcrossTop},
        {.id = about_page_explanation,
         .caption = {"To make sure you have the latest version of Tessarine, click the button below", Label},
         .anchors = AcrossTop},
        {.id = about_page_Command4,
         .caption = Command4,
         .enabled = [] { return !updateButton.underWay; },
         .clicked = ClickCheckForUpdates},
    };
}

std::string AboutPage::TabCaption() const {
    return Translate("About");
}

void AboutPage::OnLooks() {
    SetPicture(Window(), about_page_Picture1);
}

void AboutPage::StaviFocus() const {
    SetFocus(Control(about_page_help));
}

void AboutPage::ShowUpdateButton() {
    const HWND button = Control(about_page_Command4);
    PodesiRjecnik();
    UpdateWindow(button);
    if (!updateButton.underWay && Visible()) SetFocus(button);  // it was there when the button was pressed
}

// The address of the pages may have been set meanwhile.
bool AboutPage::OnMessage(UINT message, WPARAM wParam, LPARAM, LRESULT&) {
    if (message == WM_SHOWWINDOW && wParam) Refresh();
    return false;
}

// --- the view ---

void update_button_view::Show() {
    aboutPage.ShowUpdateButton();
}
