#include "pages/record_page.h"

#include "dictionary/sentences.h"
#include "mainwindow/job_page.h"
#include "settings/settings.h"
#include "toolkit/window_tools.h"

RecordPage recordPage;

namespace {

std::string StopHint() {
    return Translate1("To stop recording press %1", PauseBreakKey());
}

bool Counts() {
    return settings.display_countdown_check == 1;
}

}  // namespace

std::vector<ControlRow> RecordPage::Rows() {
    return {
        {.id = record_page_heading, .caption = "Record New Job", .anchors = AcrossTop, .font = {170, FW_SEMIBOLD}},
        {.id = record_page_explanation,
         .caption = "Click this button to start recording a new job",
         .anchors = AcrossTop},
        {.id = record_page_command3,
         .caption = "Start recording",
         .tip = "Click this button to start recording a new job",
         .clicked = record_new},
        {.id = record_page_shortcut,
         .caption = [] { return KeyCombination({.ctrl = true, .shift = true}, 'N'); },
         .anchors = AcrossTop},
        {.id = record_page_stop_hint, .caption = StopHint, .anchors = AcrossTop},
        {.id = record_page_options, .caption = "Recording Options", .anchors = AcrossTop},
        {.id = record_page_Capture_Mouse_Moves,
         .caption = "Capture mouse moves also",
         .member = Tick(settings.Capture_Mouse_Moves)},
        {.id = record_page_Display_Recording_Window,
         .caption = "Display recording status window while recording",
         .member = Tick(settings.Display_Recording_Window)},
        {.id = record_page_Display_Start_Program_Dialog,
         .caption = "Display start program dialog before recording starts",
         .member = Tick(settings.Display_Start_Program_Dialog)},
        {.id = record_page_display_countdown_check,
         .caption = "Display countdown before recording starts",
         .member = Tick(settings.display_countdown_check)},
        {.id = record_page_countdown_label, .caption = {"Countdown period (seconds)", Label}, .enabled = Counts},
        {.id = record_page_countdown_period, .enabled = Counts},
    };
}

std::string RecordPage::TabCaption() const {
    return Translate("Record New Job");
}

void RecordPage::OnInit() {
    countdown_period.Attach(Control(record_page_countdown_period));
    countdown_period.Change = [this] { OnChanged(record_page_countdown_period); };
}

void RecordPage::PodesiRjecnik() {
    Page::PodesiRjecnik();
    countdown_period.SetName(Translate("Countdown period"));
}

void RecordPage::OnLooks() {
    SetPicture(Window(), record_page_Picture1);
}

void RecordPage::StaviFocus() const {
    SetFocus(Control(record_page_command3));
}

void RecordPage::OnEnter() {
    record_new();
}

void RecordPage::OnChanged(int) {
    if (!optionsShown) return;
    CopyOptions();
    Refresh();
    SaveSettings();
}

void RecordPage::ShowOptions() {
    optionsShown = false;  // the picker reports the number that it is given
    countdown_period.SetValue(settings.countdown_period);
    Refresh();
    optionsShown = true;
}

void RecordPage::CopyOptions() const {
    if (optionsShown) settings.countdown_period = countdown_period.Value();
}
