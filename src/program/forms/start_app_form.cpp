#include "forms/start_app_form.h"

#include <commdlg.h>

#include <algorithm>
#include <array>

#include "dictionary/sentences.h"
#include "forms/dialog_owner.h"
#include "recording/start_app_view.h"
#include "toolkit/window_tools.h"

namespace {

// What a job has room for.
constexpr WPARAM LongestPath = 800;
constexpr WPARAM LongestCommandLine = 300;

// A "|" stands between the parts of a filter; the system wants a zero behind each, and one more.
std::string SystemFilter() {
    std::string filter = std::string(ProgramFilter) + "|";
    std::replace(filter.begin(), filter.end(), '|', '\0');
    return filter;
}

std::string ChooseProgram(HWND owner) {
    std::array<char, LongestPath + 1> path{};
    const std::string title = Translate("Select application to run");
    const std::string filter = SystemFilter();
    OPENFILENAMEA dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = owner;
    dialog.lpstrTitle = title.c_str();
    dialog.lpstrFilter = filter.c_str();
    dialog.lpstrFile = path.data();
    dialog.nMaxFile = static_cast<DWORD>(path.size());
    dialog.Flags = OFN_FILEMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
    return GetOpenFileNameA(&dialog) ? path.data() : "";
}

}  // namespace

// --- what it is ---

// A dialog that cannot be made is one that was canceled: the program of an earlier recording must not start.
void StartAppForm::ShowModal() {
    if (RunModal(OwnerOfDialog()) != IDOK) CancelStartApp();
}

std::string StartAppForm::Caption() const {
    return Translate("Start recording");
}

std::vector<ControlRow> StartAppForm::Rows() {
    return {
        {.id = start_app_Command2, .caption = "Start recording", .clicked = [this] { OnCommand2(); }},
        {.id = start_app_command3, .caption = "Cancel", .clicked = [this] { Close(); }},
        {.id = start_app_Check1,
         .caption = "Run the following program when recording starts",
         .member = Tick(controls.Check1),
         .clicked = [this] { OnCheck(start_app_text_program_path, controls.Check1); }},
        {.id = start_app_path_label, .caption = {"Program path", Label}},
        {.id = start_app_text_program_path,
         .name = "Program path",
         .member = Typed(controls.text_program_path),
         .enabled = [this] { return controls.ProgramPathEnabled(); }},
        {.id = start_app_Command1,
         .name = "Select application to run",
         .tip = "Select application to run",
         .clicked = [this] { OnCommand1(); }},
        {.id = start_app_Check2,
         .caption = "Command line parameters",
         .member = Tick(controls.Check2),
         .clicked = [this] { OnCheck(start_app_text_command_line, controls.Check2); }},
        {.id = start_app_text_command_line,
         .name = "Command line parameters",
         .member = Typed(controls.text_command_line),
         .enabled = [this] { return controls.CommandLineEnabled(); }},
        {.id = start_app_style_label, .caption = {"Window style", Label}},
        {.id = start_app_Combo1, .name = "Window style", .member = Choice(controls.Combo1)},
    };
}

// StartAppControls::Combo1 is the place in this list.
void StartAppForm::OnInit() {
    for (const std::string& style : {Translate("Normal"), Translate("Maximized"), Translate("Minimized")}) {
        SendMessageA(Control(start_app_Combo1), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(style.c_str()));
    }
    SendMessageA(Control(start_app_text_program_path), EM_SETLIMITTEXT, LongestPath, 0);
    SendMessageA(Control(start_app_text_command_line), EM_SETLIMITTEXT, LongestCommandLine, 0);
}

bool StartAppForm::OnLoad() {
    PutInMiddle(Window());
    SetForegroundWindow(Window());  // the main window may be hidden, and the way here a hotkey
    return true;
}

// --- what the user does ---

bool StartAppForm::OnClicked(int id) {
    if (id == IDCANCEL) Close();
    return id == IDCANCEL;
}

void StartAppForm::OnCheck(int text, bool ticked) {
    Refresh();
    if (ticked) SetFocus(Control(text));
}

// A click on the button ticks the box, whatever comes of the dialog.
void StartAppForm::OnCommand1() {
    TakeChosenProgram(controls, controls.text_program_path);
    Refresh();
    const std::string path = ChooseProgram(Window());
    if (!path.empty()) TakeChosenProgram(controls, path);
    Refresh();
    SetForegroundWindow(Window());
}

void StartAppForm::OnCommand2() {
    if (AcceptStartApp(controls)) Close(IDOK);
}

// --- the view ---

void start_app_view::ShowModal() {
    StartAppForm().ShowModal();
}
