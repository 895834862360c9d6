#include "main/main_form.h"

#include <commctrl.h>

#include "base/runtime_failure.h"
#include "dictionary/dictionary.h"
#include "hotkeys/hotkey_messages.h"
#include "identity/window_identity.h"
#include "main/main_form_ids.h"
#include "mainwindow/form_visible.h"
#include "mainwindow/job_page.h"
#include "mainwindow/recent_menu.h"
#include "mainwindow/tray_events.h"
#include "platform/tray.h"
#include "recording/recording_state.h"
#include "scheduler/exit_request.h"
#include "settings/settings.h"
#include "settings/settings_view.h"
#include "shell/command_line.h"
#include "shell/copy_data.h"
#include "shell/exit.h"
#include "shell/startup.h"
#include "toolkit/system_look.h"
#include "toolkit/window_tools.h"
#include "win32/message_loop.h"

MainForm mainForm;

namespace {

constexpr UINT TrayMessage = 512;  // the icon's callback; also WM_MOUSEMOVE
constexpr WPARAM TrayIconId = 1;

constexpr int PageCount = 2;

std::string CaptionOf(MainPage page) {
    return page == MainPage::Record ? Translate("Record New Job") : Translate("My Jobs");
}

// The shell forgets all icons when it is started anew, and tells everybody so.
UINT TaskbarCreated() {
    static const UINT message = RegisterWindowMessageA("TaskbarCreated");
    return message;
}

// A move of the mouse over the window itself looks like a message of the icon when the button is held on just the
// right pixel of the first row. What tells them apart is where the mouse is.
bool IsMouseMoveOver(HWND window, LPARAM place) {
    const DWORD position = GetMessagePos();
    POINT point{static_cast<short>(LOWORD(position)), static_cast<short>(HIWORD(position))};
    ScreenToClient(window, &point);
    return MAKELPARAM(point.x, point.y) == place;
}

bool IsDown(int virtualKey) {
    return GetKeyState(virtualKey) < 0;
}

HMENU RecentJobsMenu() {
    const HMENU menu = CreatePopupMenu();
    int item = form1_run_last_job;
    for (const std::string& caption : recentMenu.run_last_job) {
        AppendMenuA(menu, MF_STRING, static_cast<UINT_PTR>(item++), Unmarked(caption).c_str());
    }
    return menu;
}

}  // namespace

// --- life ---

void MainForm::Create() {
    RegisterListControl();
    RegisterNumberPicker();
    LoadJobPage();
    RegisterDialogClass(MainWindowClass, GetSysColorBrush(COLOR_3DFACE));
    CreateDialogParamA(ProgramInstance(), MAKEINTRESOURCEA(form1_dialog), nullptr, DialogThunk, 0);
}

void MainForm::OnInitDialog(HWND form) {
    window = form;
    ownWindows.main = platform::FromHwnd(form);
    platform::AddModelessForm(form, OnKey);
    InsertTabs();
    recordPage.Create(form);
    jobPageForm.Create(form);
    for (const HWND each : {recordPage.Window(), jobPageForm.Window()}) UseTabBackground(each);
    PlacePages();
    ShowPage(page);
    SetPictures();
    platform::AddTrayIcon(platform::FromHwnd(form), MainCaption());
}

void MainForm::InstallProcedure() {
    if (previousProcedure != nullptr) return;
    const LONG_PTR previous = SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&ProcedureThunk));
    previousProcedure = reinterpret_cast<WNDPROC>(previous);
}

void MainForm::RestoreProcedure() {
    if (previousProcedure == nullptr) return;
    SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(previousProcedure));
    previousProcedure = nullptr;
}

// --- messages ---

INT_PTR CALLBACK MainForm::DialogThunk(HWND form, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    return Guarded<INT_PTR>(FALSE, [&]() -> INT_PTR {
        if (message == WM_INITDIALOG) {
            mainForm.OnInitDialog(form);
            return FALSE;  // the start says who gets the focus
        }
        return mainForm.window == form ? mainForm.OnDialogMessage(message, wParam, lParam) : FALSE;
    });
}

LRESULT CALLBACK MainForm::ProcedureThunk(HWND form, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    const WNDPROC previous = mainForm.previousProcedure;
    return Guarded<LRESULT>(0, [&]() -> LRESULT {
        switch (message) {
            case ShowYourselfMessage:
                OnShowYourself();
                return 0;
            case WM_HOTKEY:
                OnHotkey(static_cast<std::intptr_t>(wParam));
                return 0;
            case WM_COPYDATA:
                mainForm.OnCopyData(reinterpret_cast<const COPYDATASTRUCT*>(lParam));
                return TRUE;
            default:
                return CallWindowProcA(previous, form, message, wParam, lParam);
        }
    });
}

INT_PTR MainForm::OnDialogMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == TaskbarCreated()) return platform::RestoreTrayIcon();
    switch (message) {
        case TrayMessage:
            OnTrayMessageOf(wParam, lParam);
            return FALSE;
        case WM_COMMAND:
            return OnCommand(LOWORD(wParam), HIWORD(wParam));
        case WM_NOTIFY:
            if (reinterpret_cast<const NMHDR*>(lParam)->code != TCN_SELCHANGE) return FALSE;
            ShowPage(static_cast<MainPage>(TabCtrl_GetCurSel(GetDlgItem(window, form1_tabs))));
            return TRUE;
        case WM_CLOSE:
            OnClose();
            return TRUE;
        case WM_QUERYENDSESSION:
            SetWindowLongPtrA(window, DWLP_MSGRESULT, MayEndSession());
            return TRUE;
        case WM_ENDSESSION:
            if (wParam) OnEndSession();
            return TRUE;
        case WM_SIZE:
            FormResized();
            return FALSE;
        case WM_DPICHANGED:
            PostMessageA(window, WM_APP, 0, 0);  // the dialog gives its controls new fonts behind this message
            return FALSE;
        case WM_APP:
            OnDpiChanged();
            return TRUE;
        default:
            return FALSE;
    }
}

// Enter on a button of a page arrives here: the dialog manager speaks to the outermost dialog.
INT_PTR MainForm::OnCommand(int control, int code) {
    switch (control) {
        case IDOK:
            OnEnter();
            return TRUE;
        case form1_Exit:
            FormVisible(false, false);
            return TRUE;
        default:
            SendMessageA(PageWindow(page), WM_COMMAND, MAKEWPARAM(control, code),
                         reinterpret_cast<LPARAM>(GetDlgItem(PageWindow(page), control)));
            return TRUE;
    }
}

void MainForm::OnEnter() {
    if (page == MainPage::Record) recordPage.ClickCommand3();
    if (page == MainPage::Jobs) jobPageForm.OnEnter();
}

void MainForm::OnClose() {
    EndRecording();
    if (MainWindowVisible()) CopyControlsToSettings();
    FormVisible(false, false);
}

// Windows is being shut down, or the user logs off. What waits to be saved would be gone: Windows asks the user then,
// and says why.
BOOL MainForm::MayEndSession() const {
    const std::string reason = RecordingActive()             ? Translate("Save Job As")
                               : jobPage.button_save_changes ? Translate("Save Changes")
                                                             : "";
    if (reason.empty()) return TRUE;
    wchar_t text[MAX_STR_BLOCKREASON] = L"";
    MultiByteToWideChar(CP_ACP, 0, reason.c_str(), -1, text, MAX_STR_BLOCKREASON - 1);
    ShutdownBlockReasonCreate(window, text);
    return FALSE;
}

// No question can be answered any more.
void MainForm::OnEndSession() {
    try {
        SaveSettings();
    } catch (const RuntimeFailure&) {
    }
    QuitProgram(false);
}

void MainForm::OnCopyData(const COPYDATASTRUCT* data) {
    if (data == nullptr) return;
    const auto command = CommandFromCopyData(data->dwData, data->cbData, data->lpData);
    if (command) HandleCommandParameter(*command, true);
}

// Keys that no single control knows: Ctrl+Tab and Ctrl+Page Up or Down go through the tabs, as in the system's own
// property sheets, and what the page makes of the rest.
bool MainForm::OnKey(const MSG& message) {
    if (message.message != WM_KEYDOWN || !IsWindowEnabled(mainForm.window)) return false;
    bool handled = true;
    Guarded<bool>(true, [&] {
        const int key = static_cast<int>(message.wParam);
        if (IsDown(VK_CONTROL) && (key == VK_TAB || key == VK_NEXT || key == VK_PRIOR)) {
            mainForm.StepPage((key == VK_TAB && IsDown(VK_SHIFT)) || key == VK_PRIOR ? -1 : 1);
        } else {
            handled = mainForm.page == MainPage::Jobs && mainForm.jobPageForm.OnKeyDown(key);
        }
        return true;
    });
    return handled;
}

// --- pages ---

void MainForm::InsertTabs() const {
    TCITEMA tab{};
    tab.mask = TCIF_TEXT;
    char none[] = "";
    tab.pszText = none;
    for (int place = 0; place < PageCount; ++place) {
        SendDlgItemMessageA(window, form1_tabs, TCM_INSERTITEMA, static_cast<WPARAM>(place),
                            reinterpret_cast<LPARAM>(&tab));
    }
}

// Into the tabs' frame, and above them, so that they do not paint over a page.
void MainForm::PlacePages() const {
    const HWND tabs = GetDlgItem(window, form1_tabs);
    RECT area{};
    GetClientRect(tabs, &area);
    TabCtrl_AdjustRect(tabs, FALSE, &area);
    MapWindowPoints(tabs, window, reinterpret_cast<POINT*>(&area), 2);
    for (const HWND each : {jobPageForm.Window(), recordPage.Window()}) {
        SetWindowPos(each, HWND_TOP, area.left, area.top, area.right - area.left, area.bottom - area.top,
                     SWP_NOACTIVATE);
    }
}

HWND MainForm::PageWindow(MainPage which) const {
    return which == MainPage::Record ? recordPage.Window() : jobPageForm.Window();
}

void MainForm::ShowPage(MainPage which) {
    page = which;
    SendDlgItemMessageA(window, form1_tabs, TCM_SETCURSEL, static_cast<WPARAM>(which), 0);
    for (int place = 0; place < PageCount; ++place) {
        const auto each = static_cast<MainPage>(place);
        ShowWindow(PageWindow(each), each == which ? SW_SHOWNA : SW_HIDE);
    }
}

void MainForm::StepPage(int steps) {
    ShowPage(static_cast<MainPage>((static_cast<int>(page) + steps + PageCount) % PageCount));
    StaviFocus();
}

// --- tray ---

void MainForm::OnTrayMessageOf(WPARAM wParam, LPARAM lParam) {
    if (wParam != TrayIconId || IsMouseMoveOver(window, lParam)) return;
    const bool wasVisible = MainWindowVisible();
    OnTrayMessage(static_cast<unsigned>(lParam));
    if (!wasVisible && MainWindowVisible() && IsWindowEnabled(window)) StaviFocus();
}

void MainForm::OpenTrayMenu() {
    FillRecentJobsMenu();
    const bool anyRecent = !recentMenu.run_last_job.empty();
    const HMENU menu = CreatePopupMenu();
    AppendMenuA(menu, MF_POPUP | (anyRecent ? MF_ENABLED : MF_GRAYED), reinterpret_cast<UINT_PTR>(RecentJobsMenu()),
                Translate("Run Job").c_str());
    AppendMenuA(menu, MF_STRING, form1_record_new, Translate("Record &New (Ctrl+Shift+N)").c_str());
    AppendMenuA(menu, MF_SEPARATOR, 0, nullptr);
    AppendMenuA(menu, MF_STRING, form1_tray_open_tessarine, trayOpenCaption.c_str());
    AppendMenuA(menu, MF_STRING, form1_tray_exit, Translate("Exit").c_str());
    SetMenuDefaultItem(menu, form1_tray_open_tessarine, FALSE);
    POINT place{};
    GetCursorPos(&place);
    RunTrayCommand(TrackMenu(menu, window, place));
}

void MainForm::RunTrayCommand(int command) {
    if (command == form1_tray_open_tessarine) ToggleFromTray();
    if (command == form1_tray_exit && PitajSpremitiPromjene()) ExitProgram([] { QuitProgram(true); });
    if (command == form1_record_new) record_new();
    if (command >= form1_run_last_job) run_last_job(command - form1_run_last_job);
}

// --- what others ask for ---

void MainForm::PodesiRjecnik() {
    Mnemonics letters;
    SetText(window, form1_Exit, letters.Mark(Translate("E&xit")));
    for (int place = 0; place < PageCount; ++place) {
        std::string caption = Unmarked(CaptionOf(static_cast<MainPage>(place)));
        TCITEMA tab{};
        tab.mask = TCIF_TEXT;
        tab.pszText = caption.data();
        SendDlgItemMessageA(window, form1_tabs, TCM_SETITEMA, static_cast<WPARAM>(place),
                            reinterpret_cast<LPARAM>(&tab));
    }
    recordPage.PodesiRjecnik(letters);
    jobPageForm.PodesiRjecnik(letters);
    WordTrayEntry();
}

void MainForm::StaviFocus() {
    SetForegroundWindow(window);
    if (page == MainPage::Record) recordPage.Focus();
    if (page == MainPage::Jobs) jobPageForm.Focus();
}

void MainForm::EnableExitButton(bool enable) {
    EnableWindow(GetDlgItem(window, form1_Exit), enable);
}

// --- looks ---

void MainForm::OnDpiChanged() {
    PlacePages();
    SetPictures();
    recordPage.OnDpiChanged();
    jobPageForm.OnDpiChanged();
    InvalidateRect(window, nullptr, TRUE);
}

void MainForm::SetPictures() {
    const auto small = ProgramIcon(GetSystemMetricsForDpi(SM_CXSMICON, static_cast<UINT>(DpiOf(window))));
    SendMessageA(window, WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(small));
}
