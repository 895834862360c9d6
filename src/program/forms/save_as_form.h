// Save_As_Form: the name of a new recording. It lives from its opening to its closing; the rules are in
// library/save_as.h.
//
// Whatever goes wrong with a save, the dialog stays open with all that was typed. While it is open, the main window is
// disabled.
#pragma once

#include <string>

#include "forms/save_as_ids.h"
#include "toolkit/form.h"
#include "toolkit/help_topics.h"

class SaveAsForm : public Form {
public:
    SaveAsForm() : Form(Save_As_Form_dialog) {}
    bool ShowModal();  // pumps; true when the recording was saved

private:
    std::vector<ControlRow> Rows() override;
    std::string HelpTopic() const override { return help_topic::SaveAs; }
    std::string Caption() const override;
    void OnInit() override;
    bool OnLoad() override;
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    bool OnClicked(int id) override;

    void OnCommand1();
    void OnTimer1();
    void Leave();
    void End(INT_PTR result);
    void SelectName();

    bool shortcut = false;
    std::string name;
    std::string description;
};
