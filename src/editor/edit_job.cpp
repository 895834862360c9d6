#include "editor/edit_job.h"

#include "base/product.h"
#include "base/text.h"
#include "dictionary/dictionary.h"
#include "editor/edit_view.h"
#include "editor/job_changes.h"
#include "editor/keystroke_box.h"
#include "editor/row_edits.h"
#include "editor/save_job.h"
#include "folding/popuni_listu.h"
#include "platform/boxes.h"
#include "platform/text.h"
#include "recording/recording_state.h"
#include "replay/run_job.h"

namespace {

struct OpenEditor {
    bool isOpen = false;
    platform::WindowHandle window = 0;  // 0 while the job is read
};
OpenEditor editor;

bool IsOpenJob(const std::string& jobPath) {
    return platform::LowerCase(jobPath) == platform::LowerCase(editState.jobName);
}

void TellThatAnotherIsOpen() {
    platform::ShowBox(
        Translate1("The job '%1' is open in the editor. Please close it first.", BaseName(editState.jobName)),
        Translate("Job Editor"), platform::BoxIcon::Information);
}

// Its keys and clicks would go into the editor, or what it plays would be changed under it.
bool ProgramIsBusy() {
    if (!RecordingActive() && !runState.ReplayRunning) return false;
    platform::ShowBox(Translate("A job cannot be edited while a recording or another job is under way."),
                      Translate("Job Editor"), platform::BoxIcon::Information);
    return true;
}

void Open(const std::string& jobPath) {
    PopuniListu(jobPath, false);
    BeginHistory();
    RememberFile();
    SaveWasDone();
    editor.window = edit_view::Show();
    if (editor.window == 0) return EditorHasClosed();
    OpenKeystrokes();
    RowsHaveChanged(0, 0);
}

}  // namespace

bool EditorIsOpen() {
    return editor.isOpen;
}

platform::WindowHandle editJob(const std::string& jobPath) {
    if (editor.isOpen) {
        if (!IsOpenJob(jobPath)) TellThatAnotherIsOpen();
        return editor.window;
    }
    if (ProgramIsBusy() || !edit_view::MayLeaveJobPage()) return 0;
    if (editor.isOpen) return editor.window;  // asked for while the box about the page was open
    editor.isOpen = true;                     // before anything else pumps
    try {
        Open(jobPath);
    } catch (...) {
        EditorHasClosed();
        throw;
    }
    return editor.window;
}

// The text of the dictionary ends in a quote and a question mark already; so does the question.
bool MayCloseEditor() {
    if (!SaveIsEnabled()) return true;
    const std::string name = BaseName(editState.jobName);
    const platform::BoxChoice choice =
        platform::AskToSave(Translate1("Do you want to save changes you made to job '%1'?", name) + "'?",
                            Translate("Job Editor") + " - " + ProductName);
    if (choice == platform::BoxChoice::Cancel) return false;
    return choice == platform::BoxChoice::No || save_button();
}

void EditorHasClosed() {
    CloseKeystrokes();
    editor = {};
    editState = {};
    ForgetHistory();
}
