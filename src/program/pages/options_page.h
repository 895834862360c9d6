// The Options page of the main window: the switches of the program as a whole. Each writes its setting at the moment it
// changes. The buttons pump while what they open is open.
#pragma once

#include "pages/options_page_ids.h"
#include "pages/page.h"

class OptionsPage : public Page {
public:
    OptionsPage() : Page(options_page_dialog) {}

    void ShowOptions();  // as settings, registry and language have them

    std::string TabCaption() const override;
    std::string HelpTopic() const override { return help_topic::Options; }
    void StaviFocus() const override;

private:
    std::vector<ControlRow> Rows() override;
    void OnInit() override;
    void OnChanged(int id) override;
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

    int language_combo = 0;
};

extern OptionsPage optionsPage;
