// The dialog procedure of a form that is an object of its own, not the only one of its kind: the object is handed to
// CreateDialogParam or DialogBoxParam as the parameter. The form has OnInitDialog(HWND), which says whether the first
// control gets the focus, and OnDialogMessage(UINT, WPARAM, LPARAM).
#pragma once

#include <windows.h>

#include "toolkit/window_tools.h"

template <class Form>
INT_PTR CALLBACK FormThunk(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    return Guarded<INT_PTR>(FALSE, [&]() -> INT_PTR {
        if (message == WM_INITDIALOG) {
            SetWindowLongPtrA(window, DWLP_USER, lParam);
            return reinterpret_cast<Form*>(lParam)->OnInitDialog(window);
        }
        auto* const form = reinterpret_cast<Form*>(GetWindowLongPtrA(window, DWLP_USER));
        return form == nullptr ? FALSE : form->OnDialogMessage(message, wParam, lParam);
    });
}
