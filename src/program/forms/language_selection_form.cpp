#include "forms/language_selection_form.h"

#include "shell/language_selection.h"
#include "toolkit/window_tools.h"

void LanguageSelectionForm::ShowModal() {
    RunModal(nullptr);
}

std::vector<ControlRow> LanguageSelectionForm::Rows() {
    return {{.id = language_selection_Command1, .clicked = [this] { OnCommand1(); }}};
}

// Topmost, since it is the program's only window and may come up behind what was started meanwhile.
bool LanguageSelectionForm::OnLoad() {
    const HWND list = Control(language_selection_List1);
    for (const char* const language : List1Entries) {
        SendMessageA(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(language));
    }
    SendMessageA(list, LB_SETCURSEL, static_cast<WPARAM>(RowOfStoredLanguage()), 0);
    PutInMiddle(Window());
    SetWindowPos(Window(), HWND_TOPMOST, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE);
    SetForegroundWindow(Window());
    return true;
}

void LanguageSelectionForm::OnLooks() {
    SetPicture(Window(), language_selection_Picture1);
}

bool LanguageSelectionForm::OnMessage(UINT message, WPARAM wParam, LPARAM, LRESULT&) {
    const bool chosen = message == WM_COMMAND && wParam == MAKEWPARAM(language_selection_List1, LBN_DBLCLK);
    if (chosen) OnCommand1();
    return chosen;
}

// Closed without the button, it comes again at the next start.
bool LanguageSelectionForm::OnClicked(int id) {
    if (id == IDCANCEL) Close();
    return id == IDCANCEL;
}

void LanguageSelectionForm::OnCommand1() {
    TakeLanguage(static_cast<int>(SendMessageA(Control(language_selection_List1), LB_GETCURSEL, 0, 0)));
    Close(IDOK);
}

// --- the view ---

void language_selection_view::ShowModal() {
    LanguageSelectionForm().ShowModal();
}
