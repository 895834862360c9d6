// Save_As_Form: how a new recording gets its name and becomes a job of the library. The rules are here, the dialog
// carries values back and forth. Boxes pump.
#pragma once

#include <string>

#include "jobs/job_records.h"

// What the dialog shows when it opens.
struct SaveAsStart {
    bool create_shortcut_on_desktop = true;
    bool please_wait = false;  // shown until the first tick of Timer1, which then stops
};
SaveAsStart OpenSaveAs(bool stoppedByPauseKey);

// The check box was changed: straight to the setting.
void ChooseShortcutOnDesktop(bool ticked);

enum class SaveAsOutcome {
    Saved,      // the dialog closes
    KeptOpen,   // the user does not want to overwrite
    NameWrong,  // the dialog stays, with the whole name selected
};

// Command1. Writes what was recorded as the job `name` of the data folder, with the options of a new job, and shows it
// in the job list. The recording is untouched, so that after a file failure the user can try another name.
SaveAsOutcome SaveJobAs(const std::string& name, const std::string& description, const Job& recorded);

// The form is being left without its buttons: by Esc, or by the corner of the window. It may have come up while the
// user was still typing, so a recording with anything in it is asked about (pumps).
enum class SaveAsLeave { Close, Save, Stay };
SaveAsLeave LeaveSaveAs(bool anythingRecorded);

// Writes a job that waits to be saved as a new job "Recovered" with date and time, over nothing that is there, for when
// nobody can be asked; a recording with the options of a new job. Returns its name; empty when it could not be written.
// The list is left alone.
std::string SaveRecoveredJob(const Job& job);
std::string SaveRecoveredRecording(const Job& recorded);
