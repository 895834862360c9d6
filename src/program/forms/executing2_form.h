// executing2: the small framed window that says which job runs. It lives for one run, floats above everything, lets
// what is below shine through, and never takes the activation. Nothing here pumps.
#pragma once

#include <windows.h>

#include <string>

#include "toolkit/frame.h"

class Executing2Form {
public:
    void Load();  // not visible yet; nothing when it is loaded
    void Show(const std::string& jobName);
    void Unload();
    bool Visible() const { return window != nullptr && IsWindowVisible(window); }
    HWND Window() const { return window; }

private:
    static INT_PTR CALLBACK DialogThunk(HWND form, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    INT_PTR OnDialogMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void OnInitDialog(HWND form);
    void PodesiRjecnik();
    void PaintFrame(HDC paper) const;
    HBRUSH BrushOf(HDC paper, HWND label) const;

    HWND window = nullptr;
    HFONT nameFont = nullptr;
    FormFrame frame;
};

extern Executing2Form executing2;
