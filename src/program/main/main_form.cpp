#include "main/main_form.h"

#include <commctrl.h>

#include <algorithm>
#include <iterator>

#include "controls/list_control.h"
#include "controls/number_picker.h"
#include "controls/time_picker.h"
#include "dictionary/dictionary.h"
#include "hotkeys/hotkey_messages.h"
#include "identity/window_identity.h"
#include "mainwindow/form_visible.h"
#include "mainwindow/job_page.h"
#include "mainwindow/recent_menu.h"
#include "mainwindow/tray_events.h"
#include "pages/about_page.h"
#include "pages/job_page_form.h"
#include "pages/options_page.h"
#include "pages/record_page.h"
#include "pages/schedule_page_form.h"
#include "platform/pump.h"
#include "platform/tray.h"
#include "recording/recording_state.h"
#include "scheduler/exit_request.h"
#include "scheduler/schedule_list.h"
#include "scheduler/schedule_page.h"
#include "settings/settings.h"
#include "settings/settings_view.h"
#include "shell/close_request.h"
#include "shell/copy_data.h"
#include "shell/exit.h"
#include "shell/handed_over.h"
#include "shell/session_end.h"
#include "shell/startup.h"
#include "sounds/sounds.h"
#include "toolkit/window_tools.h"

MainForm mainForm;

namespace {

constexpr UINT TrayMessage = 512;  // the icon's callback; also WM_MOUSEMOVE
constexpr WPARAM TrayIconId = 1;

// In the order of the tabs.
Page* const pages[] = {&recordPage, &jobPageForm, &schedulePageForm, &optionsPage, &aboutPage};
constexpr int PageCount = static_cast<int>(std::size(pages));

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

HMENU RecentJobsMenu() {
    const HMENU menu = CreatePopupMenu();
    int item = form1_run_last_job;
    for (const std::string& caption : recentMenu.run_last_job) {
        AppendMenuA(menu, MF_STRING, static_cast<UINT_PTR>(item++), Unmarked(caption).c_str());
    }
    return menu;
}

void SetTab(HWND tabs, UINT message, int place, std::string caption) {
    TCITEMA tab{};
    tab.mask = TCIF_TEXT;
    tab.pszText = caption.data();
    SendMessageA(tabs, message, static_cast<WPARAM>(place), reinterpret_cast<LPARAM>(&tab));
}

}  // namespace

// --- life ---

void MainForm::CreateMainWindow() {
    RegisterListControl();
    RegisterNumberPicker();
    RegisterTimePicker();
    LoadJobPage();
    PrirediSchedules();
    LoadScheduleList();
    RegisterDialogClass(MainWindowClass, GetSysColorBrush(COLOR_3DFACE));
    Create();
}

std::vector<ControlRow> MainForm::Rows() {
    return {
        {.id = form1_Exit, .caption = "E&xit", .clicked = CloseToTray, .anchors = AtBottomRight},
        {.id = IDHELP, .anchors = AtBottomLeft},
        {.id = form1_tabs, .anchors = AllEdges},
    };
}

void MainForm::OnInit() {
    ownWindows.main = platform::FromHwnd(Window());
    for (int place = 0; place < PageCount; ++place) SetTab(Control(form1_tabs), TCM_INSERTITEMA, place, "");
    ReserveLetters();
    OnLooks();  // the tray icon is the window's
    platform::AddTrayIcon(ownWindows.main, MainCaption());
}

void MainForm::InstallProcedure() {
    if (previousProcedure != nullptr) return;
    const LONG_PTR previous = SetWindowLongPtrA(Window(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&ProcedureThunk));
    previousProcedure = reinterpret_cast<WNDPROC>(previous);
}

void MainForm::RestoreProcedure() {
    if (previousProcedure == nullptr) return;
    SetWindowLongPtrA(Window(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(previousProcedure));
    previousProcedure = nullptr;
}

// --- messages ---

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

bool MainForm::OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    if (message == TaskbarCreated()) return platform::RestoreTrayIcon();
    switch (message) {
        case TrayMessage:
            OnTrayMessageOf(wParam, lParam);
            return false;
        case WM_NOTIFY:
            if (reinterpret_cast<const NMHDR*>(lParam)->code != static_cast<UINT>(TCN_SELCHANGE)) return false;
            ShowPageAt(TabCtrl_GetCurSel(Control(form1_tabs)));
            PlayMenuSound();
            return true;
        case WM_CLOSE:
            OnClose();
            return true;
        case WM_QUERYENDSESSION:
            result = (lParam & ENDSESSION_CLOSEAPP) == 0 || MayBeEnded();
            return true;
        case WM_ENDSESSION:
            if (wParam) EndWithSession();
            return true;
        case WM_SIZE:
            FormResized();
            return false;
        default:
            return false;
    }
}

// Enter on a button of a page arrives here: the dialog manager speaks to the outermost dialog.
bool MainForm::OnClicked(int id) {
    if (id == IDCANCEL) return false;
    if (id == IDOK) {
        CurrentPage().OnEnter();
    } else {
        SendMessageA(CurrentPage().Window(), WM_COMMAND, MAKEWPARAM(id, BN_CLICKED),
                     reinterpret_cast<LPARAM>(CurrentPage().Control(id)));
    }
    return true;
}

void MainForm::OnClose() {
    EndRecording();
    if (MainWindowVisible()) CopyControlsToSettings();
    CloseToTray();
}

void MainForm::OnCopyData(const COPYDATASTRUCT* data) {
    if (data == nullptr) return;
    const auto command = CommandFromCopyData(data->dwData, data->cbData, data->lpData);
    if (command) platform::CallOutsideHooks([line = *command] { OnCommandHandedOver(line); });
}

// Keys that no single control knows: Ctrl+Tab and Ctrl+Page Up or Down go through the tabs, as in the system's own
// property sheets, and what the page makes of the rest.
bool MainForm::OnKey(const MSG& message) {
    if (message.message != WM_KEYDOWN || !IsWindowEnabled(Window())) return false;
    const int key = static_cast<int>(message.wParam);
    if (!KeyIsDown(VK_CONTROL) || (key != VK_TAB && key != VK_NEXT && key != VK_PRIOR)) {
        return CurrentPage().OnKeyDown(key);
    }
    const int step = (key == VK_TAB && KeyIsDown(VK_SHIFT)) || key == VK_PRIOR ? PageCount - 1 : 1;
    ShowPageAt((current + step) % PageCount);
    StaviFocus();
    return true;
}

// --- pages ---

// The tray menu belongs to this window, too, and may be open while it is hidden.
std::string MainForm::HelpTopic() const {
    return Visible() ? CurrentPage().HelpTopic() : help_topic::Tray;
}

Page& MainForm::CurrentPage() const {
    return *pages[current];
}

void MainForm::ShowPage(const Page& page) {
    ShowPageAt(static_cast<int>(std::find(std::begin(pages), std::end(pages), &page) - std::begin(pages)));
}

// A page is made when it is first seen: most starts are for one of them.
void MainForm::ShowPageAt(int place) {
    current = std::clamp(place, 0, PageCount - 1);
    if (CurrentPage().Window() == nullptr) CurrentPage().CreateIn(Window());
    SendMessageA(Control(form1_tabs), TCM_SETCURSEL, static_cast<WPARAM>(current), 0);
    PlacePage();
    for (Page* const page : pages) page->BringIntoSight(page == &CurrentPage());
}

// Into the tabs' frame, and above them, so that they do not paint over a page.
void MainForm::PlacePage() const {
    const HWND tabs = Control(form1_tabs);
    RECT area{};
    GetClientRect(tabs, &area);
    TabCtrl_AdjustRect(tabs, FALSE, &area);
    MapWindowPoints(tabs, Window(), reinterpret_cast<POINT*>(&area), 2);
    SetWindowPos(CurrentPage().Window(), HWND_TOP, area.left, area.top, area.right - area.left, area.bottom - area.top,
                 SWP_NOACTIVATE);
}

// --- tray ---

void MainForm::OnTrayMessageOf(WPARAM wParam, LPARAM lParam) {
    if (wParam != TrayIconId || IsMouseMoveOver(Window(), lParam)) return;
    const bool wasVisible = MainWindowVisible();
    OnTrayMessage(static_cast<unsigned>(lParam));
    if (!wasVisible && MainWindowVisible() && IsWindowEnabled(Window())) StaviFocus();
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
    RunTrayCommand(TrackMenu(menu, Window(), place));
}

void MainForm::RunTrayCommand(int command) {
    if (command == form1_tray_open_tessarine) ToggleFromTray();
    if (command == form1_tray_exit && PitajSpremitiPromjene()) ExitProgram([] { QuitProgram(true); });
    if (command == form1_record_new) record_new();
    if (command >= form1_run_last_job) run_last_job(command - form1_run_last_job);
}

// --- what others ask for ---

// No letter stands twice: a page's are seen together with those of the window.
void MainForm::PodesiRjecnik() {
    Form::PodesiRjecnik();
    ReserveLetters();
    for (int place = 0; place < PageCount; ++place) {
        SetTab(Control(form1_tabs), TCM_SETITEMA, place, Unmarked(pages[place]->TabCaption()));
        pages[place]->PodesiRjecnikIfOther();
    }
    WordTrayEntry();
}

// What stands beside every page.
void MainForm::ReserveLetters() {
    Mnemonics letters;
    letters.Mark(Translate("E&xit"));
    for (Page* const page : pages) page->SetTakenLetters(letters);
}

void MainForm::StaviFocus() {
    SetForegroundWindow(Window());
    CurrentPage().StaviFocus();
}

// --- looks ---

void MainForm::OnLooks() {
    const auto small = ProgramIcon(GetSystemMetricsForDpi(SM_CXSMICON, static_cast<UINT>(DpiOf(Window()))));
    SendMessageA(Window(), WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(small));
}

void MainForm::OnLayout() {
    PlacePage();
}
