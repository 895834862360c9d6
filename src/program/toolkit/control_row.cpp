#include "toolkit/control_row.h"

#include <commctrl.h>

#include <utility>

#include "toolkit/window_tools.h"

namespace {

void ShowTick(HWND control, bool ticked) {
    SendMessageA(control, BM_SETCHECK, ticked ? BST_CHECKED : BST_UNCHECKED, 0);
}

bool TickOf(HWND control) {
    return SendMessageA(control, BM_GETCHECK, 0, 0) == BST_CHECKED;
}

std::int32_t SliderPlace(HWND slider) {
    return static_cast<std::int32_t>(SendMessageA(slider, TBM_GETPOS, 0, 0));
}

}  // namespace

void ShowTyped(HWND control, const std::string& text) {
    if (WindowText(control) == text) return;
    SetWindowTextA(control, text.c_str());
    SendMessageA(control, EM_SETSEL, text.size(), static_cast<LPARAM>(text.size()));
}

Member Tick(bool& value, std::function<void(bool)> changed) {
    if (!changed) changed = [&value](bool ticked) { value = ticked; };
    return {.show = [&value](HWND control) { ShowTick(control, value); },
            .take = [changed](HWND control) { changed(TickOf(control)); }};
}

Member Tick(std::int32_t& option) {
    return {.show = [&option](HWND control) { ShowTick(control, option == 1); },
            .take = [&option](HWND control) { option = TickOf(control) ? 1 : 0; }};
}

Member Tick(std::function<bool()> ticked, std::function<void(bool)> changed) {
    return {.show = [ticked = std::move(ticked)](HWND control) { ShowTick(control, ticked()); },
            .take = [changed = std::move(changed)](HWND control) { changed(TickOf(control)); }};
}

Member Option(const std::function<bool()>& chosen, std::function<void()> choose) {
    return {.show = [chosen](HWND control) { ShowTick(control, chosen()); },
            .take =
                [chosen, choose = std::move(choose)](HWND) {
                    if (!chosen()) choose();
                }};
}

Member Shown(FormText text) {
    return {.show = [text = std::move(text)](HWND control) { ShowText(control, text()); }};
}

Member Typed(std::string& value, std::function<void(const std::string&)> changed) {
    if (!changed) changed = [&value](const std::string& typed) { value = typed; };
    return {.show = [&value](HWND control) { ShowTyped(control, value); },
            .take = [changed](HWND control) { changed(WindowText(control)); }};
}

Member Slider(std::int32_t& value, std::function<void(std::int32_t)> changed) {
    return {.show =
                [&value](HWND control) {
                    if (SliderPlace(control) != value) SendMessageA(control, TBM_SETPOS, TRUE, value);
                },
            .take =
                [&value, changed = std::move(changed)](HWND control) {
                    if (SliderPlace(control) != value) changed(SliderPlace(control));
                }};
}

Member Choice(int& place, std::function<void()> changed) {
    return {.show =
                [&place](HWND control) {
                    if (SendMessageA(control, CB_GETCURSEL, 0, 0) == place) return;
                    SendMessageA(control, CB_SETCURSEL, static_cast<WPARAM>(place), 0);
                },
            .take =
                [&place, changed = std::move(changed)](HWND control) {
                    place = static_cast<int>(SendMessageA(control, CB_GETCURSEL, 0, 0));
                    if (changed) changed();
                }};
}

std::vector<ControlRow> Joined(std::initializer_list<std::vector<ControlRow>> parts) {
    std::vector<ControlRow> rows;
    for (const std::vector<ControlRow>& part : parts) rows.insert(rows.end(), part.begin(), part.end());
    return rows;
}
