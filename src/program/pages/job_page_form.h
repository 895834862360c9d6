// The page of the main window with the saved jobs: the list, the commands on the selected job, and its replay
// properties. The rules are those of mainwindow/job_page.h; this form carries their values to and fro, and implements
// job_page_view. What runs a job, asks or tells pumps.
#pragma once

#include "controls/list_control.h"
#include "hotkeys/job_hotkey.h"
#include "pages/job_page_ids.h"
#include "pages/page.h"

class JobPageForm : public Page {
public:
    JobPageForm() : Page(job_page_dialog) {}

    void FocusOn(HotkeyFocus control);
    void OpenMenuJobs();
    void PosiviSve(bool grey);

    std::string TabCaption() const override;
    std::string HelpTopic() const override;  // of the sub-tab, when the keyboard is there
    void StaviFocus() const override;
    void OnEnter() override;  // saves what was changed
    bool OnKeyDown(int virtualKey) override;
    void PodesiRjecnik() override;

private:
    static LRESULT CALLBACK SpeedThunk(HWND edit, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                       DWORD_PTR page) noexcept;
    std::vector<ControlRow> Rows() override;
    std::vector<ControlRow> ActionRows();
    std::vector<ControlRow> TabRows();
    std::vector<ControlRow> SpeedRows();
    std::vector<ControlRow> RepeatRows();
    std::vector<ControlRow> AdvancedRows();
    std::vector<ControlRow> HotkeyRows();
    unsigned VisiblePanels() const override;
    void OnInit() override;
    void OnLayout() override;
    std::string TopicOfPanel() const;
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    int FocusInsteadOf(int) const override { return job_page_lista_jobs; }

    Member SpeedBox();
    Member RepeatBox();
    void StepSpeedBox(int steps);
    void CommitSpeed();

    ListControl lista_jobs;
    bool isGrey = false;
    bool speedEdited = false;  // Options_speed holds what was typed, and not yet taken over
};

extern JobPageForm jobPageForm;
