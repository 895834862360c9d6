// schedule_warning: the question at the exit while a scheduled run is near. Its texts and rules are those of
// scheduler/exit_request.h; it implements schedule_warning_view. While it is open, the main window is disabled.
#pragma once

#include "forms/schedule_ids.h"
#include "toolkit/form.h"
#include "toolkit/help_topics.h"

class ScheduleWarningForm : public Form {
public:
    ScheduleWarningForm() : Form(schedule_warning_dialog) {}
    void ShowModal();  // pumps; nothing is asked when the system refuses, and the program stays
    void End();        // nothing when it is not open

private:
    std::vector<ControlRow> Rows() override;
    std::string HelpTopic() const override { return help_topic::ScheduleWarning; }
    std::string Caption() const override;
    void OnInit() override;
    bool OnLoad() override;
    void OnLooks() override;
    bool OnClicked(int id) override;
};

extern ScheduleWarningForm scheduleWarningForm;
