#include "mainwindow/job_page.h"

#include <algorithm>

#include "base/arithmetic.h"
#include "base/text.h"
#include "dictionary/dictionary.h"
#include "dictionary/sentences.h"
#include "jobs/job_file.h"
#include "library/job_library.h"
#include "mainwindow/job_marks.h"
#include "mainwindow/job_page_view.h"
#include "platform/boxes.h"
#include "settings/settings.h"
#include "widgets/typed_number.h"

JobPage jobPage;

namespace {

constexpr std::int32_t NormalSpeed = 100;
constexpr std::int32_t LargestRepeat = 100'000;

void NoteChange() {
    jobPage.button_save_changes = true;
    job_page_view::Show();
}

// --- speed ---

std::string SpeedText(std::int32_t percent) {
    return percent == MaximumSpeed ? "max" : std::to_string(percent);
}

void PutSpeed(std::int32_t percent) {
    jobPage.Slider1 = percent;
    jobPage.Check6 = percent == MaximumSpeed;
    jobPage.Options_speed = SpeedText(percent);
    jobPage.sliderTip = SpeedTip(percent);
}

std::int32_t NumberWithin(const std::string& typed, std::int32_t largest, std::int32_t otherwise) {
    const auto number = TypedNumber(typed);
    return number && *number >= 1 && *number <= largest ? static_cast<std::int32_t>(*number) : otherwise;
}

// --- the selected job ---

void NameJob(const std::string& name) {
    jobPage.frameCaption = Translate("Edit properties for job") + " '" + name + "'";
    jobPage.run_job_tip = Translate1("Click  to start executing job '%1'", name);
    jobPage.edit_job_tip = Translate1("Click  to edit job using job editor '%1'", name);
    jobPage.schedule_job_tip = Translate1("Click to schedule job '%1'", name);
    jobPage.make_exe_tip = Translate("Compile job into standalone .exe file");
}

void FillControls(const JobHeaderCheck& job, const std::string& path) {
    jobPage.jobPath = path;
    jobPage.sliderTag = job.speed;
    PutSpeed(job.speed);
    jobPage.Check7 = job.skipMoves == 1;
    jobPage.slider_safety_level = job.safety;
    jobPage.similiar_window_names = job.similarNames == 1;
    jobPage.Option1 = job.repeat != 0;
    jobPage.options_repeat = job.repeat != 0 ? std::to_string(job.repeat) : "";
    jobPage.hotkey = HotkeyOfJob(path);
    jobPage.button_save_changes = false;
}

// What the page showed before must not be saved into the job that is selected now.
void ShowNoJob() {
    jobPage.jobPath.clear();
    Jobs_Edit_Enabled(false);
}

// A job that was damaged after the list was filled leaves it. One that is held stays, and the next click looks again.
void ShowJob(int row) {
    if (row < 0) return Jobs_Edit_Enabled(false);
    const std::string path = job_library::JobPathOfRow(row);
    if (jobPage.button_save_changes && path == jobPage.jobPath) return;  // a click on the row that is selected already
    const JobHeaderCheck job = CheckJobHeader(path);
    if (job.result == JobHeaderCheck::Held) return ShowNoJob();
    if (job.result < 0) {
        jobPage.button_save_changes = false;
        jobLibrary.lista_jobs.RemoveItem(row);
        return jobLibrary.lista_jobs.setlistindex(-1);
    }
    job_library::ShowSecondLine(row, job);
    NameJob(jobLibrary.lista_jobs.List(row));
    FillControls(job, path);
    Jobs_Edit_Enabled(true);
}

// Pending changes are dealt with before another row is shown. The box may have swallowed the end of the press, so the
// row is selected here, and not by the click that may never come.
void OnMouseDown(ListButton button, ListHit hit, platform::Point) {
    ListModel& list = jobLibrary.lista_jobs;
    const bool leaves = hit.part != ListPart::None && hit.index != list.listindex();
    if (leaves && jobPage.button_save_changes) {
        list.CancelPress();
        if (!PitajSpremitiPromjene()) return;
        if (hit.index < list.ListCount()) list.SelectItem(hit.index);
    }
    if (button != ListButton::Right || hit.part == ListPart::None || hit.index >= list.ListCount()) return;
    if (hit.index != list.listindex()) list.SelectItem(hit.index);
    if (list.listindex() == hit.index) job_page_view::OpenMenuJobs();
}

// --- saving ---

JobOptions OptionsOnPage() {
    return {jobPage.Slider1, jobPage.Check7 ? 1 : 0,
            jobPage.Option1 ? NumberWithin(jobPage.options_repeat, INT32_MAX, 1) : 0, jobPage.slider_safety_level,
            jobPage.similiar_window_names ? 1 : 0};
}

void TellRefusal(const HotkeyRefusal& refusal) {
    jobPage.other_option = HotkeyTab;
    job_page_view::Show();
    platform::ShowBox(refusal.text, refusal.title, refusal.icon);
    job_page_view::FocusOn(refusal.focus);
}

void WriteOptions(const std::string& path, const JobOptions& options) {
    ListModel& list = jobLibrary.lista_jobs;
    const int scroll = list.ScrollValue();
    RewriteJobOptions(path, options);
    job_library::ShowSavedJob(path);
    list.ScrollTo(scroll);
    jobPage.button_save_changes = false;
    job_page_view::Show();
}

}  // namespace

void LoadJobPage() {
    ListEvents& events = jobLibrary.lista_jobs.events;
    events.Click = ShowJob;
    events.MouseDown = OnMouseDown;
    events.DblClick = [](int) { edit_job(); };
    events.MarkClick = ShowFindingsOfRow;
    events.KeyLeaves = [](int) { return PitajSpremitiPromjene(); };
}

void Jobs_Edit_Enabled(bool enable) {
    jobPage.jobsEditEnabled = enable && !jobPage.jobPath.empty();
    if (!jobPage.jobsEditEnabled) {
        jobPage.button_save_changes = false;
        jobPage.frameCaption.clear();  // it named a job that is no more
    }
    job_page_view::Show();
    CheckJobsOfList();
}

JobPageEnabled EnabledOnJobPage() {
    const bool page = jobPage.jobsEditEnabled;
    return {page, page && jobPage.Option1, page && jobPage.slider_safety_level != SafetyLow,
            page && jobPage.hotkey.KeysEnabled(), page && jobPage.button_save_changes};
}

std::string SpeedTip(std::int32_t percent) {
    if (percent == MaximumSpeed) return Translate("Maximum speed");
    if (percent == NormalSpeed) return Translate("Normal speed");
    if (percent > NormalSpeed) return Translate1("%1 times faster than original", ShortDecimalNumber(percent, 2));
    const std::int32_t hundredths = RoundHalfEven(10'000.0 / percent);
    return Translate1("%1 times slower than original", ShortDecimalNumber(hundredths, 2));
}

// Moved to its end, the slider ticks Check6, which remembers the value of that moment: clearing it gives the normal
// speed then.
void SetSpeed(std::int32_t percent) {
    if (percent >= MaximumSpeed && !jobPage.Check6) jobPage.sliderTag = MaximumSpeed;
    PutSpeed(std::clamp(percent, 1, MaximumSpeed));
    NoteChange();
}

void ClickMaximumSpeed(bool ticked) {
    if (ticked) {
        jobPage.sliderTag = jobPage.Slider1;
        jobPage.Check6 = true;
        return SetSpeed(MaximumSpeed);
    }
    SetSpeed(jobPage.sliderTag == MaximumSpeed ? NormalSpeed : jobPage.sliderTag);
}

void LeaveOptionsSpeed(const std::string& typed) {
    SetSpeed(NumberWithin(typed, MaximumSpeed, NormalSpeed));
}

void StepSpeed(int steps) {
    SetSpeed(jobPage.Slider1 + steps);
}

void RestoreOriginalSpeed() {
    SetSpeed(NormalSpeed);
}

void ClickSkipMoves(bool ticked) {
    jobPage.Check7 = ticked;
    NoteChange();
}

void ClickRepeat(bool numberOfTimes) {
    jobPage.Option1 = numberOfTimes;
    jobPage.options_repeat = numberOfTimes ? "1" : "";
    NoteChange();
}

void EditRepeat(const std::string& typed) {
    jobPage.options_repeat = std::to_string(NumberWithin(typed, LargestRepeat, 1));
    NoteChange();
}

void SetSafetyLevel(std::int32_t level) {
    jobPage.slider_safety_level = std::clamp(level, 0, SafetyLow);
    NoteChange();
}

void ClickSimilarNames(bool ticked) {
    jobPage.similiar_window_names = ticked;
    NoteChange();
}

std::string SafetyCaption(std::int32_t level) {
    return Translate(level == 0 ? "High" : level == SafetyLow ? "Low" : "Medium");
}

std::vector<std::string> SafetyPanel(std::int32_t level) {
    if (level == SafetyLow) {
        return {Labelled("Warning",
                         Translate("If this level of accuracy is selected there is a chance that something might go "
                                   "wrong and unexpected results can occur")) +
                    ".",
                "- " + Translate("Don't check anything. Just execute mouse and keyboard actions as recorded") + "."};
    }
    std::vector<std::string> lines = {
        "- " +
        Translate("Check every window type and caption before mouse clicks and keyboard actions to match original")};
    if (level == 0) {
        lines.push_back("- " + Translate("Also check all window elements inside a window to match original recording"));
    }
    return lines;
}

void NoteHotkeyChange() {
    NoteChange();
}

bool SaveChanges() {
    const int row = jobLibrary.lista_jobs.listindex();
    if (row < 0) {
        platform::ShowBox(Translate("Select job on the list of jobs first."), Translate("Select job first"),
                          platform::BoxIcon::Information);
        return false;
    }
    const std::string path = job_library::JobPathOfRow(row);
    const JobOptions options = OptionsOnPage();
    if (const auto refusal = SaveHotkeyOfJob(path, jobPage.hotkey)) {
        TellRefusal(*refusal);
        return false;
    }
    SaveSettings();
    WriteOptions(path, options);
    return true;
}

bool PitajSpremitiPromjene() {
    const int row = jobLibrary.lista_jobs.listindex();
    if (!jobPage.button_save_changes || row < 0) return true;
    const std::string name = jobLibrary.lista_jobs.List(row);
    if (platform::AskYesNo(Translate1("Do you want to save changes you made to job '%1'?", name),
                           Translate("Save Changes"))) {
        return SaveChanges();
    }
    jobPage.button_save_changes = false;
    ShowJob(row);  // the changes go from the page too: a later save must not write them
    return true;
}
