// executing: the list of a run's actions, the status label and the progress bar. It stays up after the run, with a
// button that closes it, and is used again by the next run.
//
// While a run goes on (the dodging flag), the window must leave no trace in it: it never takes the activation or the
// focus, whatever is clicked, and moves to the other side of the screen from under the pointer. Afterwards it is a
// window like any other, for the keyboard too. Nothing here pumps.
#pragma once

#include <windows.h>

#include <string>

class ExecutingForm {
public:
    void Show(int top);  // with its upper edge at `top` when it is new
    void Close();
    bool Visible() const { return window != nullptr && IsWindowVisible(window); }
    HWND Window() const { return window; }
    void SetDodging(bool flag);
    void PodesiRjecnik();

private:
    static INT_PTR CALLBACK DialogThunk(HWND form, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    static LRESULT CALLBACK ControlThunk(HWND control, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                         DWORD_PTR) noexcept;
    INT_PTR OnDialogMessage(UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR OnCommand(int control);
    bool OnListMessage(UINT message);

    void OnInitDialog(HWND form);
    void OnMouseMove();
    void OnListMouse();
    void MakeListTip();

    HWND window = nullptr;
    HWND listTip = nullptr;
    std::string listTipText;
    bool dodging = false;
};

extern ExecutingForm executing;
