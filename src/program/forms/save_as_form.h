// Save_As_Form: the name of a new recording. It lives from its opening to its closing; the rules are in
// library/save_as.h.
//
// Whatever goes wrong with a save, the dialog stays open with all that was typed. While it is open, the main window is
// disabled.
#pragma once

#include <windows.h>

#include <string>

class SaveAsForm {
public:
    bool ShowModal();  // pumps; true when the recording was saved

private:
    template <class Form>
    friend INT_PTR CALLBACK FormThunk(HWND, UINT, WPARAM, LPARAM) noexcept;
    INT_PTR OnDialogMessage(UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR OnCommand(int control);

    bool OnInitDialog(HWND form);
    void PodesiRjecnik();
    void ShowStart();
    void OnCommand1();
    void OnLeave();
    void OnTimer1();
    void Close(INT_PTR result);

    std::string Description() const;
    void SelectName();

    HWND window = nullptr;
    bool mainWindowWasDisabled = false;
};
