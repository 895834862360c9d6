#include "program/main_form.h"

#include <commdlg.h>

#include "base/product.h"
#include "base/text.h"
#include "dictionary/dictionary.h"
#include "hotkeys/hotkey_messages.h"
#include "identity/window_identity.h"
#include "mainwindow/form_visible.h"
#include "mainwindow/tray_events.h"
#include "platform/tray.h"
#include "program/main_form_ids.h"
#include "program/window_tools.h"
#include "recording/recording_state.h"
#include "replay/run_job.h"
#include "scheduler/exit_request.h"
#include "settings/folders.h"
#include "settings/settings_view.h"
#include "shell/command_line.h"
#include "shell/copy_data.h"
#include "shell/exit.h"
#include "shell/startup.h"
#include "win32/message_loop.h"

MainForm mainForm;

namespace {

constexpr UINT TrayMessage = 512;  // the icon's callback; also WM_MOUSEMOVE
constexpr WPARAM TrayIconId = 1;

constexpr const char* RunCommand = "tessarine.exe -run C:\\...\\job.tsj";

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

std::string ChooseJobFile(HWND owner) {
    char path[MAX_PATH] = "";
    OPENFILENAMEA dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = owner;
    dialog.lpstrFilter = "Tessarine jobs (*.tsj)\0*.tsj\0";
    dialog.lpstrFile = path;
    dialog.nMaxFile = sizeof path;
    dialog.lpstrInitialDir = folders.DataFolder.c_str();
    dialog.lpstrDefExt = "tsj";
    dialog.Flags = OFN_FILEMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
    return GetOpenFileNameA(&dialog) ? path : "";
}

}  // namespace

// --- life ---

void MainForm::Create() {
    RegisterDialogClass(MainWindowClass, nullptr);
    CreateDialogParamA(ProgramInstance(), MAKEINTRESOURCEA(form1_dialog), nullptr, DialogThunk, 0);
}

void MainForm::OnInitDialog(HWND form) {
    window = form;
    ownWindows.main = platform::FromHwnd(form);
    platform::AddModelessForm(form);
    SetFonts();
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
            return TRUE;
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
    if (message == TaskbarCreated()) return platform::AddTrayIcon(platform::FromHwnd(window), MainCaption());
    switch (message) {
        case TrayMessage:
            OnTrayMessageOf(wParam, lParam);
            return FALSE;
        case WM_COMMAND:
            return OnCommand(LOWORD(wParam));
        case WM_CLOSE:
            OnClose();
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
        case WM_ERASEBKGND:
            PaintBackground(reinterpret_cast<HDC>(wParam));
            SetWindowLongPtrA(window, DWLP_MSGRESULT, TRUE);
            return TRUE;
        case WM_CTLCOLORSTATIC:
            return reinterpret_cast<INT_PTR>(BrushOf(reinterpret_cast<HDC>(wParam)));
        default:
            return FALSE;
    }
}

INT_PTR MainForm::OnCommand(int control) {
    switch (control) {
        case form1_run_job_button:
            OnRunJobButton();
            return TRUE;
        case form1_Exit:
            FormVisible(false, false);
            return TRUE;
        default:
            return FALSE;
    }
}

void MainForm::OnClose() {
    UnhookRecording();
    if (MainWindowVisible()) CopyControlsToSettings();
    FormVisible(false, false);
}

void MainForm::OnRunJobButton() {
    const std::string path = ChooseJobFile(window);
    if (!path.empty()) RunJob(path, 0, "", false);
}

void MainForm::OnCopyData(const COPYDATASTRUCT* data) {
    if (data == nullptr) return;
    const auto command = CommandFromCopyData(data->dwData, data->cbData, data->lpData);
    if (command) HandleCommandParameter(*command, true);
}

// --- tray ---

void MainForm::OnTrayMessageOf(WPARAM wParam, LPARAM lParam) {
    if (wParam != TrayIconId || IsMouseMoveOver(window, lParam)) return;
    const bool wasVisible = MainWindowVisible();
    OnTrayMessage(static_cast<unsigned>(lParam));
    if (!wasVisible && MainWindowVisible()) StaviFocus();
}

void MainForm::OpenTrayMenu() {
    const HMENU menu = CreatePopupMenu();
    AppendMenuA(menu, MF_STRING, form1_tray_open_tessarine, trayOpenCaption.c_str());
    AppendMenuA(menu, MF_SEPARATOR, 0, nullptr);
    AppendMenuA(menu, MF_STRING, form1_tray_exit, Translate("Exit").c_str());
    SetMenuDefaultItem(menu, form1_tray_open_tessarine, FALSE);
    POINT place{};
    GetCursorPos(&place);
    SetForegroundWindow(window);  // a click elsewhere closes the menu of the foreground window only
    const BOOL command =
        TrackPopupMenuEx(menu, TPM_RETURNCMD | TPM_NONOTIFY | TPM_RIGHTBUTTON, place.x, place.y, window, nullptr);
    PostMessageA(window, WM_NULL, 0, 0);  // without it the next menu closes at once
    DestroyMenu(menu);
    RunTrayCommand(command);
}

void MainForm::RunTrayCommand(int command) {
    if (command == form1_tray_open_tessarine) ToggleFromTray();
    if (command == form1_tray_exit) ExitProgram([] { QuitProgram(true); });
}

// --- what others ask for ---

void MainForm::PodesiRjecnik() {
    SetText(window, form1_product, ProductName);
    SetText(window, form1_version, Translate("Program version") + ": " + ProductVersion);
    SetText(window, form1_purpose,
            Translate("Plays recorded jobs: moves the mouse, clicks and types as was done before."));
    SetText(window, form1_command_line,
            Translate("To run a job from a shortcut or a command line:") + LineBreak + RunCommand);
    SetText(window, form1_tray, Translate("Closing this window leaves Tessarine in the notification area."));
    SetText(window, form1_run_job_button, "&" + Translate("Run Job") + "...");
    SetText(window, form1_Exit, Translate("E&xit"));
    WordTrayEntry();
}

void MainForm::StaviFocus() {
    SetForegroundWindow(window);
    const HWND button = GetDlgItem(window, form1_run_job_button);
    SendMessageA(window, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(button), TRUE);
}

void MainForm::EnableExitButton(bool enable) {
    EnableWindow(GetDlgItem(window, form1_Exit), enable);
}

// --- looks ---

void MainForm::OnDpiChanged() {
    SetFonts();
    SetPictures();
    InvalidateRect(window, nullptr, TRUE);
}

void MainForm::SetFonts() {
    const HFONT old = productFont;
    productFont = FontLike(window, 180, FW_SEMIBOLD);
    SendDlgItemMessageA(window, form1_product, WM_SETFONT, reinterpret_cast<WPARAM>(productFont), TRUE);
    if (old != nullptr) DeleteObject(old);
}

void MainForm::SetPictures() {
    const platform::Rect place = RectangleOf(GetDlgItem(window, form1_Picture1));
    const HICON icon = ProgramIcon(place.right - place.left);
    SendDlgItemMessageA(window, form1_Picture1, STM_SETICON, reinterpret_cast<WPARAM>(icon), 0);
    const auto small = ProgramIcon(GetSystemMetricsForDpi(SM_CXSMICON, static_cast<UINT>(DpiOf(window))));
    SendMessageA(window, WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(small));
}

// The page is paper and the strip with the buttons is not, as in the system's own dialogs.
void MainForm::PaintBackground(HDC paper) const {
    RECT area{};
    GetClientRect(window, &area);
    RECT page = area;
    page.bottom = TopOfButtons();
    RECT line = {area.left, page.bottom, area.right, page.bottom + 1};
    RECT strip = {area.left, line.bottom, area.right, area.bottom};
    FillRect(paper, &page, GetSysColorBrush(COLOR_WINDOW));
    FillRect(paper, &line, GetSysColorBrush(COLOR_3DLIGHT));
    FillRect(paper, &strip, GetSysColorBrush(COLOR_3DFACE));
}

HBRUSH MainForm::BrushOf(HDC paper) const {
    SetTextColor(paper, GetSysColor(COLOR_WINDOWTEXT));
    SetBkColor(paper, GetSysColor(COLOR_WINDOW));
    return GetSysColorBrush(COLOR_WINDOW);
}

// The strip is as much higher than its buttons as the space below them.
int MainForm::TopOfButtons() const {
    RECT area{};
    GetClientRect(window, &area);
    RECT button{};
    GetWindowRect(GetDlgItem(window, form1_Exit), &button);
    MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&button), 2);
    return button.top - (area.bottom - button.bottom);
}
