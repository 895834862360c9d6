// start_app, the dialog before a recording: a program to start as the recording begins. It lives from its opening to
// its closing; what it takes and refuses is in recording/start_app.h. It implements start_app_view.
#pragma once

#include "forms/start_app_ids.h"
#include "recording/start_app.h"
#include "toolkit/form.h"
#include "toolkit/help_topics.h"

class StartAppForm : public Form {
public:
    StartAppForm() : Form(start_app_dialog) {}
    void ShowModal();  // pumps

private:
    std::vector<ControlRow> Rows() override;
    std::string HelpTopic() const override { return help_topic::StartProgram; }
    std::string Caption() const override;
    void OnInit() override;
    bool OnLoad() override;
    bool OnClicked(int id) override;

    void OnCheck(int text, bool ticked);
    void OnCommand1();
    void OnCommand2();

    StartAppControls controls;
};
