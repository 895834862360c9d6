// start_app, the dialog before a recording: a program to start as the recording begins. It lives from its opening to
// its closing; what it takes and refuses is in recording/start_app.h. It implements start_app_view.
#pragma once

#include <windows.h>

#include "recording/start_app.h"
#include "toolkit/tool_tips.h"

class StartAppForm {
public:
    void ShowModal();  // pumps

private:
    template <class Form>
    friend INT_PTR CALLBACK FormThunk(HWND, UINT, WPARAM, LPARAM) noexcept;
    INT_PTR OnDialogMessage(UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR OnCommand(int control);

    bool OnInitDialog(HWND form);
    void PodesiRjecnik();
    void FillCombo1();
    void OnCheck(int check, int text);
    void OnCommand1();
    void OnCommand2();

    StartAppControls Controls() const;
    void Enable();

    HWND window = nullptr;
    ToolTips tips;
};
