// The job page: the properties of the selected job, as the controls of the page hold them, and the commands on that
// job. The properties live in the job's file; the page edits a copy, and button_save_changes writes it back. Every
// change of what is shown here ends in job_page_view::Show.
//
// What reads or writes a job, asks or tells can pump, and the list may be another one afterwards.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "hotkeys/job_hotkey.h"
#include "jobs/job_records.h"

inline constexpr int HotkeyTab = 3;

// Controls by their own names; of a button, whether it can be pressed.
struct JobPage {
    std::string jobPath;  // whose properties these are; empty for a job that could not be read when it was selected
    std::string frameCaption;
    std::string run_job_tip;
    std::string edit_job_tip;
    std::string schedule_job_tip;
    std::string make_exe_tip;
    int other_option = 0;  // the sub-tab: 0 speed, 1 repeat, 2 advanced, 3 hotkey

    std::int32_t Slider1 = 100;    // percent, 1..1001
    std::int32_t sliderTag = 100;  // the speed that clearing Check6 brings back
    std::string sliderTip;
    std::string Options_speed;
    bool Check6 = false;  // maximum speed
    bool Check7 = false;  // skip mouse moves

    bool Option1 = true;         // repeat a number of times; otherwise Option2, over and over again
    std::string options_repeat;  // empty with Option2

    std::int32_t slider_safety_level = 0;
    bool similiar_window_names = false;

    HotkeyControls hotkey;

    bool button_save_changes = false;  // enabled: there are changes
    bool jobsEditEnabled = false;
};
extern JobPage jobPage;

// What can be used just now.
struct JobPageEnabled {
    bool page = false;  // the four actions, the options and what is on them
    bool options_repeat = false;
    bool similiar_window_names = false;  // its tick is kept and saved all the same
    bool hotkeyKeys = false;
    bool button_save_changes = false;
};
JobPageEnabled EnabledOnJobPage();

// Connects the page with lista_jobs; once, before the list is filled.
void LoadJobPage();

// With a selected job, or without one. A job of which the page knows nothing counts as none.
void Jobs_Edit_Enabled(bool enable);

// Speed.
void SetSpeed(std::int32_t percent);               // the slider was moved
void ClickMaximumSpeed(bool ticked);               // Check6
void LeaveOptionsSpeed(const std::string& typed);  // only when the text was edited: "max" is no number
void StepSpeed(int steps);                         // updown2
void RestoreOriginalSpeed();                       // Command5
void ClickSkipMoves(bool ticked);                  // Check7
std::string SpeedTip(std::int32_t percent);

// Repeat.
void ClickRepeat(bool numberOfTimes);  // Option1, or else Option2
void EditRepeat(const std::string& typed);

// Advanced.
void SetSafetyLevel(std::int32_t level);  // 0 high, 1 medium, 2 low
void ClickSimilarNames(bool ticked);
std::string SafetyCaption(std::int32_t level);
std::vector<std::string> SafetyPanel(std::int32_t level);  // its paragraphs

// Hotkey.
void NoteHotkeyChange();  // jobPage.hotkey is another

// button_save_changes. False, after a box, when no job is selected or the hotkey is refused: nothing is written then. A
// file failure when the job or the settings cannot be written; the changes stay on the page.
bool SaveChanges();

// PitajSpremitiPromjene ("ask to save the changes"): does what the user wants with the changes, if there are any. False
// when they were to be saved and could not be: the page should stay with the job.
bool PitajSpremitiPromjene();

// command3_Click: a new recording, from the record button, the tray menu and Ctrl+Shift+N alike. Changes that are not
// saved are asked about first, for the list is filled anew after it. Ignored while a recording or a run is under way,
// or a box is open.
void record_new();

// The commands on the selected job, of the buttons and of Menu_Jobs. Without a selection they do nothing.
void run_job();
void edit_job();
void schedule_job();
void create_exe();
void create_desktop_shortcut();
void delete_job();
void show_findings();  // of the check, if it has any
bool SelectedJobHasFindings();
