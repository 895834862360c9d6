#include "scheduler/schedule_list.h"

#include <cstddef>
#include <cstdint>

#include "base/text.h"
#include "dictionary/dictionary.h"
#include "dictionary/sentences.h"
#include "platform/boxes.h"
#include "platform/files.h"
#include "platform/processes.h"
#include "replay/run_job.h"
#include "scheduler/calendar.h"
#include "scheduler/date_text.h"
#include "scheduler/schedule_page.h"
#include "scheduler/schedule_page_view.h"
#include "scheduler/schedule_row_text.h"
#include "scheduler/schedule_table.h"
#include "settings/settings.h"

ScheduleList scheduleList;

namespace {

constexpr int EnabledIcon = 3;
constexpr int DisabledIcon = 6;

ListModel& List() {
    return scheduleList.schedule_lista;
}

bool HasSchedule(int row) {
    return row >= 0 && row < List().ListCount() && static_cast<std::size_t>(row) < settings.Schedules.size();
}

// Its row, or -1: none is selected.
int SelectedRow() {
    return HasSchedule(List().listindex()) ? List().listindex() : -1;
}

void ShowEnabled(int row) {
    const bool enabled = ScheduleAt(row).enabled != 0;
    List().SetIcon(row, enabled ? EnabledIcon : DisabledIcon);
    List().SetMaliGumb1Text(row, Translate(enabled ? "Disable" : "Enable"));
}

// --- the info area ---

std::string DateInInfo(const StampNumbers& date) {
    return std::to_string(date.month) + "." + std::to_string(date.day) + "." + std::to_string(date.year);
}

// The never mark is stored with a capital letter, or in another language, and is not found here: it is shown as the
// date 0.0.0 with itself as the time. What users know the look of stays.
std::string NextRunLabel(std::string_view next) {
    if (next == "never") return Translate("Never");
    const std::string date = DateOf(next);
    const std::string today = TodayText();
    // The last eight characters, which in a stamp are the time.
    std::string time(next.substr(next.size() - std::min<std::size_t>(next.size(), 8)));
    if (time == AtComputerStart) time = Translate("system startup");
    if (date == today) return Labelled("Today at", time);
    if (date == AddDays(today, 1)) return Labelled("Tomorrow at", time);
    return DateInInfo(NumbersOf(next)) + " " + Labelled("at", time);
}

ScheduleInfo InfoOf(const Schedule& schedule) {
    ScheduleInfo info;
    const std::string_view last = TrimView(schedule.last_run);
    info.last_run_info_never = last.empty();
    info.last_run_info = !last.empty();
    info.next_run = NextRunLabel(TrimView(schedule.next_run));
    if (last.empty()) return info;
    info.Label29 = DateInInfo(NumbersOf(last));
    info.Label27 = TimeOf(last);
    info.status_failed = schedule.last_result < 1;
    info.status_completed = !info.status_failed;
    return info;
}

void ShowSchedule(int row) {
    scheduleList.info = {};
    if (HasSchedule(row)) {
        ComputeNextRun(row);
        ShowEnabled(row);
        scheduleList.info = InfoOf(ScheduleAt(row));
    }
    schedule_page_view::Show();
}

// --- the user ---

void OnMouseDown(ListButton button, ListHit hit, platform::Point) {
    if (button != ListButton::Right || hit.part == ListPart::None || !HasSchedule(hit.index)) return;
    if (hit.index != List().listindex()) List().SelectItem(hit.index);
    schedule_page_view::OpenMenu_Schedule();
}

// With the last row, the one above it is selected; without any row, nothing is told any more.
void RemoveRow(int row) {
    List().RemoveItem(row);
    if (List().ListCount() == 0) return ShowSchedule(-1);
    List().SelectItem(std::min(row, List().ListCount() - 1));
}

void Delete(int row) {
    if (!HasSchedule(row)) return;
    const ScheduleMark mark(row);  // the question pumps
    if (!platform::AskBeforeLoss(
            Translate1("Are you sure you want to delete schedule '%1'?", Trim(ScheduleAt(row).schedule_name)),
            Translate("Delete schedule?"))) {
        return;
    }
    const auto index = static_cast<int>(mark.Index());
    if (!HasSchedule(index)) return;
    DeleteSchedule(index);
    RemoveRow(index);
    SaveSettings();
}

void EnableOrDisable(int row) {
    if (!HasSchedule(row)) return;
    Schedule& schedule = ScheduleAt(row);
    schedule.enabled = schedule.enabled != 0 ? 0 : -1;
    ShowEnabled(row);
    SaveSettings();
}

void AddRow(const ScheduleWords& words, int row) {
    const Schedule& schedule = ScheduleAt(row);
    List().AddItem(ScheduleBigText(words, schedule), EnabledIcon, ScheduleSmallText(words, schedule));
    if (schedule.enabled == 0) ShowEnabled(row);
    ComputeNextRun(row);
}

}  // namespace

void LoadScheduleList() {
    List().events.Click = ShowSchedule;
    List().events.MouseDown = OnMouseDown;
    List().events.DblClick = [](int) { Menu_Schedule_Edit(); };
    List().events.SmallButton1Click = EnableOrDisable;
    List().events.SmallButton2Click = Delete;
}

void FillScheduleList() {
    List().Clear();
    List().SmallButton1Visible = true;
    List().SmallButton2Visible = true;
    const ScheduleWords words = TranslatedScheduleWords();
    const auto count = static_cast<int>(settings.Schedules.size());
    for (int row = 0; row < count; ++row) AddRow(words, row);
    scheduleList.filled = true;
    ShowSchedule(-1);
}

void RewordScheduleList() {
    const ScheduleWords words = TranslatedScheduleWords();
    for (int row = 0; HasSchedule(row); ++row) {
        List().SetBigText(row, ScheduleBigText(words, ScheduleAt(row)));
        List().SetSmallText(row, ScheduleSmallText(words, ScheduleAt(row)));
        ShowEnabled(row);
    }
    if (SelectedRow() >= 0) scheduleList.info = InfoOf(ScheduleAt(SelectedRow()));
}

void EnableOrDisableSchedule() {
    EnableOrDisable(SelectedRow());
}

void Menu_Schedule_Delete() {
    Delete(SelectedRow());
}

void Menu_Schedule_Run() {
    const int row = SelectedRow();
    if (row >= 0) RunJob(Trim(ScheduleAt(row).job_path), 0, "", false);
}

void ViewScheduleLog() {
    const int row = SelectedRow();
    if (row < 0) return;
    const std::string path = Trim(ScheduleAt(row).log_path);
    if (platform::StateOf(path) == platform::FileState::Missing) {
        return platform::ShowBox(
            Label("Cannot find log file") + LineBreak + path + LineBreak + Translate("Press OK to close this warning"),
            Translate("File not found"));
    }
    constexpr int normalWindow = 1;
    platform::StartProgram("notepad " + path, normalWindow);
}
