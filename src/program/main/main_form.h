// form1, the main window: its pages under their tabs, the tray icon, and the messages of a second start. Closing and
// minimising hide it; the tray menu's exit ends the program. It can be resized, and keeps its size while the program
// runs.
//
// The tray menu, the pages' commands and every run pump.
#pragma once

#include <string>

#include "main/main_form_ids.h"
#include "pages/page.h"

class MainForm : public Form {
public:
    MainForm() : Form(form1_dialog) {}
    void CreateMainWindow();  // not visible yet

    // The part of the window procedure that other programs and the system's own services speak to. It stands in front
    // of the dialog's, from the end of the load until the process ends.
    void InstallProcedure();
    void RestoreProcedure();

    void PodesiRjecnik() override;
    std::string HelpTopic() const override;  // of the page that is seen
    void ShowPage(const Page& page);
    void StaviFocus();
    void SetTrayOpenCaption(const std::string& caption) { trayOpenCaption = caption; }
    void OpenTrayMenu();

private:
    static void ReserveLetters();
    static LRESULT CALLBACK ProcedureThunk(HWND form, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    std::vector<ControlRow> Rows() override;
    void OnInit() override;
    void OnLooks() override;
    void OnLayout() override;
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    bool OnClicked(int id) override;
    bool OnKey(const MSG& message) override;

    Page& CurrentPage() const;
    void ShowPageAt(int place);
    void OnClose();
    void OnTrayMessageOf(WPARAM wParam, LPARAM lParam);
    void OnCopyData(const COPYDATASTRUCT* data);
    void PlacePage() const;
    void RunTrayCommand(int command);

    WNDPROC previousProcedure = nullptr;
    int current = 0;  // place of the page that is seen
    std::string trayOpenCaption;
};

extern MainForm mainForm;
