// The page of the main window from which a recording is started, with the options of recordings. A change of an option
// is saved at once. The record button pumps for as long as the dialogs before a recording are open.
#pragma once

#include <windows.h>

#include "controls/number_picker.h"
#include "toolkit/tool_tips.h"
#include "widgets/mnemonics.h"

class RecordPage {
public:
    void Create(HWND mainWindow);  // not visible
    HWND Window() const { return window; }

    void PodesiRjecnik(Mnemonics letters);  // `letters`: those that the main window uses itself
    void ShowOptions();                     // the options, as the settings have them
    void CopyOptions() const;               // and back; does nothing before they were shown
    void Focus() const;
    void ClickCommand3();  // Enter, anywhere on the page
    void OnDpiChanged();

private:
    template <class Form>
    friend INT_PTR CALLBACK FormThunk(HWND, UINT, WPARAM, LPARAM) noexcept;
    bool OnInitDialog(HWND page);
    INT_PTR OnDialogMessage(UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR OnCommand(int control);
    void OnOptionChanged();
    void EnableCountdownPeriod();
    void SetLooks();

    HWND window = nullptr;
    HFONT headingFont = nullptr;
    NumberPicker countdown_period{1, 10};
    ToolTips tips;
    bool optionsShown = false;
};
