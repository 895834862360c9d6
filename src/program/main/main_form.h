// form1, the main window: its pages under their tabs, the tray icon, and the messages of a second start. Closing and
// minimising hide it; the tray menu's exit ends the program.
//
// It implements main_window_view, form_view, shell_view, options_view, job_page_view, library_view, the job list's view
// and the settings' view. The tray menu, the pages' commands and every run pump.
#pragma once

#include <windows.h>

#include <string>

#include "pages/job_page_form.h"
#include "pages/record_page.h"

// Places of the tabs.
enum class MainPage { Record, Jobs };

class MainForm {
public:
    void Create();  // not visible yet
    HWND Window() const { return window; }

    // The part of the window procedure that other programs and the system's own services speak to. It stands in front
    // of the dialog's, from the end of the load until the process ends.
    void InstallProcedure();
    void RestoreProcedure();

    RecordPage recordPage;
    JobPageForm jobPageForm;

    void PodesiRjecnik();
    void ShowPage(MainPage page);
    void StaviFocus();
    void EnableExitButton(bool enable);
    void SetTrayOpenCaption(const std::string& caption) { trayOpenCaption = caption; }
    void OpenTrayMenu();

private:
    static bool OnKey(const MSG& message);
    static INT_PTR CALLBACK DialogThunk(HWND form, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    static LRESULT CALLBACK ProcedureThunk(HWND form, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    INT_PTR OnDialogMessage(UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR OnCommand(int control, int code);

    void OnInitDialog(HWND form);
    void OnClose();
    void OnEnter();
    BOOL MayEndSession() const;
    void OnEndSession();
    void StepPage(int steps);
    void OnTrayMessageOf(WPARAM wParam, LPARAM lParam);
    void OnCopyData(const COPYDATASTRUCT* data);
    void OnDpiChanged();

    void InsertTabs() const;
    void PlacePages() const;
    HWND PageWindow(MainPage which) const;
    void SetPictures();
    void RunTrayCommand(int command);

    HWND window = nullptr;
    WNDPROC previousProcedure = nullptr;
    MainPage page = MainPage::Record;
    std::string trayOpenCaption;
};

extern MainForm mainForm;
