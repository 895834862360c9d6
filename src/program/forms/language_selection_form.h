// language_selection, the dialog of a first start. It speaks English, as no language is chosen yet, so its texts stand
// in its template. What it does and when it opens is in shell/language_selection.h, whose view it implements.
#pragma once

#include "forms/language_selection_ids.h"
#include "toolkit/form.h"
#include "toolkit/help_topics.h"

class LanguageSelectionForm : public Form {
public:
    LanguageSelectionForm() : Form(language_selection_dialog) {}
    void ShowModal();  // pumps

private:
    std::vector<ControlRow> Rows() override;
    std::string HelpTopic() const override { return help_topic::Language; }
    bool OnLoad() override;
    void OnLooks() override;
    bool OnClicked(int id) override;
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

    void OnCommand1();
};
