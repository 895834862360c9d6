// The page of the main window on which jobs get their schedules, in two views: new_schedule builds one, old_schedule
// lists them and tells what is next. The rules are those of scheduler/schedule_page.h and schedule_list.h; this form
// carries their values to and fro, and implements schedule_page_view. What runs a job, asks or tells pumps.
#pragma once

#include "controls/list_control.h"
#include "controls/number_picker.h"
#include "controls/time_picker.h"
#include "pages/page.h"
#include "pages/schedule_page_ids.h"
#include "scheduler/schedule_page_view.h"

class SchedulePageForm : public Page {
public:
    SchedulePageForm() : Page(schedule_page_dialog) {}

    void FocusOn(schedule_page_view::Focus control);
    void OpenMenu_Schedule();

    std::string TabCaption() const override;
    std::string HelpTopic() const override { return help_topic::Schedules; }
    void StaviFocus() const override;
    void OnEnter() override;  // saves the schedule, or opens the selected one
    bool OnKeyDown(int virtualKey) override;
    void PodesiRjecnik() override;

private:
    std::vector<ControlRow> Rows() override;
    std::vector<ControlRow> ViewRows();
    std::vector<ControlRow> JobRows();
    std::vector<ControlRow> DayRows();
    std::vector<ControlRow> StartRows();
    std::vector<ControlRow> SaveRows();
    std::vector<ControlRow> ListRows();
    std::vector<ControlRow> InfoRows();
    std::vector<ControlRow> UpcomingRows();
    unsigned VisiblePanels() const override;
    void OnInit() override;
    void OnLooks() override;
    void OnLayout() override;
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    int FocusInsteadOf(int id) const override;

    Member JobChooser();
    void FillTypes() const;
    void OnTypesClosed();
    void SelectName() const;
    void OnDateChanged(const SYSTEMTIME& date);

    ListControl schedule_lista;
    TimePicker start_time;
    NumberPicker monthly_day{1, 31};
    std::vector<std::string> shownJobs;  // the rows of Lista_Schedule
    bool typeChosen = false;             // in the open list of types, which the user still walks through
    LONG typesClosed = 0;                // when that list was closed, as GetMessageTime tells
};

extern SchedulePageForm schedulePageForm;
