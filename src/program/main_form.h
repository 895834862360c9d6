// form1, the main window: what the program is and does, a job to run, the tray icon, and the messages of a second
// start. Closing and minimising hide it; the tray menu's exit ends the program.
//
// It implements main_window_view, form_view, shell_view, options_view, the job list's view and the settings' view.
// Opening a job, the tray menu and every run pump.
#pragma once

#include <windows.h>

#include <string>

class MainForm {
public:
    void Create();  // not visible yet
    HWND Window() const { return window; }

    // The part of the window procedure that other programs and the system's own services speak to. It stands in front
    // of the dialog's, from the end of the load until the process ends.
    void InstallProcedure();
    void RestoreProcedure();

    void PodesiRjecnik();
    void StaviFocus();
    void EnableExitButton(bool enable);
    void SetTrayOpenCaption(const std::string& caption) { trayOpenCaption = caption; }
    void OpenTrayMenu();

private:
    static INT_PTR CALLBACK DialogThunk(HWND form, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    static LRESULT CALLBACK ProcedureThunk(HWND form, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    INT_PTR OnDialogMessage(UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR OnCommand(int control);

    void OnInitDialog(HWND form);
    void OnClose();
    void OnRunJobButton();
    void OnTrayMessageOf(WPARAM wParam, LPARAM lParam);
    void OnCopyData(const COPYDATASTRUCT* data);
    void OnDpiChanged();

    void SetFonts();
    void SetPictures();
    void PaintBackground(HDC paper) const;
    HBRUSH BrushOf(HDC paper) const;
    int TopOfButtons() const;
    void RunTrayCommand(int command);

    HWND window = nullptr;
    WNDPROC previousProcedure = nullptr;
    HFONT productFont = nullptr;
    std::string trayOpenCaption;
};

extern MainForm mainForm;
