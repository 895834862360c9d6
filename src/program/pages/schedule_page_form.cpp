#include "pages/schedule_page_form.h"

#include <commctrl.h>

#include <utility>

#include "dictionary/sentences.h"
#include "platform/pump.h"
#include "scheduler/calendar.h"
#include "scheduler/date_text.h"
#include "scheduler/schedule_list.h"
#include "scheduler/schedule_page.h"
#include "scheduler/schedule_row_text.h"
#include "scheduler/schedule_table.h"
#include "scheduler/upcoming_schedule.h"
#include "settings/schedule_record.h"
#include "toolkit/resource_ids.h"
#include "toolkit/window_tools.h"

SchedulePageForm schedulePageForm;

namespace {

constexpr WPARAM LongestName = 256;
constexpr int DayCount = 7;

// The small text of a row is long, and the list has half of the page.
constexpr ListMeasures RowMeasures = {.ItemHeight = 44, .FontSize = 9, .smallButton = {56, 20}};

// The icons of the list's rows, by their numbers; what has none is the program's.
constexpr int EnabledIcon = 3;
constexpr int DisabledIcon = 6;

// What is seen. A control is seen with any of its panels, and has no letter in common with another one of the same
// panel: so it names all those, too, which it is seen beside.
enum : unsigned {
    DaysPanel = 1,
    MonthlyPanel = 2,
    DatePanel = 4,
    TypePanel = 8 | DaysPanel | MonthlyPanel | DatePanel,  // a type is chosen
    JobPanel = 16 | TypePanel,                             // a job is chosen
    NewPanel = 32 | JobPanel,                              // new_schedule
    LogPanel = 64,
    UpcomingPanel = 128,
    NothingPanel = 256,
    OldPanel = 512 | LogPanel | UpcomingPanel | NothingPanel,  // old_schedule
};
constexpr unsigned JustType = 8;
constexpr unsigned JustJob = 16;
constexpr unsigned JustNew = 32;
constexpr unsigned JustOld = 512;

unsigned NewScheduleSeen() {
    unsigned seen = JustNew;
    if (schedulePage.perform_this_job) seen |= JustJob;
    if (!schedulePage.save_this_schedule_as) return seen;
    seen |= JustType;
    if (schedulePage.schedule == ScheduleWeekly - 1) seen |= DaysPanel;
    if (schedulePage.schedule == ScheduleMonthly - 1) seen |= MonthlyPanel;
    if (schedulePage.schedule == ScheduleOnce - 1) seen |= DatePanel;
    return seen;
}

unsigned OldScheduleSeen() {
    const ScheduleInfo& info = scheduleList.info;
    const unsigned upcoming = upcomingArea.upcoming_schedule ? UpcomingPanel : NothingPanel;
    return JustOld | upcoming | (info.status_completed || info.status_failed ? LogPanel : 0U);
}

// The panel of the chosen type; without one, its controls are not seen.
const SchedulePanel& Panel() {
    static const SchedulePanel blank;
    const int type = schedulePage.Combo1;
    return type < 0 || type >= ScheduleTypeCount ? blank : schedulePage.panels[static_cast<std::size_t>(type)];
}

bool BoxesEnabled() {
    return Panel().BoxesEnabled();
}

bool TimeEnabled() {
    return Panel().TimeEnabled();
}

// What is chosen already stays as it is: the page is shown again every second, also while a list is open.
void ShowChoice(HWND control, UINT ask, UINT set, int place) {
    if (static_cast<int>(SendMessageA(control, ask, 0, 0)) == place) return;
    SendMessageA(control, set, static_cast<WPARAM>(place), 0);
}

// --- the date picker ---

std::string DateTextOf(const SYSTEMTIME& date) {
    platform::LocalTime moment{};
    moment.year = date.wYear;
    moment.month = date.wMonth;
    moment.day = date.wDay;
    return DateText(moment);
}

void ShowDate(HWND picker) {
    const StampNumbers date = NumbersOf(schedulePage.once_date);
    SYSTEMTIME shown{};
    DateTime_GetSystemtime(picker, &shown);
    if (DateTextOf(shown) == schedulePage.once_date) return;
    shown = {};
    shown.wYear = static_cast<WORD>(date.year);
    shown.wMonth = static_cast<WORD>(date.month);
    shown.wDay = static_cast<WORD>(date.day);
    DateTime_SetSystemtime(picker, GDT_VALID, &shown);  // refused for a date that there is none of: today stays
}

// --- the texts of the info area ---

std::string LastRun() {
    const ScheduleInfo& info = scheduleList.info;
    if (info.last_run_info_never) return Translate("Never");
    return info.last_run_info ? info.Label29 + "  " + info.Label27 : "";
}

std::string LinkToLog() {
    const std::string result = Translate(scheduleList.info.status_completed ? "Success" : "Failed");
    return "<a>" + result + " (" + Translate("click to view log file") + ")</a>";
}

HICON IconOfRow(int number, int size) {
    if (number == EnabledIcon) return IconOf(ICON_SCHEDULE, size);
    return number == DisabledIcon ? IconOf(ICON_SCHEDULE_OFF, size) : ProgramIcon(size);
}

}  // namespace

// --- what it is ---

std::string SchedulePageForm::TabCaption() const {
    return Translate("Schedule Jobs");
}

std::vector<ControlRow> SchedulePageForm::Rows() {
    return Joined({ViewRows(), JobRows(), DayRows(), StartRows(), SaveRows(), ListRows(), InfoRows(), UpcomingRows()});
}

std::vector<ControlRow> SchedulePageForm::ViewRows() {
    return {
        {.id = schedule_page_Option11,
         .caption = "Add scheduled job",
         .letter = 'd',
         .member = Option([] { return !schedulePage.old_schedule; }, Option11)},
        {.id = schedule_page_Option4,
         .caption = "Scheduled Jobs",
         .letter = 'J',
         .member = Option([] { return schedulePage.old_schedule; }, Option4)},
    };
}

std::vector<ControlRow> SchedulePageForm::JobRows() {
    return {
        {.id = schedule_page_jobs_label, .caption = {"Select the job you want to schedule", Label}, .panels = NewPanel},
        {.id = schedule_page_Lista_Schedule,
         .panels = NewPanel,
         .name = "Saved Jobs",
         .member = JobChooser(),
         .anchors = AtTopLeft | AnchorBottom},
        {.id = schedule_page_perform_this_job,
         .caption = {"Perform this job", Label},
         .panels = JobPanel,
         .anchors = AcrossTop},
        {.id = schedule_page_Combo1,
         .panels = JobPanel,
         .name = "Perform this job",
         .member = {.show = [](HWND box) { ShowChoice(box, CB_GETCURSEL, CB_SETCURSEL, schedulePage.Combo1); },
                    .take = [](HWND box) { ChooseType(static_cast<int>(SendMessageA(box, CB_GETCURSEL, 0, 0))); }},
         .anchors = AcrossTop},
    };
}

std::vector<ControlRow> SchedulePageForm::DayRows() {
    std::vector<ControlRow> days = {
        {.id = schedule_page_days_label, .caption = {"Days of week", Label}, .panels = DaysPanel},
        {.id = schedule_page_day_label, .caption = "at every", .panels = MonthlyPanel},
        {.id = schedule_page_monthly_day,
         .panels = MonthlyPanel,
         .member = {.show =
                        [this](HWND) {
                            if (monthly_day.Value() != schedulePage.monthly_day) {
                                monthly_day.SetValue(schedulePage.monthly_day);
                            }
                        }}},
        {.id = schedule_page_day_of_month, .caption = "day of the month", .panels = MonthlyPanel},
        {.id = schedule_page_date_label, .caption = {"Date", Label}, .panels = DatePanel},
        {.id = schedule_page_once_date, .panels = DatePanel, .name = "Date", .member = {.show = ShowDate}},
    };
    for (int day = 1; day <= DayCount; ++day) {
        const auto index = static_cast<std::size_t>(day - 1);
        days.push_back({.id = schedule_page_option_day1 + day - 1,
                        .caption = [index] { return TranslatedDays()[index]; },
                        .panels = DaysPanel,
                        .member = Tick([index] { return schedulePage.option_day[index]; },
                                       [day](bool ticked) { ClickDay(day, ticked); })});
    }
    return days;
}

std::vector<ControlRow> SchedulePageForm::StartRows() {
    return {
        {.id = schedule_page_at_time,
         .caption = {"Start time", Label},
         .panels = TypePanel,
         .member = Option([] { return !Panel().whencomp; }, [] { ChooseWhenToStart(false); })},
        {.id = schedule_page_start_time,
         .panels = TypePanel,
         .member = {.show =
                        [this](HWND) {
                            if (start_time.Time() != Panel().start_time) start_time.SetTime(Panel().start_time);
                        }},
         .enabled = TimeEnabled},
        {.id = schedule_page_whencomp,
         .caption = "When computer starts",
         .panels = TypePanel,
         .member = Option([] { return Panel().whencomp; }, [] { ChooseWhenToStart(true); })},
        {.id = schedule_page_items_loaded,
         .caption = "Wait for all startup items to load first",
         .panels = TypePanel,
         .member = Tick([] { return Panel().items_loaded; }, ClickItemsLoaded),
         .enabled = BoxesEnabled},
        {.id = schedule_page_only_once,
         .caption = "Execute job only once per day",
         .panels = TypePanel,
         .member = Tick([] { return Panel().only_once; }, ClickOnlyOnce),
         .enabled = BoxesEnabled},
    };
}

std::vector<ControlRow> SchedulePageForm::SaveRows() {
    return {
        {.id = schedule_page_save_label, .caption = {"Save this Schedule as", Label}, .panels = TypePanel},
        {.id = schedule_page_schedule_save_as,
         .panels = TypePanel,
         .name = "Save this Schedule as",
         .member = Typed(schedulePage.schedule_save_as, TypeScheduleName),
         .anchors = AcrossTop},
        {.id = schedule_page_schedule_save_changes,
         .caption = "Save Schedule",
         .letter = 'S',
         .panels = TypePanel,
         .enabled = [] { return schedulePage.schedule_save_changes; },
         .clicked = SaveScheduleChanges,
         .anchors = AtTopRight},
    };
}

std::vector<ControlRow> SchedulePageForm::ListRows() {
    return {{.id = schedule_page_schedule_lista, .panels = OldPanel, .anchors = AllEdges}};
}

std::vector<ControlRow> SchedulePageForm::InfoRows() {
    constexpr FontStyle bold = {100, FW_BOLD};
    return {
        {.id = schedule_page_info, .caption = "Info", .panels = OldPanel, .anchors = AtTopRight},
        {.id = schedule_page_next_run_label, .caption = {"Next run", Label}, .panels = OldPanel, .anchors = AtTopRight},
        {.id = schedule_page_next_run,
         .panels = OldPanel,
         .member = Shown([] { return scheduleList.info.next_run; }),
         .anchors = AtTopRight,
         .font = bold},
        {.id = schedule_page_last_run_label, .caption = {"Last run", Label}, .panels = OldPanel, .anchors = AtTopRight},
        {.id = schedule_page_last_run,
         .panels = OldPanel,
         .member = Shown(LastRun),
         .anchors = AtTopRight,
         .font = bold},
        {.id = schedule_page_view_log, .panels = LogPanel, .member = Shown(LinkToLog), .anchors = AtTopRight},
    };
}

std::vector<ControlRow> SchedulePageForm::UpcomingRows() {
    constexpr FontStyle bold = {100, FW_BOLD};
    return {
        {.id = schedule_page_upcoming,
         .caption = "Upcoming schedules today",
         .panels = OldPanel,
         .anchors = AtTopRight | AnchorBottom},
        {.id = schedule_page_no_scheduled_items,
         .caption = "There are no scheduled items for today",
         .panels = NothingPanel,
         .anchors = AtTopRight},
        {.id = schedule_page_upcoming_schedule12,
         .panels = UpcomingPanel,
         .member = Shown([] { return upcomingArea.upcoming_schedule12; }),
         .anchors = AtTopRight,
         .font = bold},
        {.id = schedule_page_will_start_label,
         .caption = {"will start in", Label},
         .panels = UpcomingPanel,
         .anchors = AtTopRight},
        {.id = schedule_page_will_start_in,
         .panels = UpcomingPanel,
         .member = Shown([] { return upcomingArea.will_start_in; }),
         .anchors = AtTopRight},
        {.id = schedule_page_Command6,
         .caption = "Edit this schedule",
         .letter = 'E',
         .panels = UpcomingPanel,
         .clicked = ScheduleCommand6,
         .anchors = AtBottomRight},
    };
}

unsigned SchedulePageForm::VisiblePanels() const {
    return schedulePage.old_schedule ? OldScheduleSeen() : NewScheduleSeen();
}

// --- life ---

void SchedulePageForm::OnInit() {
    schedule_lista.Attach(Control(schedule_page_schedule_lista), scheduleList.schedule_lista, RowMeasures);
    start_time.Attach(Control(schedule_page_start_time));
    start_time.Change = [this] {
        if (start_time.Time() != Panel().start_time) SetStartTime(start_time.Time());
    };
    monthly_day.Attach(Control(schedule_page_monthly_day));
    monthly_day.Change = [this] {
        if (!monthly_day.Empty() && monthly_day.Value() != schedulePage.monthly_day) SetMonthlyDay(monthly_day.Value());
    };
    SendMessageA(Control(schedule_page_schedule_save_as), EM_SETLIMITTEXT, LongestName, 0);
}

void SchedulePageForm::PodesiRjecnik() {
    FillTypes();
    RewordScheduleList();
    Page::PodesiRjecnik();
    schedule_lista.SetName(Translate("Scheduled Jobs"));
    schedule_lista.SetAction(Translate("Edit"));
    schedule_lista.SetSmallButtonTexts(Translate("Disable"), Translate("Delete"));
    start_time.SetName(Translate("Start time"));
    monthly_day.SetName(Translate("day of the month"));
}

void SchedulePageForm::FillTypes() const {
    SendMessageA(Control(schedule_page_Combo1), CB_RESETCONTENT, 0, 0);
    for (int type = 0; type < ScheduleTypeCount; ++type) {
        SendMessageA(Control(schedule_page_Combo1), CB_ADDSTRING, 0,
                     reinterpret_cast<LPARAM>(NameOfType(type).c_str()));
    }
}

void SchedulePageForm::OnLooks() {
    const int size = MulDiv(RowMeasures.ImageSize, DpiOf(Window()), USER_DEFAULT_SCREEN_DPI);
    std::vector<HICON> icons;
    for (int number = 0; number <= DisabledIcon; ++number) icons.push_back(IconOfRow(number, size));
    schedule_lista.SetIcons(icons);
}

void SchedulePageForm::OnLayout() {
    schedule_lista.FitWholeRows();
}

// --- what the user does ---

Member SchedulePageForm::JobChooser() {
    return {.show =
                [this](HWND list) {
                    if (shownJobs != schedulePage.jobs) {
                        shownJobs = schedulePage.jobs;
                        SendMessageA(list, LB_RESETCONTENT, 0, 0);
                        for (const std::string& job : shownJobs) {
                            SendMessageA(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(job.c_str()));
                        }
                    }
                    ShowChoice(list, LB_GETCURSEL, LB_SETCURSEL, schedulePage.Lista_Schedule);
                },
            .take = [](HWND list) { ChooseJobToSchedule(static_cast<int>(SendMessageA(list, LB_GETCURSEL, 0, 0))); }};
}

bool SchedulePageForm::OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT&) {
    if (message == WM_COMMAND && wParam == MAKEWPARAM(schedule_page_Combo1, CBN_CLOSEUP)) OnTypesClosed();
    if (message != WM_NOTIFY) return false;
    const auto& notice = *reinterpret_cast<const NMHDR*>(lParam);
    if (notice.idFrom == schedule_page_once_date && notice.code == static_cast<UINT>(DTN_DATETIMECHANGE)) {
        OnDateChanged(reinterpret_cast<const NMDATETIMECHANGE*>(lParam)->st);
        return true;
    }
    if (!LinkFollowed(notice, schedule_page_view_log)) return false;
    ViewScheduleLog();
    return true;
}

// The picker tells twice, and while its calendar is open: a box has to wait until that is gone.
void SchedulePageForm::OnDateChanged(const SYSTEMTIME& date) {
    const std::string chosen = DateTextOf(date);
    if (chosen == schedulePage.once_date) return;
    platform::CallFromPump([chosen] {
        if (chosen != schedulePage.once_date) ChangeOnceDate(chosen);
    });
}

void SchedulePageForm::OnEnter() {
    if (schedulePage.old_schedule) return Menu_Schedule_Edit();
    if (schedulePage.save_this_schedule_as && schedulePage.schedule_save_changes) SaveScheduleChanges();
}

bool SchedulePageForm::OnKeyDown(int virtualKey) {
    if (virtualKey != VK_DELETE || GetFocus() != Control(schedule_page_schedule_lista)) return false;
    Menu_Schedule_Delete();
    return true;
}

void SchedulePageForm::StaviFocus() const {
    SetFocus(Control(schedulePage.old_schedule ? schedule_page_schedule_lista : schedule_page_Lista_Schedule));
}

// A type that the arrow keys come past is not chosen yet: the keyboard stays in the list of types, and goes on to the
// name when that is closed. A click closes the list first and chooses then, in one message.
void SchedulePageForm::FocusOn(schedule_page_view::Focus control) {
    const HWND types = Control(schedule_page_Combo1);
    if (control == schedule_page_view::Focus::Combo1) {
        SetFocus(types);
        return;
    }
    typeChosen = SendMessageA(types, CB_GETDROPPEDSTATE, 0, 0) != FALSE;
    if (typeChosen || (GetFocus() == types && GetMessageTime() != typesClosed)) return;
    SelectName();
}

void SchedulePageForm::OnTypesClosed() {
    typesClosed = GetMessageTime();
    if (std::exchange(typeChosen, false)) platform::CallFromPump([this] { SelectName(); });
}

void SchedulePageForm::SelectName() const {
    SetFocus(Control(schedule_page_schedule_save_as));
    SendMessageA(Control(schedule_page_schedule_save_as), EM_SETSEL, 0, -1);
}

// What is disabled while it has the keyboard is the button that has just saved.
int SchedulePageForm::FocusInsteadOf(int id) const {
    return id == schedule_page_schedule_save_changes ? schedule_page_schedule_save_as : 0;
}

// --- Menu_Schedule ---

void SchedulePageForm::OpenMenu_Schedule() {
    const int row = scheduleList.schedule_lista.listindex();
    if (row < 0) return;
    constexpr UINT run = 1;
    constexpr UINT edit = 2;
    constexpr UINT enable = 3;
    constexpr UINT remove = 4;
    const bool enabled = ScheduleAt(row).enabled != 0;
    const HMENU menu = CreatePopupMenu();
    AppendMenuA(menu, MF_STRING, run, Translate("&Run").c_str());
    AppendMenuA(menu, MF_STRING, edit, Translate("&Edit").c_str());
    AppendMenuA(menu, MF_STRING, enable, Translate(enabled ? "Disable" : "Enable").c_str());
    AppendMenuA(menu, MF_SEPARATOR, 0, nullptr);
    AppendMenuA(menu, MF_STRING, remove, Translate("Delete").c_str());
    switch (TrackMenu(menu, GetParent(Window()), schedule_lista.MenuPlace())) {
        case run:
            return Menu_Schedule_Run();
        case edit:
            return Menu_Schedule_Edit();
        case enable:
            return EnableOrDisableSchedule();
        case remove:
            return Menu_Schedule_Delete();
        default:
            return;
    }
}

// --- the view ---

namespace schedule_page_view {

void Show() {
    schedulePageForm.Refresh();
}

void FocusOn(Focus control) {
    schedulePageForm.FocusOn(control);
}

void OpenMenu_Schedule() {
    schedulePageForm.OpenMenu_Schedule();
}

}  // namespace schedule_page_view
