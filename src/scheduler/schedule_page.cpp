#include "scheduler/schedule_page.h"

#include <algorithm>

#include "base/arithmetic.h"
#include "base/product.h"
#include "base/text.h"
#include "dictionary/dictionary.h"
#include "dictionary/sentences.h"
#include "jobs/job_name.h"
#include "platform/boxes.h"
#include "platform/text.h"
#include "scheduler/calendar.h"
#include "scheduler/date_text.h"
#include "scheduler/schedule_list.h"
#include "scheduler/schedule_page_view.h"
#include "scheduler/schedule_row_text.h"
#include "scheduler/schedule_table.h"
#include "scheduler/upcoming_schedule.h"
#include "settings/folders.h"
#include "settings/settings.h"

SchedulePage schedulePage;

namespace {

constexpr int WeeklyPanel = ScheduleWeekly - 1;
constexpr int OncePanel = ScheduleOnce - 1;
constexpr int UpcomingMs = 1000;
constexpr int LastDayOfMonth = 31;

bool IsType(int type) {
    return type >= 0 && type < static_cast<int>(schedulePage.panels.size());
}

SchedulePanel& Panel() {
    return CheckedAt(schedulePage.panels, schedulePage.Combo1, "Type of schedule");
}

bool HasJob(int row) {
    return row >= 0 && row < static_cast<int>(schedulePage.jobs.size());
}

const std::string& SelectedJob() {
    return CheckedAt(schedulePage.jobs, schedulePage.Lista_Schedule, "Job");
}

void NoteChange() {
    schedulePage.schedule_save_changes = true;
    schedule_page_view::Show();
}

void BringForward(bool old_schedule) {
    schedulePage.old_schedule = old_schedule;
    schedule_page_view::Show();
}

// --- choosing ---

void SelectJob(int row) {
    schedulePage.Lista_Schedule = HasJob(row) ? row : -1;
    schedulePage.perform_this_job = HasJob(row);
    schedulePage.save_this_schedule_as = false;
    schedulePage.Combo1 = schedulePage.schedule = NoType;
}

// A weekly schedule can be saved when it has a day.
void SelectType(int type) {
    schedulePage.Combo1 = schedulePage.schedule = IsType(type) ? type : NoType;
    schedulePage.save_this_schedule_as = IsType(type);
    if (!IsType(type)) return;
    schedulePage.schedule_save_changes = type != WeeklyPanel || DaysOfWeekZbroj() != 0;
    if (type == OncePanel) schedulePage.once_date = TodayText();
}

int RowOfJob(const std::string& name) {
    const std::string wanted = platform::LowerCase(name);
    const auto found = std::find_if(schedulePage.jobs.begin(), schedulePage.jobs.end(),
                                    [&](const std::string& job) { return platform::LowerCase(job) == wanted; });
    return found == schedulePage.jobs.end() ? -1 : static_cast<int>(found - schedulePage.jobs.begin());
}

// --- saving ---

std::string LogPathOf(const std::string& name) {
    return folders.DataFolder + "\\" + name + ".log";
}

bool HasADay() {
    if (schedulePage.Combo1 != WeeklyPanel || DaysOfWeekZbroj() != 0) return true;
    platform::ShowBox(Translate("You must select at least one day of the week"), Translate("Invalid selection"));
    return false;
}

// The name is that of the log: what no file can be called is refused, and why it is. An empty one and a forbidden
// character explain themselves.
bool IsNameGood(const std::string& name) {
    const std::string why = WhyJobNameIsRefused(folders.DataFolder, name);
    const bool good = why.empty() && !name.empty() && IsFileNameForbidden(LogPathOf(name)).empty();
    if (good) return true;
    std::string text = Translate("Schedule name you have selected is not valid. Please select another one") + ".";
    if (!why.empty()) text += LineBreak + why;
    platform::ShowBox(text, Translate("Invalid file name"));
    schedule_page_view::FocusOn(schedule_page_view::Focus::schedule_save_as);
    return false;
}

void PutDays(Schedule& schedule) {
    switch (schedule.schedule_type) {
        case ScheduleWeekly:
            schedule.days_of_week = DaysOfWeekZbroj();
            break;
        case ScheduleMonthly:
            schedule.date_field = std::to_string(schedulePage.monthly_day);
            break;
        case ScheduleOnce:
            schedule.date_field = schedulePage.once_date;
            break;
        default:
            break;
    }
}

// Whatever was known of an earlier schedule of this name is gone: its last run, too.
Schedule ScheduleOnPage() {
    const SchedulePanel& panel = Panel();
    Schedule schedule;
    schedule.schedule_type = schedulePage.Combo1 + 1;
    schedule.schedule_name = Trim(schedulePage.schedule_save_as);
    schedule.start_time = panel.start_time;
    schedule.when_computer_starts = panel.whencomp ? 1 : 0;
    schedule.wait_items_loaded = panel.items_loaded ? 1 : 0;
    schedule.only_once_per_day = panel.only_once ? 1 : 0;
    schedule.job_path = JobPathOf(folders.DataFolder, SelectedJob());
    schedule.enabled = -1;
    schedule.log_path = LogPathOf(schedule.schedule_name);
    PutDays(schedule);
    return schedule;
}

void RefillList() {
    const int row = scheduleList.schedule_lista.listindex();
    FillScheduleList();
    if (row >= 0 && row < scheduleList.schedule_lista.ListCount()) scheduleList.schedule_lista.SelectItem(row);
    Upcoming_Schedules();
}

// The list shows what the table has, also when the file could not be written.
template <class Save>
void SaveAndRefill(const Save& save) {
    try {
        save();
    } catch (const RuntimeFailure&) {
        RefillList();
        throw;
    }
    RefillList();
}

void SaveNew() {
    SaveAndRefill([] {
        std::ptrdiff_t index = NoSchedule;
        SaveSchedule(index);
    });
    platform::ShowBox(Exclamation("Schedule has been created successfully"), ProductName);
    Option4();
}

void SaveOver(std::ptrdiff_t found, const std::string& name) {
    const ScheduleMark mark(found);  // the question pumps
    if (!platform::AskBeforeLoss(QuestionOf(Translate("Overwrite schedule") + " \"" + name + "\""),
                                 Question("Overwrite"))) {
        return;
    }
    SaveAndRefill([&mark] {
        std::ptrdiff_t index = mark.Index();
        SaveSchedule(index);
    });
}

// --- editing ---

void LoadPanel(const Schedule& schedule) {
    Panel() = {Trim(schedule.start_time), schedule.when_computer_starts != 0, schedule.wait_items_loaded != 0,
               schedule.only_once_per_day != 0};
    for (std::int32_t day = 1; schedule.schedule_type == ScheduleWeekly && day <= 7; ++day) {
        schedulePage.option_day[static_cast<std::size_t>(day - 1)] = IsDayOfWeek(day, schedule.days_of_week, true);
    }
    if (schedule.schedule_type == ScheduleMonthly) {
        schedulePage.monthly_day = std::clamp(NumberIn(schedule.date_field), 1, LastDayOfMonth);
    }
    if (schedule.schedule_type == ScheduleOnce) schedulePage.once_date = Trim(schedule.date_field);
}

}  // namespace

std::string NameOfType(int type) {
    switch (type + 1) {
        case ScheduleDaily:
            return Translate("Daily");
        case ScheduleWeekly:
            return Translate("Weekly");
        case ScheduleMonthly:
            return Translate("Monthly");
        default:
            return Exclamation("One time only");
    }
}

void PrirediSchedules() {
    schedulePage.panels = {};
    schedulePage.monthly_day = 1;
}

void ClearJobsToSchedule() {
    schedulePage.jobs.clear();
    SelectJob(-1);
    schedule_page_view::Show();
}

void AddJobToSchedule(const std::string& name) {
    schedulePage.jobs.push_back(name);
}

void Option4() {
    BringForward(true);
    Upcoming_Schedules();
    if (schedulePage.will_start_in_timer == 0) {
        schedulePage.will_start_in_timer = platform::StartTimer(UpcomingMs, [] { Upcoming_Schedules(); });
    }
}

void Option11() {
    SelectJob(-1);
    schedulePage.schedule_save_changes = false;
    BringForward(false);
}

void ChooseJobToSchedule(int row) {
    SelectJob(row);
    schedule_page_view::Show();
}

void ChooseType(int type) {
    SelectType(type);
    if (IsType(type) && HasJob(schedulePage.Lista_Schedule)) {
        schedulePage.schedule_save_as = SelectedJob() + " - " + NameOfType(type);
    }
    schedule_page_view::Show();
    if (IsType(type)) schedule_page_view::FocusOn(schedule_page_view::Focus::schedule_save_as);
}

void ChooseWhenToStart(bool whencomp) {
    Panel().whencomp = whencomp;
    NoteChange();
}

void SetStartTime(const std::string& time) {
    Panel().start_time = time;
    NoteChange();
}

void ClickItemsLoaded(bool ticked) {
    Panel().items_loaded = ticked;
    NoteChange();
}

void ClickOnlyOnce(bool ticked) {
    Panel().only_once = ticked;
    NoteChange();
}

void ClickDay(int day, bool ticked) {
    CheckedAt(schedulePage.option_day, day - 1, "Day") = ticked;
    NoteChange();
}

void SetMonthlyDay(int day) {
    schedulePage.monthly_day = std::clamp(day, 1, LastDayOfMonth);
    NoteChange();
}

void ChangeOnceDate(const std::string& date) {
    schedulePage.once_date = date;
    if (date >= TodayText()) return NoteChange();
    schedule_page_view::Show();
    platform::ShowBox(Translate("Please select date greater or equal of today"), Translate("Invalid date"));
}

void TypeScheduleName(const std::string& name) {
    schedulePage.schedule_save_as = name;
    NoteChange();
}

void SaveScheduleChanges() {
    if (!IsType(schedulePage.Combo1) || !HasJob(schedulePage.Lista_Schedule) || !HasADay()) return;
    const std::string name = Trim(schedulePage.schedule_save_as);
    const std::ptrdiff_t found = FindScheduleByName(name);
    if (found != NoSchedule) return SaveOver(found, name);
    if (IsNameGood(name)) SaveNew();
}

void SaveSchedule(std::ptrdiff_t& index) {
    Schedule schedule = ScheduleOnPage();
    if (index == NoSchedule) {
        index = static_cast<std::ptrdiff_t>(settings.Schedules.size());
        settings.Schedules.emplace_back();
    }
    ScheduleAt(index) = std::move(schedule);
    SaveSettings();
    schedulePage.schedule_save_changes = false;
    schedule_page_view::Show();
}

void EditSchedule(std::ptrdiff_t index) {
    const Schedule schedule = ScheduleAt(index);
    SelectJob(RowOfJob(BaseName(TrimView(schedule.job_path))));
    if (HasJob(schedulePage.Lista_Schedule) && IsType(schedule.schedule_type - 1)) {
        SelectType(schedule.schedule_type - 1);
        schedulePage.schedule_save_as = Trim(schedule.schedule_name);
        LoadPanel(schedule);
    }
    schedulePage.schedule_save_changes = false;
    BringForward(false);
}

void Menu_Schedule_Edit() {
    const int row = scheduleList.schedule_lista.listindex();
    if (row >= 0 && row < static_cast<int>(settings.Schedules.size())) EditSchedule(row);
}

// What the area shows may be a moment old.
void ScheduleCommand6() {
    Upcoming_Schedules();
    const auto row = static_cast<int>(upcomingArea.NextScheduleIndex);
    if (row < 0 || row >= scheduleList.schedule_lista.ListCount()) return;
    scheduleList.schedule_lista.SelectItem(row);
    EditSchedule(row);
}

void ScheduleJob(const std::string& jobName) {
    Option11();
    ChooseJobToSchedule(RowOfJob(jobName));
    schedule_page_view::FocusOn(schedule_page_view::Focus::Combo1);
}

int DaysOfWeekZbroj() {
    int sum = 0;
    for (std::size_t day = 0; day < schedulePage.option_day.size(); ++day) {
        if (schedulePage.option_day[day]) sum += 1 << day;
    }
    return sum;
}
