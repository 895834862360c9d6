#include "job_editor/save_name_form.h"

#include "base/runtime_failure.h"
#include "dictionary/sentences.h"

namespace {

constexpr WPARAM LongestName = 251;  // what a file system takes, less the extension

}  // namespace

bool SaveNameForm::Ask(HWND owner) {
    const INT_PTR result = RunModal(owner);
    if (result == NotShown) throw RuntimeFailure(FailureKind::Memory, "The Save As form cannot be shown.");
    return result == IDOK;
}

std::string SaveNameForm::Caption() const {
    return Label("Save Job As");
}

std::vector<ControlRow> SaveNameForm::Rows() {
    return {
        {.id = save_name_prompt, .caption = {"Enter file name for this job", Label}},
        {.id = save_name_name, .name = "Job name", .member = Typed(typed)},
        {.id = save_name_ok, .caption = "OK", .clicked = [this] { Close(IDOK); }},
        {.id = save_name_cancel, .caption = "Cancel", .clicked = [this] { Close(IDCANCEL); }},
    };
}

void SaveNameForm::OnInit() {
    SendMessageA(Control(save_name_name), EM_SETLIMITTEXT, LongestName, 0);
}

// In the middle of what it is about.
bool SaveNameForm::OnLoad() {
    RECT owner{};
    RECT own{};
    GetWindowRect(GetWindow(Window(), GW_OWNER), &owner);
    GetWindowRect(Window(), &own);
    SetWindowPos(Window(), nullptr, (owner.left + owner.right - own.right + own.left) / 2,
                 (owner.top + owner.bottom - own.bottom + own.top) / 2, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    return true;
}

bool SaveNameForm::OnClicked(int id) {
    if (id == IDCANCEL) Close(IDCANCEL);
    return id == IDCANCEL;
}
