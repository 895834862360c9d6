#include "pages/job_page_form.h"

#include <commctrl.h>

#include "dictionary/dictionary.h"
#include "editor/edit_job.h"
#include "library/job_library.h"
#include "mainwindow/job_page.h"
#include "makeexe/make_executable.h"
#include "pages/drag_out.h"
#include "pages/job_page_ids.h"
#include "scheduler/schedule_list.h"
#include "toolkit/form_thunk.h"
#include "toolkit/window_tools.h"
#include "widgets/busy_mark.h"

namespace {

constexpr int LetterCount = 26;
constexpr int SliderPage = 50;  // percent, by Page Up and Page Down

struct Panel {
    int first;
    int last;
};
constexpr Panel Panels[] = {
    {job_page_speed_FIRST, job_page_speed_LAST},
    {job_page_repeat_FIRST, job_page_repeat_LAST},
    {job_page_advanced_FIRST, job_page_advanced_LAST},
    {job_page_hotkey_FIRST, job_page_hotkey_LAST},
};

// The panels, as the letters of their captions know them.
enum : unsigned { SpeedPanel = 1, RepeatPanel = 2, AdvancedPanel = 4, HotkeyPanel = 8 };

// In English the letters are chosen: `marked` is the text with its mark. The dictionary knows it without.
std::string Caption(const std::string& translated, const std::string& marked) {
    std::string english = marked;
    std::erase(english, '&');
    return translated == english ? marked : translated;
}

void ShowText(HWND form, int control, const std::string& text) {
    if (TextOf(form, control) != text) SetText(form, control, text);
}

// What is typed by the user keeps its caret when it stays as it was.
void ShowTyped(HWND form, int control, const std::string& text) {
    if (TextOf(form, control) == text) return;
    SetText(form, control, text);
    SendDlgItemMessageA(form, control, EM_SETSEL, text.size(), static_cast<LPARAM>(text.size()));
}

int SliderValue(HWND slider) {
    return static_cast<int>(SendMessageA(slider, TBM_GETPOS, 0, 0));
}

void SetSlider(HWND slider, int value) {
    if (SliderValue(slider) != value) SendMessageA(slider, TBM_SETPOS, TRUE, value);
}

std::string Joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text += (text.empty() ? "" : "\r\n") + line;
    return text;
}

// A control that is disabled while it has the focus would leave the keyboard nowhere.
void Enable(HWND form, int control, bool enable) {
    const HWND window = GetDlgItem(form, control);
    if (!enable && GetFocus() == window) SetFocus(GetDlgItem(form, job_page_lista_jobs));
    EnableWindow(window, enable);
}

}  // namespace

// --- life ---

void JobPageForm::Create(HWND mainWindow) {
    CreateDialogParamA(ProgramInstance(), MAKEINTRESOURCEA(job_page_dialog), mainWindow, FormThunk<JobPageForm>,
                       reinterpret_cast<LPARAM>(this));
}

bool JobPageForm::OnInitDialog(HWND page) {
    window = page;
    SendMessageA(Control(job_page_Slider1), TBM_SETRANGE, FALSE, MAKELPARAM(1, MaximumSpeed));
    SendMessageA(Control(job_page_Slider1), TBM_SETPAGESIZE, 0, SliderPage);
    SendMessageA(Control(job_page_slider_safety_level), TBM_SETRANGE, FALSE, MAKELPARAM(0, SafetyLow));
    SendMessageA(Control(job_page_slider_safety_level), TBM_SETPAGESIZE, 0, 1);
    SendMessageA(Control(job_page_updown2), UDM_SETRANGE32, 0, 2);  // it only tells which arrow: there is always room
    SendMessageA(Control(job_page_updown2), UDM_SETPOS32, 0, 1);
    SendMessageA(Control(job_page_Options_speed), EM_LIMITTEXT, 8, 0);
    SendMessageA(Control(job_page_options_repeat), EM_LIMITTEXT, 8, 0);
    for (int letter = 0; letter < LetterCount; ++letter) {
        const std::string text(1, static_cast<char>('A' + letter));
        SendMessageA(Control(job_page_hot_slovo), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
    }
    lista_jobs.Attach(Control(job_page_lista_jobs), jobLibrary.lista_jobs);
    lista_jobs.BeginDrag = [](int row) { DragFileOut(job_library::JobPathOfRow(row)); };
    tips.Create(page);
    SetFonts();
    Show();
    return false;  // the focus is the main window's affair
}

// --- messages ---

INT_PTR JobPageForm::OnDialogMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_COMMAND:
            return OnCommand(LOWORD(wParam), HIWORD(wParam));
        case WM_HSCROLL:
            OnSlider(reinterpret_cast<HWND>(lParam));
            return TRUE;
        case WM_NOTIFY: {
            const auto* const notice = reinterpret_cast<const NMUPDOWN*>(lParam);
            if (notice->hdr.idFrom != job_page_updown2 || notice->hdr.code != UDN_DELTAPOS) return FALSE;
            CommitSpeed();
            StepSpeed(notice->iDelta > 0 ? 1 : -1);
            SetWindowLongPtrA(window, DWLP_MSGRESULT, TRUE);  // it has no number of its own
            return TRUE;
        }
        default:
            return FALSE;
    }
}

INT_PTR JobPageForm::OnCommand(int control, int code) {
    if (showing) return FALSE;
    const bool isEdit = control == job_page_Options_speed || control == job_page_options_repeat;
    if (isEdit && code == EN_CHANGE) {
        OnEdited(control);
    } else if (isEdit && code == EN_KILLFOCUS) {
        OnLeft(control);
    } else if (control == job_page_hot_slovo && code == CBN_SELCHANGE) {
        OnHotkeyChanged();
    } else if (!isEdit && code == BN_CLICKED) {
        OnClicked(control);
    }
    return TRUE;
}

void JobPageForm::OnClicked(int control) {
    switch (control) {
        case job_page_run_job_button:
            return run_job();
        case job_page_edit_job_button:
            return edit_job();
        case job_page_schedule_job_button:
            return schedule_job();
        case job_page_make_exe_button:
            return create_exe();
        case job_page_button_save_changes:
            SaveChanges();
            return;
        case job_page_Check6:
            return ClickMaximumSpeed(IsTicked(window, control));
        case job_page_Check7:
            return ClickSkipMoves(IsTicked(window, control));
        case job_page_Command5:
            return RestoreOriginalSpeed();
        case job_page_Option1:
        case job_page_Option2:
            if (jobPage.Option1 != IsTicked(window, job_page_Option1)) ClickRepeat(!jobPage.Option1);
            return;
        case job_page_similiar_window_names:
            return ClickSimilarNames(IsTicked(window, control));
        case job_page_assign_hotkey:
        case job_page_hot_ctrl:
        case job_page_hot_shift:
        case job_page_hot_alt:
            return OnHotkeyChanged();
        default:
            break;
    }
    if (control >= job_page_other_option0 && control <= job_page_other_option3) {
        jobPage.other_option = control - job_page_other_option0;
        Show();
    }
}

void JobPageForm::OnEdited(int control) {
    if (control == job_page_Options_speed) {
        speedEdited = true;
        if (!jobPage.button_save_changes) {  // what is being typed counts when the box is left
            jobPage.button_save_changes = true;
            ShowEnabled();
        }
    } else {
        EditRepeat(TextOf(window, control));
    }
}

void JobPageForm::OnLeft(int control) {
    if (control == job_page_Options_speed) return CommitSpeed();
    if (jobPage.Option1 && TextOf(window, control) != jobPage.options_repeat) EditRepeat(TextOf(window, control));
}

void JobPageForm::CommitSpeed() {
    if (!speedEdited) return;
    speedEdited = false;
    LeaveOptionsSpeed(TextOf(window, job_page_Options_speed));
}

void JobPageForm::OnSlider(HWND slider) {
    if (slider == Control(job_page_Slider1) && SliderValue(slider) != jobPage.Slider1) SetSpeed(SliderValue(slider));
    if (slider == Control(job_page_slider_safety_level) && SliderValue(slider) != jobPage.slider_safety_level) {
        SetSafetyLevel(SliderValue(slider));
    }
}

void JobPageForm::OnHotkeyChanged() {
    HotkeyControls controls;
    controls.assign_hotkey = IsTicked(window, job_page_assign_hotkey);
    controls.hot_ctrl = IsTicked(window, job_page_hot_ctrl);
    controls.hot_shift = IsTicked(window, job_page_hot_shift);
    controls.hot_alt = IsTicked(window, job_page_hot_alt);
    controls.hot_slovo = static_cast<int>(SendMessageA(Control(job_page_hot_slovo), CB_GETCURSEL, 0, 0));
    ChangeHotkey(controls);
}

void JobPageForm::OnEnter() {
    CommitSpeed();
    if (jobPage.button_save_changes) SaveChanges();
}

bool JobPageForm::OnKeyDown(int virtualKey) {
    if (virtualKey != VK_DELETE || GetFocus() != Control(job_page_lista_jobs)) return false;
    delete_job();
    return true;
}

// --- Menu_Jobs ---

void JobPageForm::OpenMenuJobs() {
    const HMENU menu = CreatePopupMenu();
    const auto add = [&](int command, const std::string& caption, bool exists) {
        AppendMenuA(menu, MF_STRING | (exists ? MF_ENABLED : MF_GRAYED), static_cast<UINT_PTR>(command),
                    caption.c_str());
    };
    add(job_page_menu_run_job, Translate("&Run"), true);
    add(job_page_menu_edit_job, Translate("&Edit"), EditorExists);
    add(job_page_menu_schedule_job, Translate("&Schedule"), SchedulePageExists);
    add(job_page_menu_create_exe, Translate("&Convert job to .exe file"), MakeExeExists);
    AppendMenuA(menu, MF_SEPARATOR, 0, nullptr);
    add(job_page_menu_create_desktop_shortcut, Translate("Create S&hortcut on Desktop"), true);
    add(job_page_menu_delete_job, Translate("&Delete job"), true);
    RunMenuCommand(TrackMenu(menu, GetParent(window), lista_jobs.MenuPlace()));
}

void JobPageForm::RunMenuCommand(int command) {
    switch (command) {
        case job_page_menu_run_job:
            return run_job();
        case job_page_menu_edit_job:
            return edit_job();
        case job_page_menu_schedule_job:
            return schedule_job();
        case job_page_menu_create_exe:
            return create_exe();
        case job_page_menu_create_desktop_shortcut:
            return create_desktop_shortcut();
        case job_page_menu_delete_job:
            return delete_job();
        default:
            return;
    }
}

// --- values ---

void JobPageForm::Show() {
    if (window == nullptr || showing) return;
    const BusyMark mark(showing);
    if (!jobPage.button_save_changes) speedEdited = false;  // the page shows another job, or what was saved
    ShowText(window, job_page_frame,
             Unmarked(jobPage.frameCaption.empty() ? Translate("Edit properties for job") : jobPage.frameCaption));
    ShowTabs();
    ShowSpeed();
    ShowRepeat();
    ShowAdvanced();
    ShowHotkey();
    ShowEnabled();
    ShowTips();
}

void JobPageForm::ShowTabs() const {
    for (int tab = 0; tab < static_cast<int>(std::size(Panels)); ++tab) {
        const Panel& panel = Panels[tab];
        SetTick(window, job_page_other_option0 + tab, tab == jobPage.other_option);
        for (int control = panel.first; control <= panel.last; ++control) {
            ShowWindow(Control(control), tab == jobPage.other_option ? SW_SHOWNA : SW_HIDE);
        }
    }
}

void JobPageForm::ShowSpeed() {
    SetSlider(Control(job_page_Slider1), jobPage.Slider1);
    if (!speedEdited) ShowTyped(window, job_page_Options_speed, jobPage.Options_speed);
    SetTick(window, job_page_Check6, jobPage.Check6);
    SetTick(window, job_page_Check7, jobPage.Check7);
    ShowText(window, job_page_speed_tip, jobPage.sliderTip);
}

void JobPageForm::ShowRepeat() const {
    SetTick(window, job_page_Option1, jobPage.Option1);
    SetTick(window, job_page_Option2, !jobPage.Option1);
    ShowTyped(window, job_page_options_repeat, jobPage.options_repeat);
}

void JobPageForm::ShowAdvanced() {
    SetSlider(Control(job_page_slider_safety_level), jobPage.slider_safety_level);
    ShowText(window, job_page_Label25, SafetyCaption(jobPage.slider_safety_level));
    ShowText(window, job_page_advanced_panel, Joined(SafetyPanel(jobPage.slider_safety_level)));
    SetTick(window, job_page_similiar_window_names, jobPage.similiar_window_names);
}

void JobPageForm::ShowHotkey() const {
    SetTick(window, job_page_assign_hotkey, jobPage.hotkey.assign_hotkey);
    SetTick(window, job_page_hot_ctrl, jobPage.hotkey.hot_ctrl);
    SetTick(window, job_page_hot_shift, jobPage.hotkey.hot_shift);
    SetTick(window, job_page_hot_alt, jobPage.hotkey.hot_alt);
    SendMessageA(Control(job_page_hot_slovo), CB_SETCURSEL, static_cast<WPARAM>(jobPage.hotkey.hot_slovo), 0);
}

void JobPageForm::ShowEnabled() const {
    const JobPageEnabled enabled = EnabledOnJobPage();
    Enable(window, job_page_run_job_button, enabled.page);
    Enable(window, job_page_edit_job_button, enabled.page && EditorExists);
    Enable(window, job_page_schedule_job_button, enabled.page && SchedulePageExists);
    Enable(window, job_page_make_exe_button, enabled.page && MakeExeExists);
    for (int tab = job_page_other_option0; tab <= job_page_other_option3; ++tab) Enable(window, tab, enabled.page);
    for (const Panel& panel : Panels) {
        for (int control = panel.first; control <= panel.last; ++control) {
            const bool repeat = control == job_page_options_repeat || control == job_page_times;
            const bool keys = control > job_page_hotkey_FIRST && control <= job_page_hotkey_LAST;
            const bool similar = control == job_page_similiar_window_names;
            Enable(window, control,
                   repeat    ? enabled.options_repeat
                   : keys    ? enabled.hotkeyKeys
                   : similar ? enabled.similiar_window_names
                             : enabled.page);
        }
    }
    Enable(window, job_page_button_save_changes, enabled.button_save_changes);
}

void JobPageForm::ShowTips() {
    tips.Set(job_page_Slider1, jobPage.sliderTip);
    tips.Set(job_page_slider_safety_level, SafetyCaption(jobPage.slider_safety_level));
    tips.Set(job_page_run_job_button, jobPage.run_job_tip);
    tips.Set(job_page_edit_job_button, jobPage.edit_job_tip);
    tips.Set(job_page_schedule_job_button, jobPage.schedule_job_tip);
    tips.Set(job_page_make_exe_button, jobPage.make_exe_tip);
}

void JobPageForm::Focus() const {
    SetFocus(Control(job_page_lista_jobs));
}

void JobPageForm::FocusOn(HotkeyFocus control) {
    SetFocus(Control(control == HotkeyFocus::hot_ctrl    ? job_page_hot_ctrl
                     : control == HotkeyFocus::hot_slovo ? job_page_hot_slovo
                                                         : job_page_lista_jobs));
}

void JobPageForm::PosiviSve(bool grey) const {
    EnableWindow(window, !grey);
}

// --- looks ---

void JobPageForm::PodesiRjecnik(Mnemonics letters) {
    std::vector<MnemonicCaption> captions = {
        {job_page_button_save_changes, Caption(Translate("Save Changes"), "&Save Changes")},
        {job_page_other_option0, Caption(Translate("Speed"), "S&peed")},
        {job_page_other_option1, Caption(Translate("Repeat"), "&Repeat")},
        {job_page_other_option2, Caption(Translate("Advanced"), "A&dvanced")},
        {job_page_other_option3, Caption(Translate("Hotkey"), "&Hotkey")},
        {job_page_run_job_button, Translate("Run")},
        {job_page_edit_job_button, Translate("Edit")},
        {job_page_schedule_job_button, Caption(Translate("Schedule"), "S&chedule")},
        {job_page_make_exe_button, Translate("Make exe")},
        {job_page_saved_jobs, Translate("Saved Jobs") + ":"},
        {job_page_speed_label, Translate("Select replay speed") + ":", SpeedPanel},
        {job_page_Check6, Translate("Replay job at maximum possible speed"), SpeedPanel},
        {job_page_Check7, Translate("Skip mouse moves when replaying (increases speed)"), SpeedPanel},
        {job_page_Command5, Translate("Restore original speed"), SpeedPanel},
        {job_page_Option1, Translate("Repeat this job"), RepeatPanel},
        {job_page_Option2, Translate("Over and over again"), RepeatPanel},
        {job_page_safety_label, Translate("Select safety level for job execution") + ":", AdvancedPanel},
        {job_page_similiar_window_names,
         Translate("Allow keyboard and mouse actions on windows with similiar captions if exact cannot be found"),
         AdvancedPanel},
        {job_page_assign_hotkey, Caption(Translate("Assign Hotkey for this job"), "&Assign Hotkey for this job"),
         HotkeyPanel},
        {job_page_hot_ctrl, Translate("CTRL"), HotkeyPanel},
        {job_page_hot_shift, "SHIFT", HotkeyPanel},  // the key says so itself
        {job_page_hot_alt, "ALT", HotkeyPanel},
    };
    MarkAll(captions, letters);
    for (const MnemonicCaption& caption : captions) SetText(window, caption.control, caption.text);
    SetText(window, job_page_times, Translate("times"));
    Show();
}

void JobPageForm::OnDpiChanged() {
    SetFonts();
}

void JobPageForm::SetFonts() {
    const HFONT old = boldFont;
    boldFont = FontLike(window, 100, FW_BOLD);
    SendMessageA(Control(job_page_Label25), WM_SETFONT, reinterpret_cast<WPARAM>(boldFont), TRUE);
    if (old != nullptr) DeleteObject(old);
}
