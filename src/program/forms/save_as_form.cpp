#include "forms/save_as_form.h"

#include <algorithm>

#include "base/runtime_failure.h"
#include "dictionary/sentences.h"
#include "forms/dialog_owner.h"
#include "jobs/job_fields.h"
#include "library/save_as.h"
#include "mainwindow/main_window_use.h"
#include "recording/recording_session.h"
#include "toolkit/window_tools.h"

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

// --- what it is ---

bool SaveAsForm::ShowModal() {
    const INT_PTR result = RunModal(OwnerOfDialog());
    if (result == NotShown) throw RuntimeFailure(FailureKind::Memory, "The Save As form cannot be shown.");
    return result == IDOK;
}

std::string SaveAsForm::Caption() const {
    return Translate("Save Job As");
}

std::vector<ControlRow> SaveAsForm::Rows() {
    return {
        {.id = Save_As_Form_create_shortcut_on_desktop,
         .caption = "&Create shortcut on Desktop for this job",
         .member = Tick(shortcut),
         .clicked = [this] { ChooseShortcutOnDesktop(shortcut); }},
        {.id = Save_As_Form_Command1, .caption = "Save", .clicked = [this] { OnCommand1(); }},
        {.id = Save_As_Form_name_label, .caption = {"Enter file name for this job", Label}},
        {.id = Save_As_Form_name, .name = "Job name", .member = Typed(name)},
        {.id = Save_As_Form_description_label, .caption = "Job Description: (Optional)"},
        {.id = Save_As_Form_description, .member = Typed(description)},
        {.id = Save_As_Form_Command2, .caption = "Cancel", .clicked = [this] { End(IDCANCEL); }},
        {.id = Save_As_Form_please_wait, .caption = {"Please wait a few seconds", Ellipsis}},
    };
}

void SaveAsForm::OnInit() {
    mainWindowUse.Take(MainWindowHolder::Dialog);
    SendMessageA(Control(Save_As_Form_name), EM_SETLIMITTEXT, LongestName, 0);
    SendMessageA(Control(Save_As_Form_description), EM_SETLIMITTEXT, DescriptionWidth, 0);
    const SaveAsStart start = OpenSaveAs(recordingSession.stoppedByPauseKey);
    shortcut = start.create_shortcut_on_desktop;
    ShowWindow(Control(Save_As_Form_please_wait), start.please_wait ? SW_SHOWNA : SW_HIDE);
    if (start.please_wait) SetTimer(Window(), Save_As_Form_Timer1, PleaseWaitMs, nullptr);
}

bool SaveAsForm::OnLoad() {
    PutInMiddle(Window());
    SetForegroundWindow(Window());
    return true;
}

// The main window first: as long as it is disabled, the foreground would go to another program.
void SaveAsForm::End(INT_PTR result) {
    mainWindowUse.GiveBack(MainWindowHolder::Dialog);
    Close(result);
}

// --- what the user does ---

bool SaveAsForm::OnMessage(UINT message, WPARAM, LPARAM, LRESULT&) {
    if (message != WM_TIMER) return false;
    OnTimer1();
    return true;
}

bool SaveAsForm::OnClicked(int id) {
    if (id == IDCANCEL) Leave();
    return id == IDCANCEL;
}

void SaveAsForm::OnCommand1() {
    switch (SaveJobAs(name, InOneLine(description), RecordedJob())) {
        case SaveAsOutcome::Saved:
            return End(IDOK);
        case SaveAsOutcome::NameWrong:
            return SelectName();
        case SaveAsOutcome::KeptOpen:
            return;
    }
}

// Esc, or the corner of the window. The Cancel button says what it does, and does it at once.
void SaveAsForm::Leave() {
    switch (LeaveSaveAs(recordingSession.eventCount > 0)) {
        case SaveAsLeave::Save:
            return OnCommand1();
        case SaveAsLeave::Close:
            return End(IDCANCEL);
        case SaveAsLeave::Stay:
            return;
    }
}

void SaveAsForm::OnTimer1() {
    KillTimer(Window(), Save_As_Form_Timer1);
    ShowWindow(Control(Save_As_Form_please_wait), SW_HIDE);
}

void SaveAsForm::SelectName() {
    SetFocus(Control(Save_As_Form_name));
    SendMessageA(Control(Save_As_Form_name), EM_SETSEL, 0, -1);
}
