#include "pages/job_page_form.h"

#include <commctrl.h>

#include <array>

#include "dictionary/sentences.h"
#include "library/job_library.h"
#include "mainwindow/job_page.h"
#include "mainwindow/job_page_view.h"
#include "makeexe/make_executable.h"
#include "pages/drag_out.h"
#include "toolkit/window_tools.h"

JobPageForm jobPageForm;

namespace {

constexpr int LetterCount = 26;
constexpr int SliderPage = 50;  // percent, by Page Up and Page Down
constexpr UINT_PTR SubclassId = 1;

// One for each sub-tab, of which one is seen.
enum : unsigned { SpeedPanel = 1, RepeatPanel = 2, AdvancedPanel = 4, HotkeyPanel = 8 };

// --- what can be used ---

bool WithJob() {
    return EnabledOnJobPage().page;
}

bool WithRepeat() {
    return EnabledOnJobPage().options_repeat;
}

bool WithSimilarNames() {
    return EnabledOnJobPage().similiar_window_names;
}

bool WithHotkey() {
    return EnabledOnJobPage().hotkeyKeys;
}

// --- what is shown ---

std::string FrameCaption() {
    return Unmarked(jobPage.frameCaption.empty() ? Translate("Edit properties for job") : jobPage.frameCaption);
}

std::string PercentSign() {
    return jobPage.Slider1 == MaximumSpeed ? "" : "%";  // "max" is no number
}

std::string SafetyText() {
    return SafetyCaption(jobPage.slider_safety_level);
}

std::string SafetyParagraphs() {
    std::string text;
    for (const std::string& line : SafetyPanel(jobPage.slider_safety_level)) {
        text += (text.empty() ? "" : "\r\n") + line;
    }
    return text;
}

// The box of one key of the hotkey.
Member KeyOfHotkey(bool& value) {
    return Tick(value, [&value](bool ticked) {
        value = ticked;
        NoteHotkeyChange();
    });
}

}  // namespace

// --- what it is ---

std::string JobPageForm::TabCaption() const {
    return Translate("My Jobs");
}

std::vector<ControlRow> JobPageForm::Rows() {
    return Joined({ActionRows(), TabRows(), SpeedRows(), RepeatRows(), AdvancedRows(), HotkeyRows()});
}

std::vector<ControlRow> JobPageForm::ActionRows() {
    return {
        {.id = job_page_saved_jobs, .caption = {"Saved Jobs", Label}, .anchors = AcrossTop},
        {.id = job_page_lista_jobs, .anchors = AllEdges},
        {.id = job_page_run_job_button,
         .caption = "Run",
         .tip = [] { return jobPage.run_job_tip; },
         .enabled = WithJob,
         .clicked = run_job,
         .anchors = AtTopRight},
        {.id = job_page_edit_job_button,
         .caption = "Edit",
         .tip = [] { return jobPage.edit_job_tip; },
         .enabled = WithJob,
         .clicked = edit_job,
         .anchors = AtTopRight},
        {.id = job_page_schedule_job_button,
         .caption = "Schedule",
         .letter = 'c',
         .tip = [] { return jobPage.schedule_job_tip; },
         .enabled = WithJob,
         .clicked = schedule_job,
         .anchors = AtTopRight},
        {.id = job_page_make_exe_button,
         .caption = "Make exe",
         .tip = [] { return jobPage.make_exe_tip; },
         .enabled = WithJob,
         .clicked = create_exe,
         .anchors = AtTopRight},
        {.id = job_page_frame, .member = Shown(FrameCaption), .anchors = AcrossBottom},
        {.id = job_page_panel_help, .anchors = AtBottomRight},
        {.id = job_page_button_save_changes,
         .caption = "Save Changes",
         .letter = 'S',
         .enabled = [] { return EnabledOnJobPage().button_save_changes; },
         .clicked = [] { SaveChanges(); },
         .anchors = AtBottomRight},
    };
}

std::vector<ControlRow> JobPageForm::TabRows() {
    const auto tab = [this](int number, const char* caption, char letter) {
        return ControlRow{.id = job_page_other_option0 + number,
                          .caption = caption,
                          .letter = letter,
                          .member = Option([number] { return jobPage.other_option == number; },
                                           [this, number] {
                                               jobPage.other_option = number;
                                               Refresh();
                                           }),
                          .enabled = WithJob,
                          .anchors = AtBottomLeft};
    };
    return {tab(0, "Speed", 'p'), tab(1, "Repeat", 'R'), tab(2, "Advanced", 'd'), tab(3, "Hotkey", 'H')};
}

std::vector<ControlRow> JobPageForm::SpeedRows() {
    return {
        {.id = job_page_speed_label,
         .caption = {"Select replay speed", Label},
         .panels = SpeedPanel,
         .enabled = WithJob,
         .anchors = AcrossBottom},
        {.id = job_page_Slider1,
         .panels = SpeedPanel,
         .name = "Select replay speed",
         .tip = [] { return jobPage.sliderTip; },
         .member = Slider(jobPage.Slider1, SetSpeed),
         .enabled = WithJob,
         .anchors = AcrossBottom},
        {.id = job_page_Options_speed,
         .panels = SpeedPanel,
         .name = "Replay speed in percent",
         .member = SpeedBox(),
         .enabled = WithJob,
         .anchors = AtBottomRight},
        {.id = job_page_updown2,
         .panels = SpeedPanel,
         .name = "Replay speed in percent",
         .enabled = WithJob,
         .anchors = AtBottomRight},
        {.id = job_page_percent,
         .panels = SpeedPanel,
         .member = Shown(PercentSign),
         .enabled = WithJob,
         .anchors = AtBottomRight},
        {.id = job_page_speed_tip,
         .panels = SpeedPanel,
         .member = Shown([] { return jobPage.sliderTip; }),
         .enabled = WithJob,
         .anchors = AcrossBottom},
        {.id = job_page_Check6,
         .caption = "Replay job at maximum possible speed",
         .panels = SpeedPanel,
         .member = Tick(jobPage.Check6, ClickMaximumSpeed),
         .enabled = WithJob,
         .anchors = AcrossBottom},
        {.id = job_page_Check7,
         .caption = "Skip mouse moves when replaying (increases speed)",
         .panels = SpeedPanel,
         .member = Tick(jobPage.Check7, ClickSkipMoves),
         .enabled = WithJob,
         .anchors = AcrossBottom},
        {.id = job_page_Command5,
         .caption = "Restore original speed",
         .panels = SpeedPanel,
         .enabled = WithJob,
         .clicked = RestoreOriginalSpeed,
         .anchors = AtBottomLeft},
    };
}

std::vector<ControlRow> JobPageForm::RepeatRows() {
    return {
        {.id = job_page_Option1,
         .caption = "Repeat this job",
         .panels = RepeatPanel,
         .member = Option([] { return jobPage.Option1; }, [] { ClickRepeat(true); }),
         .enabled = WithJob,
         .anchors = AtBottomLeft},
        {.id = job_page_options_repeat,
         .panels = RepeatPanel,
         .name = "Number of repetitions",
         .member = RepeatBox(),
         .enabled = WithRepeat,
         .anchors = AtBottomLeft},
        {.id = job_page_times,
         .caption = "times",
         .panels = RepeatPanel,
         .enabled = WithRepeat,
         .anchors = AtBottomLeft},
        {.id = job_page_Option2,
         .caption = "Over and over again",
         .panels = RepeatPanel,
         .member = Option([] { return !jobPage.Option1; }, [] { ClickRepeat(false); }),
         .enabled = WithJob,
         .anchors = AtBottomLeft},
    };
}

std::vector<ControlRow> JobPageForm::AdvancedRows() {
    return {
        {.id = job_page_safety_label,
         .caption = {"Select safety level for job execution", Label},
         .panels = AdvancedPanel,
         .enabled = WithJob,
         .anchors = AcrossBottom},
        {.id = job_page_slider_safety_level,
         .panels = AdvancedPanel,
         .name = "Safety level",
         .tip = SafetyText,
         .member = Slider(jobPage.slider_safety_level, SetSafetyLevel),
         .enabled = WithJob,
         .anchors = AtBottomLeft},
        {.id = job_page_Label25,
         .panels = AdvancedPanel,
         .member = Shown(SafetyText),
         .enabled = WithJob,
         .anchors = AcrossBottom,
         .font = {100, FW_BOLD}},
        {.id = job_page_advanced_panel,
         .panels = AdvancedPanel,
         .member = Shown(SafetyParagraphs),
         .enabled = WithJob,
         .anchors = AcrossBottom},
        {.id = job_page_similiar_window_names,
         .caption = "Allow keyboard and mouse actions on windows with similiar captions if exact cannot be found",
         .panels = AdvancedPanel,
         .member = Tick(jobPage.similiar_window_names, ClickSimilarNames),
         .enabled = WithSimilarNames,
         .anchors = AcrossBottom},
    };
}

std::vector<ControlRow> JobPageForm::HotkeyRows() {
    return {
        {.id = job_page_assign_hotkey,
         .caption = "Assign Hotkey for this job",
         .letter = 'A',
         .panels = HotkeyPanel,
         .member = KeyOfHotkey(jobPage.hotkey.assign_hotkey),
         .enabled = WithJob,
         .anchors = AcrossBottom},
        {.id = job_page_hot_ctrl,
         .caption = "Ctrl",
         .panels = HotkeyPanel,
         .member = KeyOfHotkey(jobPage.hotkey.hot_ctrl),
         .enabled = WithHotkey,
         .anchors = AtBottomLeft},
        {.id = job_page_hot_shift,
         .caption = "Shift",
         .panels = HotkeyPanel,
         .member = KeyOfHotkey(jobPage.hotkey.hot_shift),
         .enabled = WithHotkey,
         .anchors = AtBottomLeft},
        {.id = job_page_hot_alt,
         .caption = "Alt",
         .panels = HotkeyPanel,
         .member = KeyOfHotkey(jobPage.hotkey.hot_alt),
         .enabled = WithHotkey,
         .anchors = AtBottomLeft},
        {.id = job_page_plus, .panels = HotkeyPanel, .enabled = WithHotkey, .anchors = AtBottomLeft},
        {.id = job_page_hot_slovo,
         .panels = HotkeyPanel,
         .name = "Hotkey letter",
         .member = Choice(jobPage.hotkey.hot_slovo, NoteHotkeyChange),
         .enabled = WithHotkey,
         .anchors = AtBottomLeft},
    };
}

unsigned JobPageForm::VisiblePanels() const {
    return 1U << static_cast<unsigned>(jobPage.other_option);
}

void JobPageForm::OnInit() {
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
    SetWindowSubclass(Control(job_page_Options_speed), SpeedThunk, SubclassId, reinterpret_cast<DWORD_PTR>(this));
    lista_jobs.Attach(Control(job_page_lista_jobs), jobLibrary.lista_jobs);
    lista_jobs.BeginDrag = [](int row) { DragFileOut(job_library::JobPathOfRow(row)); };
    if (isGrey) EnableWindow(Window(), FALSE);
}

void JobPageForm::PodesiRjecnik() {
    Page::PodesiRjecnik();
    WordHelpLink(job_page_panel_help);
    lista_jobs.SetName(Translate("Saved Jobs"));
    lista_jobs.SetAction(Translate("Edit"));
}

// The list is cut to whole rows; a high one has a row more.
void JobPageForm::OnLayout() {
    lista_jobs.FitWholeRows();
}

// --- the speed ---

// What is typed counts when the box is left; until then it only says that there is something to save.
Member JobPageForm::SpeedBox() {
    return {.show =
                [this](HWND box) {
                    if (!jobPage.button_save_changes) speedEdited = false;  // another job, or what was saved
                    if (!speedEdited) ShowTyped(box, jobPage.Options_speed);
                },
            .take =
                [this](HWND) {
                    speedEdited = true;
                    jobPage.button_save_changes = true;
                    Refresh();
                },
            .leave = [this](HWND) { CommitSpeed(); }};
}

void JobPageForm::CommitSpeed() {
    if (!speedEdited) return;
    speedEdited = false;
    LeaveOptionsSpeed(TextOf(Window(), job_page_Options_speed));
}

void JobPageForm::StepSpeedBox(int steps) {
    CommitSpeed();
    StepSpeed(steps);
}

LRESULT CALLBACK JobPageForm::SpeedThunk(HWND edit, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                         DWORD_PTR page) noexcept {
    const bool isArrow = message == WM_KEYDOWN && (wParam == VK_UP || wParam == VK_DOWN);
    if (message == WM_NCDESTROY) RemoveWindowSubclass(edit, SpeedThunk, id);
    if (!isArrow) return DefSubclassProc(edit, message, wParam, lParam);
    return Guarded<LRESULT>(0, [&]() -> LRESULT {
        reinterpret_cast<JobPageForm*>(page)->StepSpeedBox(wParam == VK_UP ? 1 : -1);
        return 0;
    });
}

bool JobPageForm::OnMessage(UINT message, WPARAM, LPARAM lParam, LRESULT& result) {
    if (message != WM_NOTIFY) return false;
    if (LinkFollowed(*reinterpret_cast<const NMHDR*>(lParam), job_page_panel_help)) {
        OpenHelpOn(TopicOfPanel());
        return true;
    }
    const auto* const notice = reinterpret_cast<const NMUPDOWN*>(lParam);
    if (notice->hdr.idFrom != job_page_updown2 || notice->hdr.code != static_cast<UINT>(UDN_DELTAPOS)) return false;
    StepSpeedBox(notice->iDelta > 0 ? 1 : -1);
    result = TRUE;  // it has no number of its own
    return true;
}

// --- repeat ---

Member JobPageForm::RepeatBox() {
    return {.show = [](HWND box) { ShowTyped(box, jobPage.options_repeat); },
            .take = [](HWND box) { EditRepeat(WindowText(box)); },
            .leave =
                [](HWND box) {
                    if (jobPage.Option1 && WindowText(box) != jobPage.options_repeat) EditRepeat(WindowText(box));
                }};
}

// --- the keyboard ---

void JobPageForm::OnEnter() {
    CommitSpeed();
    if (jobPage.button_save_changes) SaveChanges();
}

bool JobPageForm::OnKeyDown(int virtualKey) {
    if (virtualKey != VK_DELETE || GetFocus() != Control(job_page_lista_jobs)) return false;
    delete_job();
    return true;
}

void JobPageForm::StaviFocus() const {
    SetFocus(Control(job_page_lista_jobs));
}

void JobPageForm::FocusOn(HotkeyFocus control) {
    SetFocus(Control(control == HotkeyFocus::hot_ctrl    ? job_page_hot_ctrl
                     : control == HotkeyFocus::hot_slovo ? job_page_hot_slovo
                                                         : job_page_lista_jobs));
}

// --- help ---

std::string JobPageForm::TopicOfPanel() const {
    constexpr std::array topics = {help_topic::Speed, help_topic::Repeat, help_topic::Safety, help_topic::Hotkey};
    return topics.at(static_cast<std::size_t>(jobPage.other_option));
}

std::string JobPageForm::HelpTopic() const {
    const HWND focus = GetFocus();
    const int id = GetParent(focus) == Window() ? GetDlgCtrlID(focus) : 0;
    return id >= job_page_other_option0 && id <= job_page_hotkey_LAST ? TopicOfPanel() : help_topic::MyJobs;
}

// --- Menu_Jobs ---

void JobPageForm::OpenMenuJobs() {
    struct Entry {
        FormText caption = {};  // none is a line
        void (*command)() = nullptr;
    };
    std::vector<Entry> entries = {
        {.caption = "&Run", .command = run_job},
        {.caption = "&Edit", .command = edit_job},
        {.caption = "&Schedule", .command = schedule_job},
        {.caption = "&Convert job to .exe file", .command = create_exe},
        {},
        {.caption = "Create S&hortcut on Desktop", .command = create_desktop_shortcut},
        {.caption = "&Delete job", .command = delete_job},
    };
    const Entry findings = {.caption = "Show &findings", .command = show_findings};
    if (SelectedJobHasFindings()) entries.insert(entries.begin() + 4, findings);
    const HMENU menu = CreatePopupMenu();
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const UINT kind = entries[i].caption ? MF_STRING : MF_SEPARATOR;
        AppendMenuA(menu, kind, i + 1, entries[i].caption().c_str());
    }
    const auto chosen = static_cast<std::size_t>(TrackMenu(menu, GetParent(Window()), lista_jobs.MenuPlace()));
    if (chosen > 0) entries[chosen - 1].command();
}

void JobPageForm::PosiviSve(bool grey) {
    isGrey = grey;
    EnableWindow(Window(), !grey);
}

// --- the view ---

namespace job_page_view {

void Show() {
    jobPageForm.Refresh();
}

void FocusOn(HotkeyFocus control) {
    jobPageForm.FocusOn(control);
}

void PosiviSve(bool grey) {
    jobPageForm.PosiviSve(grey);
}

void OpenMenuJobs() {
    jobPageForm.OpenMenuJobs();
}

void MakeExe(const std::string& jobPath) {
    ::MakeExe(jobPath);
}

}  // namespace job_page_view
