#include "forms/start_app_form.h"

#include <commdlg.h>

#include <algorithm>
#include <array>

#include "dictionary/dictionary.h"
#include "forms/form_place.h"
#include "forms/start_app_ids.h"
#include "recording/start_app_view.h"
#include "toolkit/form_thunk.h"
#include "toolkit/window_tools.h"
#include "widgets/mnemonics.h"

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

// --- life ---

// A dialog that cannot be made is one that was canceled: the program of an earlier recording must not start.
void StartAppForm::ShowModal() {
    const INT_PTR result = DialogBoxParamA(ProgramInstance(), MAKEINTRESOURCEA(start_app_dialog), OwnerOfDialog(),
                                           FormThunk<StartAppForm>, reinterpret_cast<LPARAM>(this));
    if (result != IDOK) CancelStartApp();
}

bool StartAppForm::OnInitDialog(HWND form) {
    window = form;
    tips.Create(form);
    PodesiRjecnik();
    FillCombo1();
    SendDlgItemMessageA(form, start_app_text_program_path, EM_SETLIMITTEXT, LongestPath, 0);
    SendDlgItemMessageA(form, start_app_text_command_line, EM_SETLIMITTEXT, LongestCommandLine, 0);
    Enable();
    PutInMiddle(form);
    SetForegroundWindow(form);  // the main window may be hidden, and the way here a hotkey
    return true;
}

void StartAppForm::PodesiRjecnik() {
    Mnemonics letters;
    const auto caption = [&](int control, const std::string& text) { SetText(window, control, letters.Mark(text)); };
    SetWindowTextA(window, Translate("Start recording").c_str());
    caption(start_app_Command2, Translate("Start recording"));
    caption(start_app_command3, Translate("Cancel"));
    caption(start_app_Check1, Translate("Run the following program when recording starts"));
    caption(start_app_path_label, Translate("Program path") + ":");
    caption(start_app_Check2, Translate("Command line parameters"));
    caption(start_app_style_label, Translate("Window style") + ":");
    tips.Set(start_app_Command1, Translate("Select application to run"));
}

// StartAppControls::Combo1 is the place in this list.
void StartAppForm::FillCombo1() {
    for (const std::string& style : {Translate("Normal"), Translate("Maximized"), Translate("Minimized")}) {
        SendDlgItemMessageA(window, start_app_Combo1, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(style.c_str()));
    }
    SendDlgItemMessageA(window, start_app_Combo1, CB_SETCURSEL, 0, 0);
}

// --- messages ---

INT_PTR StartAppForm::OnDialogMessage(UINT message, WPARAM wParam, LPARAM) {
    return message == WM_COMMAND && HIWORD(wParam) == BN_CLICKED ? OnCommand(LOWORD(wParam)) : FALSE;
}

INT_PTR StartAppForm::OnCommand(int control) {
    switch (control) {
        case start_app_Check1:
            OnCheck(start_app_Check1, start_app_text_program_path);
            return TRUE;
        case start_app_Check2:
            OnCheck(start_app_Check2, start_app_text_command_line);
            return TRUE;
        case start_app_Command1:
            OnCommand1();
            return TRUE;
        case start_app_Command2:
            OnCommand2();
            return TRUE;
        case start_app_command3:
        case IDCANCEL:
            EndDialog(window, IDCANCEL);
            return TRUE;
        default:
            return FALSE;
    }
}

void StartAppForm::OnCheck(int check, int text) {
    Enable();
    if (IsTicked(window, check)) SetFocus(GetDlgItem(window, text));
}

void StartAppForm::OnCommand1() {
    StartAppControls controls = Controls();
    TakeChosenProgram(controls, controls.text_program_path);
    SetTick(window, start_app_Check1, controls.Check1);
    Enable();
    const std::string path = ChooseProgram(window);
    if (!path.empty()) {
        TakeChosenProgram(controls, path);
        SetText(window, start_app_text_program_path, controls.text_program_path);
    }
    SetForegroundWindow(window);
}

void StartAppForm::OnCommand2() {
    if (AcceptStartApp(Controls())) EndDialog(window, IDOK);
}

// --- values ---

StartAppControls StartAppForm::Controls() const {
    StartAppControls controls;
    controls.Check1 = IsTicked(window, start_app_Check1);
    controls.text_program_path = TextOf(window, start_app_text_program_path);
    controls.Check2 = IsTicked(window, start_app_Check2);
    controls.text_command_line = TextOf(window, start_app_text_command_line);
    controls.Combo1 = static_cast<int>(SendDlgItemMessageA(window, start_app_Combo1, CB_GETCURSEL, 0, 0));
    return controls;
}

void StartAppForm::Enable() {
    const StartAppControls controls = Controls();
    EnableWindow(GetDlgItem(window, start_app_text_program_path), controls.ProgramPathEnabled());
    EnableWindow(GetDlgItem(window, start_app_text_command_line), controls.CommandLineEnabled());
}

// --- the view ---

void start_app_view::ShowModal() {
    StartAppForm().ShowModal();
}
