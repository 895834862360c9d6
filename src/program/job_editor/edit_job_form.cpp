#include "job_editor/edit_job_form.h"

#include <commctrl.h>

#include <algorithm>
#include <initializer_list>
#include <utility>

#include "base/text.h"
#include "dictionary/sentences.h"
#include "editor/edit_job.h"
#include "editor/explain_row.h"
#include "editor/insert_recording.h"
#include "editor/job_changes.h"
#include "editor/keystroke_box.h"
#include "editor/plain_text.h"
#include "editor/row_edits.h"
#include "editor/run_rows.h"
#include "editor/save_job.h"
#include "folding/popuni_listu.h"
#include "job_editor/edit_job_menu.h"
#include "job_editor/editor_layout.h"
#include "job_editor/editor_place.h"
#include "job_editor/save_name_form.h"
#include "jobs/job_fields.h"
#include "jobs/job_name.h"
#include "mainwindow/main_window_use.h"
#include "status/why_form.h"
#include "toolkit/window_tools.h"
#include "widgets/busy_mark.h"

EditJobForm editJobForm;

namespace {

constexpr const char* WindowClass = "TessarineJobEditor";
constexpr WPARAM CopyCharacter = 3;  // Ctrl+C

// One for each view of the place below the grid, and one for the line about the program.
enum : unsigned { KeystrokesPanel = 1, PlainTextPanel = 2, DescriptionPanel = 4, ProgramPanel = 8 };

bool HasRows() {
    return !editState.RowIndex.empty();
}

bool HasKeystrokes() {
    return keystrokeBox.enabled;
}

bool HasWheelRow() {
    return keystrokeBox.wheelButtons;
}

bool TargetApplies() {
    return eventPane.targetApplies;
}

// While the plain text is typed, the job stays where it is.
bool MayLeave() {
    return !plainText.playingPlainText;
}

// A tip with the key that does the same.
FormText TipWithKey(FormText tip, std::function<std::string()> key) {
    return [tip = std::move(tip), key = std::move(key)] { return tip() + " (" + key() + ")"; };
}

std::function<std::string()> Ctrl(char letter) {
    return [letter] { return KeyCombination({.ctrl = true}, letter); };
}

// A name with its number, in one label; nothing without a number.
Member Numbered(FormText name, const std::string& number) {
    return Shown([name = std::move(name), &number] { return number.empty() ? "" : name() + " " + number; });
}

// A description is one line in the list of jobs.
std::string InOneLine(std::string text) {
    std::erase(text, '\r');
    std::replace(text.begin(), text.end(), '\n', ' ');
    return text;
}

bool IsOneOf(int id, std::initializer_list<int> ids) {
    return std::find(ids.begin(), ids.end(), id) != ids.end();
}

bool TakesText(HWND control) {
    return (SendMessageA(control, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL) != 0;
}

// A key that would change what is typed in a text box.
bool ChangesText(const MSG& message) {
    if (message.message == WM_CHAR) return message.wParam != CopyCharacter;
    return message.message == WM_KEYDOWN && message.wParam == VK_DELETE;
}

}  // namespace

// --- what it is ---

std::string EditJobForm::Caption() const {
    const std::string editor = Translate("Job Editor");
    return editState.jobName.empty() ? editor : editor + " - " + BaseName(editState.jobName) + JobExtension;
}

std::vector<ControlRow> EditJobForm::Rows() {
    return Joined({FileRows(), CommandRows(), TimingRows(), TargetRows(), KeystrokeRows(), BottomRows()});
}

std::vector<ControlRow> EditJobForm::FileRows() {
    return {
        {.id = edit_job_save_button,
         .caption = "Save",
         .letter = 'S',
         .tip = TipWithKey("Save the job", Ctrl('S')),
         .enabled = [] { return SaveIsEnabled() && MayLeave(); },
         .clicked = [] { save_button(); }},
        {.id = edit_job_save_as_button,
         .caption = "Save &As",
         .tip = "Save the job under another name",
         .enabled = MayLeave,
         .clicked = save_as_button},
        {.id = edit_job_undo,
         .caption = "&Undo",
         .tip = TipWithKey("Take the last change back", Ctrl('Z')),
         .enabled = CanUndo,
         .clicked = Undo},
        {.id = edit_job_redo,
         .caption = "Red&o",
         .tip = TipWithKey("Make the change again that was taken back", Ctrl('Y')),
         .enabled = CanRedo,
         .clicked = Redo},
        {.id = edit_job_delete_event,
         .caption = "Delete",
         .tip = TipWithKey("Delete the selected rows", [] { return Translate("Del"); }),
         .enabled = HasRows,
         .clicked = delete_event},
        {.id = edit_job_exit_button,
         .caption = "&Close",
         .tip = "Close the editor",
         .enabled = MayLeave,
         .clicked = [this] { Leave(); },
         .anchors = AtTopRight},
        {.id = IDHELP, .anchors = AtTopRight},
    };
}  // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks): a std::function frees what it holds

std::vector<ControlRow> EditJobForm::CommandRows() {
    const auto recording = [](const FormText& where) {
        return [where] { return where() + " " + Translate("start recording"); };
    };
    return {
        {.id = edit_job_insert_above, .caption = {"Insert above", Label}},
        {.id = edit_job_start_recording_above,
         .caption = "start recording",
         .name = recording({"Insert above", Label}),
         .tip = "Record a piece and put it in above the selected row",
         .clicked = start_recording_above},
        {.id = edit_job_insert_below, .caption = {"Insert below", Label}},
        {.id = edit_job_start_recording_below,
         .caption = "start recording",
         .name = recording({"Insert below", Label}),
         .tip = "Record a piece and put it in below the selected row",
         .enabled = HasRows,
         .clicked = start_recording_below},
        {.id = edit_job_run_from_here,
         .caption = "Run fro&m here",
         .tip = TipWithKey("Run the job from the selected row to its end", [] { return std::string("F5"); }),
         .enabled = HasRows,
         .clicked = RunFromHere},
        {.id = edit_job_run_only_this,
         .caption = "Run onl&y this",
         .tip = "Run the selected rows alone",
         .enabled = HasRows,
         .clicked = RunSelectedRows},
        {.id = edit_job_grid, .name = "Rows of the job", .anchors = AllEdges},
    };
}  // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks): a std::function frees what it holds

// Of a number picker; its own report of a change that is ours counts for nothing.
Member EditJobForm::PickerText(std::function<std::string()> text) {
    return {.show = [this, text = std::move(text)](HWND box) {
        const BusyMark mark(updatingPane);
        ShowTyped(box, text());
    }};
}

std::vector<ControlRow> EditJobForm::TimingRows() {
    const auto pickers = [] { return eventPane.pickersEnabled; };
    return {
        {.id = edit_job_timing, .caption = "Timing", .anchors = AtTopRight},
        {.id = edit_job_delay_label, .caption = {"Delay", Label}, .anchors = AtTopRight},
        {.id = edit_job_delay_mk,
         .member = PickerText([] { return eventPane.delay_mk; }),
         .enabled = pickers,
         .anchors = AtTopRight},
        {.id = edit_job_delay_unit, .anchors = AtTopRight},
        {.id = edit_job_delay_set,
         .caption = "Set &Delay",
         .enabled = [] { return eventPane.delay_set; },
         .clicked = delay_set_Click,
         .anchors = AtTopRight},
        {.id = edit_job_duration_label, .caption = {"Duration", Label}, .anchors = AtTopRight},
        {.id = edit_job_duration_mk,
         .member = PickerText([] { return eventPane.duration_mk; }),
         .enabled = pickers,
         .anchors = AtTopRight},
        {.id = edit_job_duration_unit, .anchors = AtTopRight},
        {.id = edit_job_duration_set,
         .caption = "Set du&ration",
         .enabled = [] { return eventPane.duration_set; },
         .clicked = duration_set_Click,
         .anchors = AtTopRight},
    };
}

std::vector<ControlRow> EditJobForm::TargetRows() {
    return {
        {.id = edit_job_target, .caption = "Event target", .anchors = AtTopRight},
        {.id = edit_job_Label5, .caption = {"Execute action on this window", Label}, .anchors = AtTopRight},
        {.id = edit_job_wait_for_window_text,
         .name = "Execute action on this window",
         .tip = [] { return eventPane.wait_for_window_text; },
         .member = Shown([] { return eventPane.wait_for_window_text; }),
         .anchors = AtTopRight},
        {.id = edit_job_Label8, .caption = {"Wait for window to appear for maximum", Label}, .anchors = AtTopRight},
        {.id = edit_job_wait_for_window_ms,
         .member = PickerText([] { return std::to_string(eventPane.wait_for_window_ms); }),
         .enabled = TargetApplies,
         .anchors = AtTopRight},
        {.id = edit_job_wait_unit, .caption = "seconds", .anchors = AtTopRight},
        {.id = edit_job_Label9, .caption = {"If window cannot be found", Label}, .anchors = AtTopRight},
        {.id = edit_job_if_no_window,
         .name = "If window cannot be found",
         .member = {
             .show =
                 [](HWND list) { SendMessageA(list, CB_SETCURSEL, static_cast<WPARAM>(eventPane.if_no_window), 0); },
             .take =
                 [](HWND list) {
                     IfNoWindowChanged(static_cast<std::int32_t>(SendMessageA(list, CB_GETCURSEL, 0, 0)));
                 }},
         .enabled = TargetApplies,
         .anchors = AtTopRight},
    };
}

std::vector<ControlRow> EditJobForm::KeystrokeRows() {
    const auto view = [](KeystrokeView chosen) { return [chosen] { return keystrokeBox.view == chosen; }; };
    const auto takeDescription = [](const std::string& typed) { SetDescription(InOneLine(typed)); };
    return {
        {.id = edit_job_Option1,
         .caption = "Edit Keystrokes",
         .member = Option(view(KeystrokeView::Keystrokes), Option1_Click),
         .enabled = HasKeystrokes,
         .anchors = AtBottomLeft},
        {.id = edit_job_Option2,
         .caption = "Show keystrokes as plain text",
         .member = Option(view(KeystrokeView::PlainText), Option2_Click),
         .enabled = HasKeystrokes,
         .anchors = AtBottomLeft},
        {.id = edit_job_Option3,
         .caption = "Job description",
         .member = Option(view(KeystrokeView::Description), Option3_Click),
         .anchors = AtBottomLeft},
        {.id = edit_job_Text1, .panels = KeystrokesPanel, .enabled = HasKeystrokes, .anchors = AcrossBottom},
        {.id = edit_job_plain_text,
         .panels = PlainTextPanel,
         .name = "Keystrokes as plain text",
         .enabled = HasKeystrokes,
         .anchors = AcrossBottom},
        {.id = edit_job_job_description,
         .panels = DescriptionPanel,
         .name = "Job description",
         .member = Typed(editState.header.Description, takeDescription),
         .anchors = AcrossBottom},
        {.id = edit_job_Command5,
         .caption = "WHEEL UP",
         .enabled = HasWheelRow,
         .clicked = Command5_Click,
         .anchors = AtBottomRight},
        {.id = edit_job_command3,
         .caption = "WHEEL DOWN",
         .enabled = HasWheelRow,
         .clicked = command3_Click,
         .anchors = AtBottomRight},
        {.id = edit_job_keyboard, .anchors = AcrossBottom},
    };
}

std::vector<ControlRow> EditJobForm::BottomRows() {
    return {
        {.id = edit_job_program_label,
         .caption = {"Run this program when job starts", Label},
         .panels = ProgramPanel,
         .anchors = AtBottomLeft},
        {.id = edit_job_Browse_Text,
         .panels = ProgramPanel,
         .member = Shown([] { return editState.Browse_Text; }),
         .anchors = AcrossBottom},
        {.id = edit_job_Label6, .member = Numbered({"First event", Label}, eventPane.Label6), .anchors = AtBottomRight},
        {.id = edit_job_Label7, .member = Numbered({"Last event", Label}, eventPane.Label7), .anchors = AtBottomRight},
    };
}

unsigned EditJobForm::VisiblePanels() const {
    const unsigned program = editState.Browse_Text.empty() ? 0U : unsigned{ProgramPanel};
    switch (keystrokeBox.view) {
        case KeystrokeView::PlainText:
            return PlainTextPanel | program;
        case KeystrokeView::Description:
            return DescriptionPanel | program;
        case KeystrokeView::Keystrokes:
            break;
    }
    return KeystrokesPanel | program;
}

// The labels of the target fields are grey while those cannot be used.
COLORREF EditJobForm::TextColour(int id) const {
    const bool grey = IsOneOf(id, {edit_job_Label5, edit_job_Label8, edit_job_Label9}) && !targetApplies;
    return GetSysColor(grey ? COLOR_GRAYTEXT : COLOR_WINDOWTEXT);
}

// A button that has done what there was to do leaves the keyboard where the work goes on.
int EditJobForm::FocusInsteadOf(int id) const {
    if (id == edit_job_delay_set && eventPane.pickersEnabled) return edit_job_delay_mk;
    if (id == edit_job_duration_set && eventPane.pickersEnabled) return edit_job_duration_mk;
    return edit_job_grid;
}

// --- life ---

void EditJobForm::Load(HWND owner) {
    RegisterNumberPicker();
    RegisterKeystrokeBox();
    RegisterOnscreenKeyboard();
    RegisterDialogClass(WindowClass, GetSysColorBrush(COLOR_3DFACE));
    if (!Create(owner)) return;
    ShowInKeptPlace(Window());
    SetForegroundWindow(Window());
    FocusGrid();
}

void EditJobForm::OnInit() {
    jobIsOpen = true;
    mainWindowUse.Take(MainWindowHolder::Dialog);
    grid.Attach(Control(edit_job_grid));
    grid.Edit = [this] { OnEdit(); };
    PreparePickers();
    Text1.Attach(Control(edit_job_Text1));
    keyboard.Attach(Control(edit_job_keyboard));
    SendMessageA(Control(edit_job_job_description), EM_SETLIMITTEXT, DescriptionWidth, 0);
    SendMessageA(Control(edit_job_plain_text), EM_SETLIMITTEXT, 0, 0);  // as much as there is
}

void EditJobForm::PreparePickers() {
    delay_mk.Attach(Control(edit_job_delay_mk));
    duration_mk.Attach(Control(edit_job_duration_mk));
    wait_for_window_ms.Attach(Control(edit_job_wait_for_window_ms));
    delay_mk.Change = [this] {
        if (updatingPane) return;
        DelayTyped(WindowText(delay_mk.Window()));
        Refresh();
    };
    duration_mk.Change = [this] {
        if (updatingPane) return;
        DurationTyped(WindowText(duration_mk.Window()));
        Refresh();
    };
    wait_for_window_ms.Change = [this] {
        if (!updatingPane) WaitForWindowChanged(wait_for_window_ms.Value());
    };
}

void EditJobForm::OnUnload() {
    if (std::exchange(jobIsOpen, false)) mainWindowUse.GiveBack(MainWindowHolder::Dialog);
    EditorHasClosed();
}

void EditJobForm::PodesiRjecnik() {
    if (Window() == nullptr) return;
    Mnemonics letters;
    WordMenu(Window(), letters);
    SetTakenLetters(letters);
    FillChoices();
    Form::PodesiRjecnik();
    grid.SetHeaders();
    delay_mk.SetName(Translate("Delay in milliseconds"));
    duration_mk.SetName(Translate("Duration in milliseconds"));
    wait_for_window_ms.SetName(Translate("Seconds to wait for the window"));
    Text1.SetName(Translate("Edit Keystrokes"));
    keyboard.PodesiRjecnik();
    keyboard.SetName(Translate("On-screen keyboard"));
    PlaceToolbar(Window());
    PlaceProgram(Window());
}

// By their places, which are the values that a job has for them.
void EditJobForm::FillChoices() const {
    const HWND list = Control(edit_job_if_no_window);
    SendMessageA(list, CB_RESETCONTENT, 0, 0);
    for (const std::string& choice : {Translate("Stop executing job"), Translate("Skip this action and continue"),
                                      Translate("Execute this action anyway")}) {
        SendMessageA(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(choice.c_str()));
    }
}

void EditJobForm::OnLooks() {
    grid.Scale();
}

// Leaves the rest to a box that asks about changes. The main window is the user's before this one goes: with both out
// of use the foreground would go to another program.
void EditJobForm::Leave() {
    if (!MayLeave() || !jobIsOpen) return;
    KeepPlace(Window());
    if (!MayCloseEditor() || !std::exchange(jobIsOpen, false)) return;
    mainWindowUse.GiveBack(MainWindowHolder::Dialog);
    Close();
}

void EditJobForm::OnLayout() {
    PlaceToolbar(Window());
    PlaceProgram(Window());
    PlaceKeyboard(Window());
}

// --- messages ---

bool EditJobForm::OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
        case WM_NOTIFY: {
            const auto& notice = *reinterpret_cast<const NMHDR*>(lParam);
            return notice.idFrom == edit_job_grid && grid.OnNotify(notice, result);
        }
        case WM_COMMAND:
            OnCommandCode(LOWORD(wParam), HIWORD(wParam));
            return false;
        case WM_INITMENUPOPUP:
            EnableMenuEntries(Window(), reinterpret_cast<HMENU>(wParam));
            return false;
        case WM_MOUSEWHEEL:  // what has the keyboard has no use for it
            SendMessageA(grid.Window(), message, wParam, lParam);
            return true;
        case WM_CLOSE:
            Leave();
            return true;
        default:
            return false;
    }
}

// A picker that gets the keyboard is ready for another number.
void EditJobForm::OnCommandCode(int id, int code) {
    const bool isPicker = IsOneOf(id, {edit_job_delay_mk, edit_job_duration_mk, edit_job_wait_for_window_ms});
    if (isPicker && code == EN_SETFOCUS) SendMessageA(Control(id), EM_SETSEL, 0, -1);
}

// What was typed may be a change, with Save to be enabled.
void EditJobForm::OnChanged(int) {
    ShowAll();
}

bool EditJobForm::OnClicked(int id) {
    if (id == IDOK) OnEnter();
    if (id == edit_job_select_all) grid.SelectAll();
    if (id == edit_job_why && HasRows()) why.ShowFor(ExplainSelectedRow(), Window());
    return IsOneOf(id,
                   {IDOK, IDCANCEL, edit_job_select_all, edit_job_why});  // Esc closes nothing that may have changes
}

// Enter anywhere but on a button.
void EditJobForm::OnEnter() {
    const HWND focus = GetFocus();
    if (focus == delay_mk.Window()) {
        if (eventPane.delay_set) delay_set_Click();
        duration_mk.StaviFocus();
    } else if (focus == duration_mk.Window()) {
        if (eventPane.duration_set) duration_set_Click();
        FocusGrid();
    } else if (focus == grid.Window()) {
        OnEdit();
    }
}

// To what changes the row: its keystrokes, or else its time.
void EditJobForm::OnEdit() {
    if (!HasRows()) return;
    if (!HasKeystrokes()) return delay_mk.StaviFocus();
    if (keystrokeBox.view != KeystrokeView::Keystrokes) Option1_Click();
    FocusText();
}

// In Text1 every key is input for the row: no command, and no letter of a menu or a button.
bool EditJobForm::OnKey(const MSG& message) {
    if (HandOnKey(message, Text1.Window(), Control(edit_job_plain_text))) return true;
    if (!IsWindowEnabled(Window())) return false;
    if (message.hwnd == Control(edit_job_plain_text) && ChangesText(message)) return !plain_text_KeyPress();
    if (message.message != WM_KEYDOWN) return false;
    const int id = CommandOfKey(message.wParam, TakesText(message.hwnd), message.hwnd == grid.Window());
    if (id == 0) return false;
    const HWND button = Control(id);
    if (button == nullptr || IsWindowEnabled(button)) SendMessageA(Window(), WM_COMMAND, static_cast<WPARAM>(id), 0);
    return true;
}

// --- what the logic asks for ---

void EditJobForm::ShowRows() {
    grid.ShowRows();
    ShowAll();
}

void EditJobForm::RepaintRows() {
    grid.Repaint();
}

void EditJobForm::ShowAll() {
    if (Window() == nullptr) return;
    if (const std::string caption = Caption(); WindowText(Window()) != caption) {
        SetWindowTextA(Window(), caption.c_str());
    }
    ShowTarget();
    Refresh();
}

void EditJobForm::ShowTarget() {
    if (std::exchange(targetApplies, eventPane.targetApplies) == eventPane.targetApplies) return;
    for (const int label : {edit_job_Label5, edit_job_Label8, edit_job_Label9}) {
        InvalidateRect(Control(label), nullptr, TRUE);
    }
}

bool EditJobForm::AskJobName(std::string& name) {
    return SaveNameForm(name).Ask(Window());
}

// Hidden altogether: minimised, it could be clicked on in the task bar, and would stand there without an answer.
void EditJobForm::PutAside() {
    EnableWindow(Window(), FALSE);
    ShowWindow(Window(), SW_HIDE);
}

void EditJobForm::BringBack() {
    EnableWindow(Window(), TRUE);
    ShowWindow(Window(), IsIconic(Window()) ? SW_RESTORE : SW_SHOW);
    SetForegroundWindow(Window());
    FocusGrid();
}

void EditJobForm::StandAboveOwner() const {
    const HWND owner = Window() == nullptr ? nullptr : GetWindow(Window(), GW_OWNER);
    if (owner == nullptr) return;
    SetWindowPos(owner, Window(), 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

// --- keystrokes ---

void EditJobForm::ShowText() {
    Text1.ShowText();
    keyboard.ShowText();
}

void EditJobForm::FocusText() const {
    SetFocus(Text1.Window());
}

void EditJobForm::LeaveText() const {
    SendMessageA(Window(), WM_NEXTDLGCTL, 0, FALSE);
}

void EditJobForm::ClearPlainText() const {
    SetText(Window(), edit_job_plain_text, "");
}

void EditJobForm::FocusPlainText() const {
    SetFocus(Control(edit_job_plain_text));
}

void EditJobForm::AppendPlainText(const std::string& text) const {
    const HWND box = Control(edit_job_plain_text);
    const int length = GetWindowTextLengthA(box);
    SendMessageA(box, EM_SETSEL, static_cast<WPARAM>(length), length);
    SendMessageA(box, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(text.c_str()));
}

void EditJobForm::FocusGrid() const {
    SetFocus(grid.Window());
}
