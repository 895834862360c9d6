#include "job_editor/editor_layout.h"

#include <algorithm>
#include <string>

#include "editor/keyboard_layout.h"
#include "job_editor/edit_job_ids.h"
#include "toolkit/window_tools.h"

namespace {

// The toolbar, line by line. Widths are pixels at 100 percent.
constexpr int ButtonGap = 4;
constexpr int GroupGap = 14;
constexpr int ButtonFrame = 20;
constexpr int Line1[] = {edit_job_save_button,   edit_job_save_as_button, 0, edit_job_undo, edit_job_redo, 0,
                         edit_job_run_from_here, edit_job_run_only_this};
constexpr int Line2[] = {edit_job_delete_event,          0, edit_job_insert_above,
                         edit_job_start_recording_above, 0, edit_job_insert_below,
                         edit_job_start_recording_below};

// What moves up when the on-screen keyboard grows.
constexpr int AboveKeyboard[] = {edit_job_Option1,    edit_job_Option2,         edit_job_Option3,  edit_job_Text1,
                                 edit_job_plain_text, edit_job_job_description, edit_job_Command5, edit_job_command3};

int TextWidth(HWND control) {
    const HDC paper = GetDC(control);
    const HGDIOBJ before = SelectObject(paper, reinterpret_cast<HFONT>(SendMessageA(control, WM_GETFONT, 0, 0)));
    RECT area{};
    DrawTextA(paper, WindowText(control).c_str(), -1, &area, DT_CALCRECT | DT_SINGLELINE);
    SelectObject(paper, before);
    ReleaseDC(control, paper);
    return static_cast<int>(area.right);
}

RECT PlaceIn(HWND form, HWND control) {
    RECT place{};
    GetWindowRect(control, &place);
    MapWindowPoints(nullptr, form, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

// Its upper edge and its height stay.
void PutAcross(HWND form, HWND control, int left, int width) {
    const RECT place = PlaceIn(form, control);
    SetWindowPos(control, nullptr, left, static_cast<int>(place.top), width, static_cast<int>(place.bottom - place.top),
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS);
}

// With its lower edge where it is, or as a whole.
void RaiseUpperEdge(HWND form, HWND control, int by, bool lowerStays) {
    RECT place = PlaceIn(form, control);
    place.top -= by;
    if (!lowerStays) place.bottom -= by;
    SetWindowPos(control, nullptr, static_cast<int>(place.left), static_cast<int>(place.top),
                 static_cast<int>(place.right - place.left), static_cast<int>(place.bottom - place.top),
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS);
}

template <std::size_t Count>
void PlaceLine(HWND form, const int (&line)[Count]) {
    const auto scaled = [dpi = DpiOf(form)](int pixels) { return MulDiv(pixels, dpi, USER_DEFAULT_SCREEN_DPI); };
    auto left = static_cast<int>(PlaceIn(form, GetDlgItem(form, edit_job_grid)).left);
    for (const int id : line) {
        if (id == 0) {
            left += scaled(GroupGap - ButtonGap);
            continue;
        }
        const HWND control = GetDlgItem(form, id);
        const bool isButton = ClassOf(control) == "Button";
        const int width = TextWidth(control) + scaled(isButton ? ButtonFrame : ButtonGap);
        PutAcross(form, control, left, width);
        left += width + scaled(ButtonGap);
    }
}

}  // namespace

void PlaceToolbar(HWND form) {
    PlaceLine(form, Line1);
    PlaceLine(form, Line2);
}

void PlaceKeyboard(HWND form) {
    const HWND keyboard = GetDlgItem(form, edit_job_keyboard);
    const HWND grid = GetDlgItem(form, edit_job_grid);
    const RECT board = PlaceIn(form, keyboard);
    const RECT list = PlaceIn(form, grid);
    const RECT pane = PlaceIn(form, GetDlgItem(form, edit_job_target));
    const LONG shaped = (board.right - board.left) * KeyboardSize.height / KeyboardSize.width;
    const LONG spare = (list.bottom - pane.bottom) / 3;
    const auto more = static_cast<int>(std::min(shaped - (board.bottom - board.top), spare));
    if (more <= 0) return;
    RaiseUpperEdge(form, keyboard, more, true);
    for (const int id : AboveKeyboard) RaiseUpperEdge(form, GetDlgItem(form, id), more, false);
    SetWindowPos(grid, nullptr, 0, 0, static_cast<int>(list.right - list.left),
                 static_cast<int>(list.bottom - list.top) - more, SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOMOVE);
}

void PlaceProgram(HWND form) {
    const HWND label = GetDlgItem(form, edit_job_program_label);
    const int gap = MulDiv(ButtonGap, DpiOf(form), USER_DEFAULT_SCREEN_DPI);
    const auto left = static_cast<int>(PlaceIn(form, label).left);
    const int labelWidth = TextWidth(label) + gap;
    const auto end = static_cast<int>(PlaceIn(form, GetDlgItem(form, edit_job_Label6)).left);
    PutAcross(form, label, left, labelWidth);
    PutAcross(form, GetDlgItem(form, edit_job_Browse_Text), left + labelWidth,
              std::max(0, end - gap - left - labelWidth));
}
