#include "job_editor/edit_job_menu.h"

#include <string>

#include "dictionary/sentences.h"
#include "job_editor/edit_job_ids.h"
#include "toolkit/control_row.h"
#include "toolkit/window_tools.h"

namespace {

constexpr ModifierKeys JustCtrl{.ctrl = true};

struct PopupWords {
    FormText caption;
};

struct EntryWords {
    int id = 0;
    FormText caption = {};
    std::string keys = {};
};

// In the order of the bar.
std::vector<PopupWords> Popups() {
    return {{.caption = "&File"}, {.caption = "&Edit"}, {.caption = "&Job"}};
}

std::vector<EntryWords> Entries() {
    return {
        {.id = edit_job_save_button, .caption = "Save", .keys = KeyCombination(JustCtrl, 'S')},
        {.id = edit_job_save_as_button, .caption = {"Save &As", Ellipsis}},
        {.id = edit_job_exit_button, .caption = "&Close"},
        {.id = edit_job_undo, .caption = "&Undo", .keys = KeyCombination(JustCtrl, 'Z')},
        {.id = edit_job_redo, .caption = "Red&o", .keys = KeyCombination(JustCtrl, 'Y')},
        {.id = edit_job_delete_event, .caption = "Delete", .keys = Translate("Del")},
        {.id = edit_job_select_all, .caption = "Select all", .keys = KeyCombination(JustCtrl, 'A')},
        {.id = edit_job_run_from_here, .caption = "Run fro&m here", .keys = "F5"},
        {.id = edit_job_run_only_this, .caption = "Run onl&y this"},
        {.id = edit_job_why, .caption = {"&Would the window be found", Question}},
        {.id = edit_job_start_recording_above, .caption = {"Insert above", Ellipsis}},
        {.id = edit_job_start_recording_below, .caption = {"Insert below", Ellipsis}},
    };
}

struct CommandKey {
    WPARAM key;
    bool ctrl;
    bool inTexts;  // it means nothing in a text box
    bool inGridOnly;
    int id;
};
constexpr CommandKey commandKeys[] = {
    {'S', true, true, false, edit_job_save_button},
    {'Z', true, false, false, edit_job_undo},
    {'Y', true, false, false, edit_job_redo},
    {'A', true, false, true, edit_job_select_all},
    {VK_DELETE, false, false, true, edit_job_delete_event},
    {VK_F5, false, true, false, edit_job_run_from_here},
};

void SetEntryText(HMENU menu, UINT entry, bool byPlace, std::string text) {
    MENUITEMINFOA item{};
    item.cbSize = sizeof item;
    item.fMask = MIIM_STRING;
    item.dwTypeData = text.data();
    SetMenuItemInfoA(menu, entry, byPlace, &item);
}

// Each popup has letters of its own.
void WordEntries(HMENU popup, const std::vector<EntryWords>& entries) {
    Mnemonics letters;
    for (const EntryWords& entry : entries) {
        const auto id = static_cast<UINT>(entry.id);
        if (GetMenuState(popup, id, MF_BYCOMMAND) == static_cast<UINT>(-1)) continue;  // in another popup
        SetEntryText(popup, id, false, letters.Mark(entry.caption()) + (entry.keys.empty() ? "" : "\t" + entry.keys));
    }
}

}  // namespace

void WordMenu(HWND form, Mnemonics& letters) {
    const HMENU bar = GetMenu(form);
    const std::vector<EntryWords> entries = Entries();
    const std::vector<PopupWords> popups = Popups();
    for (std::size_t place = 0; place < popups.size(); ++place) {
        WordEntries(GetSubMenu(bar, static_cast<int>(place)), entries);
        SetEntryText(bar, static_cast<UINT>(place), true, letters.Mark(popups[place].caption()));
    }
    DrawMenuBar(form);
}

void EnableMenuEntries(HWND form, HMENU menu) {
    for (int place = 0; place < GetMenuItemCount(menu); ++place) {
        const HWND button = GetDlgItem(form, static_cast<int>(GetMenuItemID(menu, place)));
        if (button == nullptr) continue;
        const UINT state = IsWindowEnabled(button) ? MF_ENABLED : MF_GRAYED;
        EnableMenuItem(menu, static_cast<UINT>(place), MF_BYPOSITION | state);
    }
}

int CommandOfKey(WPARAM key, bool forText, bool inGrid) {
    if (KeyIsDown(VK_MENU) || KeyIsDown(VK_SHIFT)) return 0;
    for (const CommandKey& each : commandKeys) {
        const bool here = inGrid || (forText ? each.inTexts : !each.inGridOnly);
        if (each.key == key && each.ctrl == KeyIsDown(VK_CONTROL) && here) return each.id;
    }
    return 0;
}
