// The page of the main window with the saved jobs: the list, the commands on the selected job, and its replay
// properties. The rules are those of mainwindow/job_page.h; this form carries their values to and fro. What runs a job,
// asks or tells pumps.
#pragma once

#include <windows.h>

#include "controls/list_control.h"
#include "hotkeys/job_hotkey.h"
#include "toolkit/tool_tips.h"
#include "widgets/mnemonics.h"

class JobPageForm {
public:
    void Create(HWND mainWindow);  // not visible
    HWND Window() const { return window; }

    void PodesiRjecnik(Mnemonics letters);  // `letters`: those that the main window uses itself
    void Show();                            // the controls, as jobPage has them
    void Focus() const;
    void FocusOn(HotkeyFocus control);
    void OpenMenuJobs();
    void PosiviSve(bool grey) const;
    void OnDpiChanged();

    void OnEnter();                  // saves what was changed
    bool OnKeyDown(int virtualKey);  // before the control with the focus gets it; true when it was for the page

private:
    template <class Form>
    friend INT_PTR CALLBACK FormThunk(HWND, UINT, WPARAM, LPARAM) noexcept;
    bool OnInitDialog(HWND page);
    INT_PTR OnDialogMessage(UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR OnCommand(int control, int code);
    void OnClicked(int control);
    void OnEdited(int control);
    void OnLeft(int control);
    void OnSlider(HWND slider);
    void OnHotkeyChanged();
    void CommitSpeed();
    void RunMenuCommand(int command);

    HWND Control(int control) const { return GetDlgItem(window, control); }
    void ShowTabs() const;
    void ShowSpeed();
    void ShowRepeat() const;
    void ShowAdvanced();
    void ShowHotkey() const;
    void ShowEnabled() const;
    void ShowTips();
    void SetFonts();

    HWND window = nullptr;
    ListControl lista_jobs;
    ToolTips tips;
    HFONT boldFont = nullptr;
    bool showing = false;      // what the controls report meanwhile is our own doing
    bool speedEdited = false;  // Options_speed holds what was typed, and not yet taken over
};
