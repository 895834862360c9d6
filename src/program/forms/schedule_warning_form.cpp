#include "forms/schedule_warning_form.h"

#include "forms/dialog_owner.h"
#include "mainwindow/main_window_use.h"
#include "scheduler/exit_request.h"
#include "scheduler/schedule_warning_view.h"
#include "toolkit/window_tools.h"

ScheduleWarningForm scheduleWarningForm;

namespace {

Member Text(const std::string& text) {
    return Shown([&text] { return text; });
}

}  // namespace

// --- what it is ---

std::string ScheduleWarningForm::Caption() const {
    return scheduleWarning.title;
}

std::vector<ControlRow> ScheduleWarningForm::Rows() {
    return {
        {.id = schedule_warning_job, .member = Text(scheduleWarning.job), .font = {100, FW_BOLD}},
        {.id = schedule_warning_starts_in, .member = Text(scheduleWarning.startsIn)},
        {.id = schedule_warning_Label2, .member = Text(scheduleWarning.Label2), .font = {110, FW_BOLD}},
        {.id = schedule_warning_Label6, .member = Text(scheduleWarning.Label6)},
        {.id = schedule_warning_not_running, .member = Text(scheduleWarning.notRunning)},
        {.id = schedule_warning_question, .member = Text(scheduleWarning.question)},
        {.id = schedule_warning_Command2_button, .caption = "YES", .clicked = schedule_warning_Command2},
        {.id = schedule_warning_command3_button, .caption = "NO", .clicked = schedule_warning_command3},
    };
}

void ScheduleWarningForm::OnInit() {
    mainWindowUse.Take(MainWindowHolder::Dialog);
}

bool ScheduleWarningForm::OnLoad() {
    PutInMiddle(Window());
    SetForegroundWindow(Window());
    SetFocus(Control(schedule_warning_command3_button));  // a key that was meant for something else ends nothing
    return false;
}

void ScheduleWarningForm::OnLooks() {
    SetPicture(Window(), schedule_warning_Picture1);
}

bool ScheduleWarningForm::OnClicked(int id) {
    if (id == IDCANCEL) schedule_warning_command3();
    return id == IDCANCEL;
}

// --- life ---

void ScheduleWarningForm::ShowModal() {
    RunModal(OwnerOfDialog());
}

// The main window first: as long as it is disabled, the foreground would go to another program.
void ScheduleWarningForm::End() {
    if (Window() == nullptr) return;
    mainWindowUse.GiveBack(MainWindowHolder::Dialog);
    Close();
}

// --- the view ---

namespace schedule_warning_view {

void ShowModal() {
    scheduleWarningForm.ShowModal();
}

void Refresh() {
    scheduleWarningForm.Refresh();
}

void Unload() {
    scheduleWarningForm.End();
}

}  // namespace schedule_warning_view
