#include "platform/boxes.h"

#include "win32/handles.h"
#include "win32/open_box.h"

namespace platform {
namespace {

UINT IconFlag(BoxIcon icon) {
    switch (icon) {
        case BoxIcon::Error:
            return MB_ICONERROR;
        case BoxIcon::Warning:
            return MB_ICONWARNING;
        case BoxIcon::Question:
            return MB_ICONQUESTION;
        case BoxIcon::Information:
            return MB_ICONINFORMATION;
        case BoxIcon::None:
            break;
    }
    return 0;
}

// Modal to all windows of the program, and in front, since the program is often hidden when it has something to say.
int Show(const std::string& text, const std::string& title, UINT flags) {
    const HWND owner = GetActiveWindow();
    const OpenBox box(owner);
    return MessageBoxA(owner, text.c_str(), title.c_str(), flags | MB_TASKMODAL | MB_SETFOREGROUND);
}

}  // namespace

void ShowBox(const std::string& text, const std::string& title, BoxIcon icon) {
    Show(text, title, MB_OK | IconFlag(icon));
}

bool AskYesNo(const std::string& text, const std::string& title, BoxIcon icon) {
    return Show(text, title, MB_YESNO | IconFlag(icon)) == IDYES;
}

bool AskBeforeLoss(const std::string& text, const std::string& title, BoxIcon icon) {
    return Show(text, title, MB_YESNO | MB_DEFBUTTON2 | IconFlag(icon)) == IDYES;
}

bool AskOkCancel(const std::string& text, const std::string& title, BoxIcon icon) {
    return Show(text, title, MB_OKCANCEL | IconFlag(icon)) == IDOK;
}

BoxChoice AskToSave(const std::string& text, const std::string& title, BoxIcon icon) {
    const int answer = Show(text, title, MB_YESNOCANCEL | IconFlag(icon));
    if (answer == IDYES) return BoxChoice::Yes;
    return answer == IDNO ? BoxChoice::No : BoxChoice::Cancel;
}

}  // namespace platform
