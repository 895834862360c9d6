#include "settings/settings.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "base/product.h"
#include "base/runtime_failure.h"
#include "base/text.h"
#include "dictionary/dictionary.h"
#include "platform/boxes.h"
#include "platform/files.h"
#include "settings/folders.h"
#include "settings/settings_fields.h"
#include "settings/settings_view.h"
#include "storage/held_file.h"
#include "storage/input_file.h"
#include "storage/kept_file.h"
#include "storage/output_file.h"

Settings settings;

namespace {

// Version, options and the two counts.
constexpr std::int64_t SmallestFile = 2642;

enum class Outcome {
    Loaded,
    Missing,
    Held,
    Unreadable,
    Corrupted,  // by this version or a newer one, which has words of its own
};

std::string SettingsPath() {
    return folders.DataFolder + "\\settings.binary";
}

bool IsMissing(const std::string& path) {
    return platform::StateOf(path) == platform::FileState::Missing;
}

bool IsWithin(std::int32_t value, std::int32_t lowest, std::int32_t highest) {
    return value >= lowest && value <= highest;
}

bool OptionsAreGood(const Settings& options) {
    if (!IsWithin(options.countdown_period, 0, 10)) return false;
    const std::int32_t flags[] = {options.display_countdown_check,      options.Display_Recording_Window,
                                  options.Capture_Mouse_Moves,          options.Check_updates,
                                  options.create_shortcut_on_desktop,   options.Display_Executing_Status,
                                  options.Display_Start_Program_Dialog, options.Play_Menu_Sounds,
                                  options.play_sounds_for_keystrokes};
    return std::all_of(std::begin(flags), std::end(flags), [](std::int32_t flag) { return IsWithin(flag, 0, 1); });
}

// A table behind its count. `needed` is the length that the file must have so far; false when it falls short.
template <class Record>
bool ReadTable(InputFile& file, std::int64_t& needed, std::vector<Record>& table) {
    const std::int32_t count = file.Count();
    if (count < 0) return false;
    needed += static_cast<std::int64_t>(RecordSize<Record>()) * count;
    if (file.Length() < needed) return false;
    table = file.ReadArray<Record>(count);
    return true;
}

bool ReadBody(InputFile& file, Settings& loaded) {
    file.Read(loaded);
    std::int64_t needed = SmallestFile;
    return OptionsAreGood(loaded) && ReadTable(file, needed, loaded.Hotkeys) &&
           ReadTable(file, needed, loaded.Schedules);
}

// By the version that was read before; 0 for none.
Outcome Damaged(std::int32_t version) {
    return IsWithin(version, ProductVersionNumber, 999) ? Outcome::Corrupted : Outcome::Unreadable;
}

Outcome ReadSettings(InputFile& file, Settings& loaded) {
    if (file.Length() < SmallestFile) return Damaged(0);
    const std::int32_t version = file.Count();
    if (version < 100) return Outcome::Unreadable;
    if (version >= 1000) return Damaged(version);
    if (version > ProductVersionNumber) return Outcome::Unreadable;  // a newer one's
    return ReadBody(file, loaded) ? Outcome::Loaded : Damaged(version);
}

Outcome ReadSettingsFile(Settings& loaded) {
    const platform::FileState state = StateOnceFree(SettingsPath());
    if (state == platform::FileState::Missing) return Outcome::Missing;
    if (state == platform::FileState::Held) return Outcome::Held;
    try {
        InputFile file(SettingsPath());
        return ReadSettings(file, loaded);
    } catch (const RuntimeFailure&) {
        return Outcome::Unreadable;
    }
}

// The user has the time that the box is open to end the other program.
Outcome TryAgainAfterABox(Settings& loaded) {
    platform::ShowBox(Translate("Your settings are in use by another program and cannot be read. Please close it and "
                                "press OK to try again. If they still cannot be read then, Tessarine starts with "
                                "default settings, and the old ones are kept under another name."),
                      ProductName, platform::BoxIcon::Warning);
    return ReadSettingsFile(loaded);
}

std::string TextOf(Outcome outcome) {
    return outcome == Outcome::Corrupted
               ? Translate("File 'settings.binary' is corrupted. Press OK to reset your settings to default.")
               : Translate("Your settings cannot be read. They are reset to default.");
}

// The file holds what the user may want back: it is not written over.
std::string KeepOldFile() {
    const std::optional<std::string> name = KeepUnderAnotherName(SettingsPath());
    settings.KeepOldFile = !name;
    if (!name) return Translate("The old file will be kept under another name.");
    return Translate1("The old file is kept as '%1'.", *name);
}

// Only what is needed until ApplyFirstRunValues sets everything. The countdown is 3 here and 5 there: of the two
// steps of a first start, the second one counts.
Settings Defaults() {
    Settings defaults;
    defaults.countdown_period = 3;
    defaults.display_countdown_check = 1;
    defaults.Display_Executing_Status = 1;
    defaults.NothingLoaded = true;
    return defaults;
}

// A drive that is not there now, a stick or one of the network, may be there tomorrow, and the job on it with it.
bool IsJobGone(const std::string& path) {
    const bool namesDrive = path.size() > 1 && path[1] == ':';
    return IsMissing(path) && (!namesDrive || platform::FolderExists(path.substr(0, 2) + "\\"));
}

// No box, and no save: the records are dropped again at every start until something else writes the file.
void DropHotkeysWithoutJob() {
    std::erase_if(settings.Hotkeys, [](const Hotkey& hotkey) { return IsJobGone(hotkey.job_path); });
}

void TellMissing(const Schedule& schedule) {
    platform::ShowBox(Translate2("Schedule named '%1' will be deleted because job '%2' cannot be found",
                                 schedule.schedule_name, schedule.job_path),
                      Translate("File is missing"));
}

// True when one was dropped.
bool DropSchedulesWithoutJob() {
    const std::size_t before = settings.Schedules.size();
    for (auto i = static_cast<std::ptrdiff_t>(before); i-- > 0;) {
        const Schedule schedule = settings.Schedules[static_cast<std::size_t>(i)];
        if (!IsJobGone(schedule.job_path)) continue;
        TellMissing(schedule);
        DeleteSchedule(i);
    }
    return settings.Schedules.size() != before;
}

// The load never stops the program: what cannot be written now is dropped again at the next start.
void SaveAfterCleanUp() {
    try {
        SaveSettings();
    } catch (const RuntimeFailure&) {
    }
}

void CleanUp() {
    DropHotkeysWithoutJob();
    if (DropSchedulesWithoutJob()) SaveAfterCleanUp();
    settings.SettingsLoaded = true;
}

void KeepWhatWasNeverRead() {
    if (!settings.KeepOldFile) return;
    if (!IsMissing(SettingsPath()) && !KeepUnderAnotherName(SettingsPath())) {
        throw RuntimeFailure(FailureKind::File,
                             "The file '" + SettingsPath() + "' cannot be saved. " + platform::LastFileError());
    }
    settings.KeepOldFile = false;
}

// A place with left and top of at least 1, and the window wholly on the screen.
bool IsOnScreen(std::int32_t start, std::int32_t window, std::int32_t screen) {
    return start >= 1 && start <= screen - window;
}

}  // namespace

void LoadSettings() {
    settings = Defaults();
    Settings loaded;
    Outcome outcome = ReadSettingsFile(loaded);
    const bool told = outcome == Outcome::Held;
    if (told) outcome = TryAgainAfterABox(loaded);
    if (outcome == Outcome::Loaded) {
        settings = std::move(loaded);
        CleanUp();
    } else if (outcome != Outcome::Missing) {
        const std::string kept = KeepOldFile();
        if (!told) platform::ShowBox(TextOf(outcome) + LineBreak + kept, ProductName);
    }
}

void SaveSettings() {
    CopyControlsToSettings();
    KeepWhatWasNeverRead();
    OutputFile file(SettingsPath());
    file.WriteCount(ProductVersionNumber);
    file.Write(settings);
    file.WriteCount(settings.Hotkeys.size());
    file.WriteArray(settings.Hotkeys);
    file.WriteCount(settings.Schedules.size());
    file.WriteArray(settings.Schedules);
    file.Commit();
}

void ApplyFirstRunValues() {
    settings.MainLeft = settings.MainTop = 0;  // which centres the window
    settings.EditorState = 0;
    settings.display_countdown_check = 1;
    settings.Display_Recording_Window = 1;
    settings.countdown_period = 5;
    settings.Check_updates = 1;
    settings.play_sounds_for_keystrokes = 1;
    settings.Play_Menu_Sounds = 1;
    settings.Display_Executing_Status = 1;
    settings.RecentJobs = {};
    settings.create_shortcut_on_desktop = 1;
    settings.Display_Start_Program_Dialog = 0;
    settings.Capture_Mouse_Moves = 1;
    settings.SettingsLoaded = true;
}

platform::Point MainWindowPosition(platform::Size window, platform::Size screen) {
    if (IsOnScreen(settings.MainLeft, window.width, screen.width) &&
        IsOnScreen(settings.MainTop, window.height, screen.height)) {
        return {settings.MainLeft, settings.MainTop};
    }
    return {(screen.width - window.width) / 2, (screen.height - window.height) / 2};
}
