#include "pages/options_page.h"

#include "dictionary/sentences.h"
#include "jobs/job_name.h"
#include "library/job_library.h"
#include "platform/files.h"
#include "settings/folders.h"
#include "settings/settings.h"
#include "shell/options.h"
#include "shell/options_view.h"
#include "sounds/sounds.h"

OptionsPage optionsPage;

namespace {

Member Switch(std::int32_t& setting) {
    return Tick([&setting] { return setting == 1; },
                [&setting](bool ticked) {
                    setting = ticked ? 1 : 0;
                    SaveSettings();
                });
}

}  // namespace

std::vector<ControlRow> OptionsPage::Rows() {
    return {
        {.id = options_page_general, .caption = "General", .anchors = AcrossTop},
        {.id = options_page_start_with_windows,
         .caption = "Start Tessarine in system tray when windows starts (recommended)",
         .member = Tick(job_library::StartsWithWindows, StartWithWindows),
         .anchors = AcrossTop},
        {.id = options_page_Display_Executing_Status,
         .caption = "Display status window while executing job",
         .member = Switch(settings.Display_Executing_Status),
         .anchors = AcrossTop},
        {.id = options_page_Check_updates,
         .caption = "Check for updates each time Tessarine starts",
         .member = Switch(settings.Check_updates),
         .anchors = AcrossTop},
        {.id = options_page_language_label, .caption = {"Language", Label}},
        {.id = options_page_language_combo, .name = "Language", .member = Choice(language_combo)},
        {.id = options_page_folder_frame, .caption = "Tessarine jobs and settings folder", .anchors = AcrossTop},
        {.id = options_page_folder,
         .name = "Tessarine jobs and settings folder",
         .member = Shown([] { return folders.DataFolder; }),
         .anchors = AcrossTop},
        {.id = options_page_Command7, .caption = "Open folder", .clicked = OpenDataFolder},
        {.id = options_page_Command2, .caption = {"Change", Ellipsis}, .clicked = ChangeFolder},
        {.id = options_page_sounds, .caption = "Sounds", .anchors = AcrossTop},
        {.id = options_page_Play_Menu_Sounds,
         .caption = "Play menu sounds",
         .member = Switch(settings.Play_Menu_Sounds),
         .enabled = SoundSwitchesEnabled,
         .anchors = AcrossTop},
        {.id = options_page_play_sounds_for_keystrokes,
         .caption = "Play keystroke sounds while executing keystrokes",
         .member = Switch(settings.play_sounds_for_keystrokes),
         .enabled = SoundSwitchesEnabled,
         .anchors = AcrossTop},
    };
}

std::string OptionsPage::TabCaption() const {
    return Translate("Options");
}

void OptionsPage::OnInit() {
    for (const char* const language : LanguageComboEntries) {
        SendMessageA(Control(options_page_language_combo), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(language));
    }
}

void OptionsPage::StaviFocus() const {
    SetFocus(Control(options_page_start_with_windows));
}

void OptionsPage::ShowOptions() {
    language_combo = LanguagePlace();
    Refresh();
}

// What was refused does not stay on the page.
void OptionsPage::OnChanged(int id) {
    if (id == options_page_language_combo) ChooseLanguage(language_combo);
    ShowOptions();
}

// Others write the registry, too.
bool OptionsPage::OnMessage(UINT message, WPARAM wParam, LPARAM, LRESULT&) {
    if (message == WM_SHOWWINDOW && wParam) ShowOptions();
    return false;
}

// --- the view ---

// There is no list to refuse a folder: what counts is whether it can be read.
bool options_view::ListJobsOf(const std::string& folder) {
    return platform::FilesIn(folder, JobExtension).has_value();
}

void options_view::ShowDataFolder(const std::string&) {
    optionsPage.Refresh();
}
