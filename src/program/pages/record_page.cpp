#include "pages/record_page.h"

#include "dictionary/dictionary.h"
#include "mainwindow/job_page.h"
#include "pages/record_page_ids.h"
#include "settings/settings.h"
#include "toolkit/form_thunk.h"
#include "toolkit/window_tools.h"

namespace {

struct Option {
    int control;
    std::int32_t Settings::*field;
};
constexpr Option Options[] = {
    {record_page_Capture_Mouse_Moves, &Settings::Capture_Mouse_Moves},
    {record_page_Display_Recording_Window, &Settings::Display_Recording_Window},
    {record_page_Display_Start_Program_Dialog, &Settings::Display_Start_Program_Dialog},
    {record_page_display_countdown_check, &Settings::display_countdown_check},
};

bool IsOption(int control) {
    for (const Option& option : Options) {
        if (option.control == control) return true;
    }
    return false;
}

// "Record &New (Ctrl+Shift+N)", the entry of the tray menu, ends in the name of the keys.
std::string KeysOfRecordNew() {
    const std::string entry = Translate("Record &New (Ctrl+Shift+N)");
    const std::size_t open = entry.find('(');
    const std::size_t close = entry.find(')', open);
    return close == std::string::npos ? std::string() : entry.substr(open + 1, close - open - 1);
}

}  // namespace

void RecordPage::Create(HWND mainWindow) {
    CreateDialogParamA(ProgramInstance(), MAKEINTRESOURCEA(record_page_dialog), mainWindow, FormThunk<RecordPage>,
                       reinterpret_cast<LPARAM>(this));
}

bool RecordPage::OnInitDialog(HWND page) {
    window = page;
    countdown_period.Attach(GetDlgItem(page, record_page_countdown_period));
    countdown_period.Change = [this] { OnOptionChanged(); };
    tips.Create(page);
    SetLooks();
    return false;  // the focus is the main window's affair
}

// --- messages ---

INT_PTR RecordPage::OnDialogMessage(UINT message, WPARAM wParam, LPARAM) {
    return message == WM_COMMAND && HIWORD(wParam) == BN_CLICKED ? OnCommand(LOWORD(wParam)) : FALSE;
}

INT_PTR RecordPage::OnCommand(int control) {
    if (control == record_page_command3) {
        ClickCommand3();
        return TRUE;
    }
    if (!IsOption(control)) return FALSE;
    OnOptionChanged();
    return TRUE;
}

void RecordPage::ClickCommand3() {
    record_new();
}

void RecordPage::OnOptionChanged() {
    if (!optionsShown) return;
    EnableCountdownPeriod();
    CopyOptions();
    SaveSettings();
}

// --- values ---

void RecordPage::ShowOptions() {
    optionsShown = false;  // the picker reports the number that it is given
    for (const Option& option : Options) SetTick(window, option.control, settings.*option.field == 1);
    countdown_period.SetValue(settings.countdown_period);
    EnableCountdownPeriod();
    optionsShown = true;
}

void RecordPage::CopyOptions() const {
    if (!optionsShown) return;
    for (const Option& option : Options) settings.*option.field = IsTicked(window, option.control) ? 1 : 0;
    settings.countdown_period = countdown_period.Value();
}

void RecordPage::EnableCountdownPeriod() {
    const bool counts = IsTicked(window, record_page_display_countdown_check);
    countdown_period.Enable(counts);
    EnableWindow(GetDlgItem(window, record_page_countdown_label), counts);
}

// --- looks ---

void RecordPage::PodesiRjecnik(Mnemonics letters) {
    const auto caption = [&](int control, const std::string& text) { SetText(window, control, letters.Mark(text)); };
    SetText(window, record_page_heading, Translate("Record New Job"));
    SetText(window, record_page_explanation, Translate("Click this button to start recording a new job"));
    caption(record_page_command3, Translate("Start recording"));
    SetText(window, record_page_shortcut, KeysOfRecordNew());
    SetText(window, record_page_stop_hint,
            Translate("To stop recording press") + " " + Translate("Pause") + "/" + Translate("Break"));
    SetText(window, record_page_options, Unmarked(Translate("Recording Options")));
    caption(record_page_Capture_Mouse_Moves, Translate("Capture mouse moves also"));
    caption(record_page_Display_Recording_Window, Translate("Display recording status window while recording"));
    caption(record_page_Display_Start_Program_Dialog,
            Translate("Display start program dialog before recording starts"));
    caption(record_page_display_countdown_check, Translate("Display countdown before recording starts"));
    caption(record_page_countdown_label, Translate("Countdown period (seconds)") + ":");
    tips.Set(record_page_command3, Translate("Click this button to start recording a new job"));
}

void RecordPage::Focus() const {
    SetFocus(GetDlgItem(window, record_page_command3));
}

void RecordPage::OnDpiChanged() {
    SetLooks();
}

void RecordPage::SetLooks() {
    const HFONT old = headingFont;
    headingFont = FontLike(window, 170, FW_SEMIBOLD);
    SendDlgItemMessageA(window, record_page_heading, WM_SETFONT, reinterpret_cast<WPARAM>(headingFont), TRUE);
    if (old != nullptr) DeleteObject(old);
    const platform::Rect picture = RectangleOf(GetDlgItem(window, record_page_Picture1));
    SendDlgItemMessageA(window, record_page_Picture1, STM_SETICON,
                        reinterpret_cast<WPARAM>(ProgramIcon(picture.right - picture.left)), 0);
}
