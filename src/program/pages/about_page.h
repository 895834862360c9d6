// The About page of the main window: what this program is, where help is, and whether there is a newer version. Its
// buttons pump while a box of theirs is open.
#pragma once

#include "pages/about_page_ids.h"
#include "pages/page.h"

class AboutPage : public Page {
public:
    AboutPage() : Page(about_page_dialog) {}

    void ShowUpdateButton();  // at once

    std::string TabCaption() const override;
    std::string HelpTopic() const override { return help_topic::About; }
    void StaviFocus() const override;

private:
    std::vector<ControlRow> Rows() override;
    void OnLooks() override;
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
};

extern AboutPage aboutPage;
