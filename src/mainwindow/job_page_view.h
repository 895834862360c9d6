// What the job page's rules ask of its form. The form implements this; in the tests a stand-in does. Only MakeExe and
// OpenMenuJobs pump.
#pragma once

#include <string>

#include "hotkeys/job_hotkey.h"

namespace job_page_view {

void Show();  // the controls, as jobPage has them
void FocusOn(HotkeyFocus control);
void PosiviSve(bool grey);  // ("grey everything"): while a job runs from here
void OpenMenuJobs();        // at the cursor
void MakeExe(const std::string& jobPath);
void OpenScheduleOf(const std::string& jobName);  // the schedule page, about to add a schedule for this job

}  // namespace job_page_view
