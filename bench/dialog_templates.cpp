// Shows the dialogs of the main window and its pages, and does nothing else: what a start of the program costs at
// least. With any word on its command line only the page in front is made, as the program itself does it.

#include <windows.h>

#include <commctrl.h>

#include "controls/list_control.h"
#include "controls/number_picker.h"
#include "controls/time_picker.h"
#include "main/main_form_ids.h"
#include "pages/about_page_ids.h"
#include "pages/job_page_ids.h"
#include "pages/options_page_ids.h"
#include "pages/record_page_ids.h"
#include "pages/schedule_page_ids.h"
#include "shell/startup.h"
#include "toolkit/window_tools.h"

namespace {

INT_PTR CALLBACK NoAnswer(HWND, UINT, WPARAM, LPARAM) noexcept {
    return FALSE;
}

HWND CreateFrom(int dialog, HWND parent) {
    return CreateDialogParamA(ProgramInstance(), MAKEINTRESOURCEA(dialog), parent, NoAnswer, 0);
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR commandLine, int) {
    const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_STANDARD_CLASSES | ICC_BAR_CLASSES | ICC_TAB_CLASSES |
                                                           ICC_UPDOWN_CLASS | ICC_DATE_CLASSES | ICC_LINK_CLASS};
    InitCommonControlsEx(&classes);
    RegisterListControl();
    RegisterNumberPicker();
    RegisterTimePicker();
    RegisterDialogClass(MainWindowClass, GetSysColorBrush(COLOR_3DFACE));
    const HWND form1 = CreateFrom(form1_dialog, nullptr);
    const HWND front = CreateFrom(job_page_dialog, form1);
    if (*commandLine == '\0') {
        for (const int page : {record_page_dialog, schedule_page_dialog, options_page_dialog, about_page_dialog}) {
            CreateFrom(page, form1);
        }
    }
    ShowWindow(front, SW_SHOW);
    ShowWindow(form1, SW_SHOW);
    MSG message{};
    while (GetMessageA(&message, nullptr, 0, 0) > 0) DispatchMessageA(&message);
    return 0;
}
