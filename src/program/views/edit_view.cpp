// What the job editor's logic asks of its form, and of the page behind it.
#include "editor/edit_view.h"

#include "editor/keystroke_view.h"
#include "forms/dialog_owner.h"
#include "job_editor/edit_job_form.h"
#include "mainwindow/job_page.h"
#include "toolkit/window_tools.h"

namespace edit_view {

bool MayLeaveJobPage() {
    return PitajSpremitiPromjene();
}

platform::WindowHandle Show() {
    editJobForm.Load(OwnerOfDialog());
    return platform::FromHwnd(editJobForm.Window());
}

void ShowRows() {
    editJobForm.ShowRows();
}

void RepaintRows() {
    editJobForm.RepaintRows();
}

void Refresh() {
    editJobForm.ShowAll();
}

bool AskJobName(std::string& name) {
    return editJobForm.AskJobName(name);
}

void PutAside() {
    editJobForm.PutAside();
}

void BringBack() {
    editJobForm.BringBack();
}

}  // namespace edit_view

namespace keystroke_view {

void ShowText() {
    editJobForm.ShowText();
}

void FocusText() {
    editJobForm.FocusText();
}

bool TextHasKeyboard() {
    return editJobForm.TextHasKeyboard();
}

void LeaveText() {
    editJobForm.LeaveText();
}

void ClearPlainText() {
    editJobForm.ClearPlainText();
}

void FocusPlainText() {
    editJobForm.FocusPlainText();
}

bool PlainTextHasKeyboard() {
    return editJobForm.PlainTextHasKeyboard();
}

void AppendPlainText(const std::string& text) {
    editJobForm.AppendPlainText(text);
}

void FocusGrid() {
    editJobForm.FocusGrid();
}

}  // namespace keystroke_view
