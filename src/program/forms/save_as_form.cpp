#include "forms/save_as_form.h"

#include <algorithm>

#include "base/runtime_failure.h"
#include "dictionary/dictionary.h"
#include "forms/form_place.h"
#include "forms/save_as_ids.h"
#include "identity/window_identity.h"
#include "jobs/job_fields.h"
#include "library/save_as.h"
#include "platform/boxes.h"
#include "recording/recording_session.h"
#include "toolkit/form_thunk.h"
#include "toolkit/window_tools.h"
#include "widgets/mnemonics.h"

namespace {

constexpr WPARAM LongestName = 251;  // what a file system takes, less the extension
constexpr UINT PleaseWaitMs = 3000;

// A description is one line in the list of jobs.
std::string InOneLine(std::string text) {
    std::erase(text, '\r');
    std::replace(text.begin(), text.end(), '\n', ' ');
    return text;
}

}  // namespace

// --- life ---

bool SaveAsForm::ShowModal() {
    const INT_PTR result = DialogBoxParamA(ProgramInstance(), MAKEINTRESOURCEA(Save_As_Form_dialog), OwnerOfDialog(),
                                           FormThunk<SaveAsForm>, reinterpret_cast<LPARAM>(this));
    if (result <= 0) throw RuntimeFailure(FailureKind::Memory, "The Save As form cannot be shown.");
    return result == IDOK;
}

bool SaveAsForm::OnInitDialog(HWND form) {
    window = form;
    mainWindowWasDisabled = EnableWindow(platform::ToHwnd(ownWindows.main), FALSE);
    PodesiRjecnik();
    SendDlgItemMessageA(form, Save_As_Form_name, EM_SETLIMITTEXT, LongestName, 0);
    SendDlgItemMessageA(form, Save_As_Form_description, EM_SETLIMITTEXT, DescriptionWidth, 0);
    ShowStart();
    PutInMiddle(form);
    SetForegroundWindow(form);
    return true;
}

void SaveAsForm::PodesiRjecnik() {
    Mnemonics letters;
    const auto caption = [&](int control, const std::string& text) { SetText(window, control, letters.Mark(text)); };
    SetWindowTextA(window, Translate("Save Job As").c_str());
    caption(Save_As_Form_create_shortcut_on_desktop, Translate("&Create shortcut on Desktop for this job"));
    caption(Save_As_Form_Command1, Translate("Save"));
    caption(Save_As_Form_name_label, Translate("Enter file name for this job") + ":");
    caption(Save_As_Form_description_label, Translate("Job Description: (Optional)"));
    caption(Save_As_Form_Command2, Translate("Cancel"));
    SetText(window, Save_As_Form_please_wait, Translate("Please wait a few seconds") + "...");
}

void SaveAsForm::ShowStart() {
    const SaveAsStart start = OpenSaveAs(recordingSession.stoppedByPauseKey);
    SetTick(window, Save_As_Form_create_shortcut_on_desktop, start.create_shortcut_on_desktop);
    ShowWindow(GetDlgItem(window, Save_As_Form_please_wait), start.please_wait ? SW_SHOWNA : SW_HIDE);
    if (start.please_wait) SetTimer(window, Save_As_Form_Timer1, PleaseWaitMs, nullptr);
}

// The main window first: as long as it is disabled, the foreground would go to another program.
void SaveAsForm::Close(INT_PTR result) {
    EnableWindow(platform::ToHwnd(ownWindows.main), !mainWindowWasDisabled);  // a box that is open holds it
    EndDialog(window, result);
}

// --- messages ---

INT_PTR SaveAsForm::OnDialogMessage(UINT message, WPARAM wParam, LPARAM) {
    switch (message) {
        case WM_COMMAND:
            return HIWORD(wParam) == BN_CLICKED ? OnCommand(LOWORD(wParam)) : FALSE;
        case WM_TIMER:
            OnTimer1();
            return TRUE;
        default:
            return FALSE;
    }
}

INT_PTR SaveAsForm::OnCommand(int control) {
    switch (control) {
        case Save_As_Form_create_shortcut_on_desktop:
            ChooseShortcutOnDesktop(IsTicked(window, control));
            return TRUE;
        case Save_As_Form_Command1:
            OnCommand1();
            return TRUE;
        case Save_As_Form_Command2:
            Close(IDCANCEL);
            return TRUE;
        case IDCANCEL:
            OnLeave();
            return TRUE;
        default:
            return FALSE;
    }
}

void SaveAsForm::OnCommand1() {
    switch (SaveJobAs(TextOf(window, Save_As_Form_name), Description(), RecordedJob())) {
        case SaveAsOutcome::Saved:
            return Close(IDOK);
        case SaveAsOutcome::NameWrong:
            return SelectName();
        case SaveAsOutcome::KeptOpen:
            return;
    }
}

// Esc, or the corner of the window: the form may have come up while the user was still typing. The Cancel button says
// what it does, and does it at once.
void SaveAsForm::OnLeave() {
    if (recordingSession.eventCount == 0) return Close(IDCANCEL);
    if (!platform::AskYesNo(Translate("Save") + "?", Translate("Save Job As"))) return Close(IDCANCEL);
    OnCommand1();
}

void SaveAsForm::OnTimer1() {
    KillTimer(window, Save_As_Form_Timer1);
    ShowWindow(GetDlgItem(window, Save_As_Form_please_wait), SW_HIDE);
}

// --- values ---

std::string SaveAsForm::Description() const {
    return InOneLine(TextOf(window, Save_As_Form_description));
}

void SaveAsForm::SelectName() {
    SetFocus(GetDlgItem(window, Save_As_Form_name));
    SendDlgItemMessageA(window, Save_As_Form_name, EM_SETSEL, 0, -1);
}
