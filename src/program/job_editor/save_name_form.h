// The box that asks for a name when the open job is saved as another one. It knows nothing of names: what is wrong with
// one is told after it has closed, and it is asked for again (editor/save_job.h).
#pragma once

#include <string>

#include "job_editor/edit_job_ids.h"
#include "toolkit/form.h"
#include "toolkit/help_topics.h"

class SaveNameForm : public Form {
public:
    explicit SaveNameForm(std::string& name) : Form(save_name_dialog), typed(name) {}

    // With the name whole to be typed over; pumps. False when the user cancelled.
    bool Ask(HWND owner);

private:
    std::vector<ControlRow> Rows() override;
    std::string HelpTopic() const override { return help_topic::SaveName; }
    std::string Caption() const override;
    void OnInit() override;
    bool OnLoad() override;
    bool OnClicked(int id) override;

    std::string& typed;
};
