// edit_job_form, the window of the job editor: toolbar and menu, the grid of rows, the pane of the selected ones, and
// below them the place for keystrokes, plain text or the description, with the on-screen keyboard. What can be done to
// the job and what is shown of it stands in editor/; the form carries it back and forth.
//
// It is modeless, owned by the main window, and lives from the opening of a job to its closing. Its place and the
// widths of its columns are kept.
#pragma once

#include <windows.h>

#include <string>

#include "controls/keystroke_box_control.h"
#include "controls/number_picker.h"
#include "controls/onscreen_keyboard.h"
#include "job_editor/edit_job_ids.h"
#include "job_editor/job_grid.h"
#include "toolkit/form.h"
#include "toolkit/help_topics.h"

class EditJobForm : public Form {
public:
    EditJobForm() : Form(edit_job_dialog) {}

    void Load(HWND owner);  // makes it, shows it in its place of last time, and gives the grid the focus
    void PodesiRjecnik() override;

    void ShowRows();
    void RepaintRows();
    void ShowAll();  // buttons, title, pane, description
    bool AskJobName(std::string& name);
    void PutAside();
    void BringBack();
    void StandAboveOwner() const;  // when both have come back from somewhere

    // --- of the keystrokes ---
    void ShowText();
    void FocusText() const;
    bool TextHasKeyboard() const { return HasKeyboard(Control(edit_job_Text1)); }
    void LeaveText() const;
    void ClearPlainText() const;
    void FocusPlainText() const;
    bool PlainTextHasKeyboard() const { return HasKeyboard(Control(edit_job_plain_text)); }
    void AppendPlainText(const std::string& text) const;
    void FocusGrid() const;

private:
    std::vector<ControlRow> Rows() override;
    std::string HelpTopic() const override { return help_topic::JobEditor; }
    std::string Caption() const override;
    void OnInit() override;
    void OnUnload() override;
    void OnLooks() override;
    void OnLayout() override;
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    void OnChanged(int id) override;
    bool OnClicked(int id) override;
    bool OnKey(const MSG& message) override;
    unsigned VisiblePanels() const override;
    std::optional<COLORREF> BackColour() const override { return GetSysColor(COLOR_3DFACE); }
    COLORREF TextColour(int id) const override;
    int FocusInsteadOf(int id) const override;

    std::vector<ControlRow> FileRows();
    std::vector<ControlRow> CommandRows();
    std::vector<ControlRow> TimingRows();
    std::vector<ControlRow> TargetRows();
    std::vector<ControlRow> KeystrokeRows();
    std::vector<ControlRow> BottomRows();
    Member PickerText(std::function<std::string()> text);

    void PreparePickers();
    void FillChoices() const;
    void OnCommandCode(int id, int code);
    void OnEnter();
    void OnEdit();
    void Leave();
    void ShowTarget();

    JobGrid grid;
    NumberPicker delay_mk{INT32_MIN, INT32_MAX};
    NumberPicker duration_mk{0, INT32_MAX};
    NumberPicker wait_for_window_ms{0, INT32_MAX};
    KeystrokeBoxControl Text1;
    OnscreenKeyboardControl keyboard;
    bool updatingPane = false;   // what the pickers report meanwhile is our own doing
    bool targetApplies = false;  // as the labels' colours have it
    bool jobIsOpen = false;
};

extern EditJobForm editJobForm;
